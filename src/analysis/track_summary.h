// track_summary.h - how the values of a long track are spread within any stretch of its entries,
// told without reading the stretch: values are sorted into bins once, and the numbers of values per
// bin are kept for every few hundred entries from the beginning on. For pictures only, whose pixels
// are coarser than a bin; nothing that is measured goes through it.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace cantorix {

// Of the values in a stretch; 10, 50 and 90 of a hundred lie below low, middle and high. Off by at
// most a bin.
struct TrackSpread {
  std::int64_t count = 0;  // values that are of use; with 0 the others mean nothing
  double low = 0.0;
  double middle = 0.0;
  double high = 0.0;
  double most = 0.0;
};

class TrackSummary {
 public:
  static constexpr std::size_t kBins = 256;

  // Values up to `floor`, infinite ones and NaN are no values.
  TrackSummary(std::span<const double> values, double floor);

  // Entries, values or not.
  std::size_t size() const { return bins_.size(); }
  // Of the entries from each edge to the next; edges ascend within 0 ... size(). The last answer is
  // kept for whoever draws the same columns next, so that one thread at a time may ask.
  const std::vector<TrackSpread>& OfEach(std::span<const std::size_t> edges) const;
  // Of all entries.
  std::int64_t values() const { return values_; }
  // The smallest value; 0 without any.
  double least() const { return least_; }
  double binWidth() const { return width_; }

 private:
  static constexpr std::size_t kBlock = 256;  // entries
  static constexpr std::size_t kGroup = 16;   // bins
  static constexpr std::size_t kShort = 64;   // entries
  using GroupSums = std::array<std::int32_t, kBins / kGroup>;
  using Counts = std::array<std::int32_t, kBins>;

  // Of a rank among `count` values, 0 being the smallest one's.
  template <typename ValueOfRank>
  static TrackSpread Spread(std::int64_t count, const ValueOfRank& valueOf);
  // The value of that rank among the `count` ones of a bin.
  double ValueIn(std::size_t bin, std::int64_t rank, std::int64_t count) const;
  std::vector<TrackSpread> SpreadsOf(std::span<const std::size_t> edges) const;
  TrackSpread OfShort(std::size_t first, std::size_t last) const;
  TrackSpread OfLong(const Counts& before, const Counts& upTo) const;
  // Of all entries before this one; bin 0 counts those without a value.
  Counts CountsBefore(std::size_t entry) const;
  double ValueAt(const Counts& counts, const GroupSums& sums, std::int64_t rank) const;

  std::int64_t values_ = 0;
  double least_ = 0.0;
  double width_ = 0.0;              // of a bin
  std::vector<std::uint8_t> bins_;  // of each entry; 0: no value
  std::vector<Counts> before_;      // of the entries before every whole number of blocks
  mutable std::vector<std::size_t> keptEdges_;
  mutable std::vector<TrackSpread> kept_;  // of keptEdges_
};

}  // namespace cantorix
