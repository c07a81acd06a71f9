// label_listing.cpp - one order of all rows, and the part of it that is shown.
#include "mainview/label_listing.h"

#include <algorithm>
#include <numeric>

namespace cantorix {
namespace {

constexpr std::size_t kKeyBytes = 8;

// The first bytes as a number that compares as they do: most texts differ there.
std::uint64_t KeyOf(std::string_view text) {
  std::uint64_t key = 0;
  for (std::size_t i = 0; i < kKeyBytes; ++i) {
    key = key << 8U | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
  }
  return key;
}

struct Keyed {
  std::uint64_t key;
  std::uint32_t row;
};

// Ties go by the whole text, then as stored; descending by the reverse of the texts alone.
std::vector<std::uint32_t> OrderOfTexts(const std::vector<std::string>& texts, bool descending) {
  std::vector<Keyed> keyed(texts.size());
  for (std::uint32_t i = 0; i < keyed.size(); ++i) keyed[i] = {KeyOf(texts[i]), i};
  std::sort(keyed.begin(), keyed.end(), [&](const Keyed& a, const Keyed& b) {
    if (a.key != b.key) return descending ? a.key > b.key : a.key < b.key;
    const int compared = texts[a.row].compare(texts[b.row]);
    if (compared != 0) return descending ? compared > 0 : compared < 0;
    return a.row < b.row;
  });
  std::vector<std::uint32_t> order(keyed.size());
  std::transform(keyed.begin(), keyed.end(), order.begin(), [](const Keyed& k) { return k.row; });
  return order;
}

bool IsBlankText(const std::string& text) {
  return text.find_first_not_of(" \t") == std::string::npos;
}

}  // namespace

std::string Folded(std::string_view text) {
  constexpr char kLatin = '\xC3';  // first byte of U+00C0 ... U+00FF
  std::string folded(text);
  for (std::size_t i = 0; i < folded.size(); ++i) {
    const auto c = static_cast<unsigned char>(folded[i]);
    const bool isLatin = i > 0 && folded[i - 1] == kLatin && c >= 0x80U && c <= 0x9EU && c != 0x97U;
    if ((c >= 'A' && c <= 'Z') || isLatin) folded[i] = static_cast<char>(c + 0x20U);
  }
  return folded;
}

void LabelListing::Take(std::vector<LabelListRow> rows) {
  rows_ = std::move(rows);
  folded_.clear();
  folded_.reserve(rows_.size());
  tiers_.clear();
  for (const LabelListRow& row : rows_) {
    folded_.push_back(Folded(row.text));
    if (tiers_.empty() || tiers_.back().first != row.tier) {
      tiers_.emplace_back(row.tier, row.tierName);
    }
  }
  const bool isThere = std::any_of(tiers_.begin(), tiers_.end(),
                                   [this](const auto& tier) { return tier.first == tier_; });
  if (!isThere) tier_ = -1;
  Sort();
  Show();
}

void LabelListing::SortBy(std::optional<LabelColumn> column, bool descending) {
  column_ = column;
  descending_ = descending;
  Sort();
  Show();
}

void LabelListing::Filter(std::string search, int tier) {
  search_ = std::move(search);
  tier_ = tier;
  Show();
}

void LabelListing::Sort() {
  if (column_ == LabelColumn::kText) {
    order_ = OrderOfTexts(folded_, descending_);
    return;
  }
  order_.resize(rows_.size());
  std::iota(order_.begin(), order_.end(), 0U);
  if (!column_) return;
  const auto sort = [this](auto valueOf) {
    std::stable_sort(order_.begin(), order_.end(), [&](std::uint32_t a, std::uint32_t b) {
      return descending_ ? valueOf(b) < valueOf(a) : valueOf(a) < valueOf(b);
    });
  };
  if (column_ == LabelColumn::kTier) {
    sort([this](std::uint32_t row) { return rows_[row].tier; });
  } else {
    sort([this](std::uint32_t row) { return rows_[row].timeMs; });
  }
}

void LabelListing::Show() {
  const std::string wanted = IsBlankText(search_) ? std::string() : Folded(search_);
  shown_.clear();
  shown_.reserve(order_.size());
  for (const std::uint32_t row : order_) {
    if (tier_ >= 0 && rows_[row].tier != tier_) continue;
    if (!wanted.empty() && folded_[row].find(wanted) == std::string::npos) continue;
    shown_.push_back(row);
  }
}

std::string LabelListing::EmptyText() const {
  if (rows_.empty()) return "No labels. Turn on label entry, click and type.";
  return "No label matches '" + search_ + "' (" + std::to_string(hidden()) + " hidden).";
}

}  // namespace cantorix
