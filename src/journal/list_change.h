// list_change.h - how one list became another: everything between what is the same at the front and
// at the back was replaced.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace cantorix {

// [first, first + removed) of the list before became [first, first + added) of the one now.
struct ListChange {
  std::size_t first = 0;
  std::size_t removed = 0;
  std::size_t added = 0;

  bool empty() const { return removed + added == 0; }
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

}  // namespace cantorix
