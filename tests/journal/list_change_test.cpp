// list_change_test.cpp - of short lists at random: what changed between two is as little as can be,
// and two changes joined do what both do.
#include "journal/list_change.h"

#include <gtest/gtest.h>

#include <random>

namespace cantorix {
namespace {

using List = std::vector<int>;

class ListChangeTest : public testing::Test {
 protected:
  std::size_t Below(std::size_t n) { return random_() % n; }
  List Some() {
    List list(Below(5));
    for (int& value : list) value = static_cast<int>(Below(3));
    return list;
  }
  // With another stretch in the place of one.
  List Edited(List list) {
    const auto first = static_cast<std::ptrdiff_t>(Below(list.size() + 1));
    const auto end = first + static_cast<std::ptrdiff_t>(
                                 Below(list.size() - static_cast<std::size_t>(first) + 1));
    const List put = Some();
    list.insert(list.erase(list.begin() + first, list.begin() + end), put.begin(), put.end());
    return list;
  }

 private:
  std::mt19937 random_{20261122};
};

TEST_F(ListChangeTest, MakesTheOneListOfTheOther) {
  constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();
  for (int turn = 0; turn < 5000; ++turn) {
    const List before = Edited(Some()), now = Edited(before), then = Edited(now);
    const ListChange change = ChangeOf(before, now);
    EXPECT_EQ(change.empty(), before == now);
    EXPECT_EQ(change.touched(), std::max(change.removed, change.added));
    EXPECT_EQ(before.size() - change.removed, now.size() - change.added);
    if (change.removed > 0 && change.added > 0) {
      EXPECT_NE(before[change.first], now[change.first]);
      EXPECT_NE(before[change.first + change.removed - 1], now[change.first + change.added - 1]);
    }
    List list = before;
    Make(change, list, now);
    EXPECT_EQ(list, now);

    const ListChange next = ChangeOf(now, then);
    const ListChange both = Joined(change, next);
    EXPECT_LE(both.touched(), std::max(before.size(), then.size()));
    list = before;
    Make(both, list, then);
    EXPECT_EQ(list, then);
    const ListChange all = Joined({0, kAll, now.size()}, next);
    EXPECT_EQ(all.first, 0U);
    EXPECT_EQ(all.removed, kAll);
    EXPECT_EQ(all.added, then.size());
  }
}

}  // namespace
}  // namespace cantorix
