// label_listing.h - the rows of the label list as they are shown: sorted by a column, those of one
// tier, those whose text holds the letters that are searched for. Made for hundreds of thousands.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mainview/label_list.h"

namespace cantorix {

enum class LabelColumn { kTier, kTime, kText };

class LabelListing {
 public:
  // All labels; sorting and filter stay, a tier that has no labels any more is no filter.
  void Take(std::vector<LabelListRow> rows);
  // Nothing: as stored, tier by tier. Rows that are equal stay as stored, in either direction.
  void SortBy(std::optional<LabelColumn> column, bool descending);
  // Rows whose text holds `search`, large and small letters alike; a blank text shows all. `tier`
  // is a slot, -1 for all.
  void Filter(std::string search, int tier);

  std::size_t size() const { return shown_.size(); }
  std::size_t hidden() const { return rows_.size() - shown_.size(); }
  // Throws std::out_of_range.
  const LabelListRow& row(std::size_t shown) const { return rows_[shown_.at(shown)]; }
  // Slots and names of the tiers that have labels.
  const std::vector<std::pair<int, std::string>>& tiers() const { return tiers_; }
  int tier() const { return tier_; }
  // What stands in the place of rows when there is none: how to get labels, or what is filtered.
  std::string EmptyText() const;

 private:
  void Sort();
  void Show();

  std::vector<LabelListRow> rows_;
  std::vector<std::string> folded_;   // their texts as they are compared
  std::vector<std::uint32_t> order_;  // of all rows
  std::vector<std::uint32_t> shown_;  // those of them that pass
  std::vector<std::pair<int, std::string>> tiers_;
  std::optional<LabelColumn> column_;
  bool descending_ = false;
  std::string search_;
  int tier_ = -1;
};

// Latin letters of ASCII and Latin-1 as small ones; other bytes stay.
std::string Folded(std::string_view text);

}  // namespace cantorix
