// list_change.h - how one list became another: everything between what is the same at the front and
// at the back was replaced.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace cantorix {

// [first, first + removed) of the list before became [first, first + added) of the one now.
struct ListChange {
  std::size_t first = 0;
  std::size_t removed = 0;
  std::size_t added = 0;

  bool empty() const { return removed == 0 && added == 0; }
  std::size_t touched() const { return std::max(removed, added); }
};

template <typename T>
ListChange ChangeOf(const std::vector<T>& before, const std::vector<T>& now) {
  const auto [a, b] = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
  ListChange change{static_cast<std::size_t>(a - before.begin()),
                    static_cast<std::size_t>(before.end() - a),
                    static_cast<std::size_t>(now.end() - b)};
  while (change.removed > 0 && change.added > 0 &&
         before[change.first + change.removed - 1] == now[change.first + change.added - 1]) {
    --change.removed;
    --change.added;
  }
  return change;
}

// One change and then another as a single one that covers both. `removed` may stand for however
// many there are in the first one; then it does in the result.
inline ListChange Joined(const ListChange& one, const ListChange& then) {
  if (one.empty()) return then;
  if (then.empty()) return one;
  const std::size_t first = std::min(one.first, then.first);
  // Of the list between the two.
  const std::size_t end = std::max(one.first + one.added, then.first + then.removed);
  const std::size_t length = end - first;
  const bool isAll = one.removed == std::numeric_limits<std::size_t>::max();
  return {first, isAll ? one.removed : length - one.added + one.removed,
          length - then.removed + then.added};
}

// Does a change to `list`, which becomes as `now` is there.
template <typename T>
void Make(const ListChange& change, std::vector<T>& list, const std::vector<T>& now) {
  const std::size_t same = std::min(change.removed, change.added);
  const auto from = now.begin() + static_cast<std::ptrdiff_t>(change.first);
  const auto at = list.begin() + static_cast<std::ptrdiff_t>(change.first);
  std::copy(from, from + static_cast<std::ptrdiff_t>(same), at);
  const auto rest = at + static_cast<std::ptrdiff_t>(same);
  list.insert(list.erase(rest, at + static_cast<std::ptrdiff_t>(change.removed)),
              from + static_cast<std::ptrdiff_t>(same),
              from + static_cast<std::ptrdiff_t>(change.added));
}

}  // namespace cantorix
