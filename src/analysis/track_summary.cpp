// track_summary.cpp - bins, their running counts, and ranks among them.
#include "analysis/track_summary.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace cantorix {
namespace {

bool InUse(double value, double floor) { return value > floor && std::isfinite(value); }

}  // namespace

TrackSummary::TrackSummary(std::span<const double> values, double floor) : bins_(values.size()) {
  double most = 0.0;
  bool any = false;
  for (const double value : values) {
    if (!InUse(value, floor)) continue;
    least_ = any ? std::min(least_, value) : value;
    most = any ? std::max(most, value) : value;
    any = true;
  }
  constexpr double kUsed = static_cast<double>(kBins - 1);
  width_ = (most - least_) / kUsed;
  const double perHertz = width_ > 0.0 ? 1.0 / width_ : 0.0;
  Counts counts{};
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i % kBlock == 0) before_.push_back(counts);
    if (!InUse(values[i], floor)) continue;
    const double bin = std::min((values[i] - least_) * perHertz, kUsed - 1.0);
    bins_[i] = static_cast<std::uint8_t>(1 + static_cast<int>(bin));
    ++counts[bins_[i]];
    ++values_;
  }
  before_.push_back(counts);
}

const std::vector<TrackSpread>& TrackSummary::OfEach(std::span<const std::size_t> edges) const {
  if (keptEdges_.empty() || !std::ranges::equal(edges, keptEdges_)) {
    kept_ = SpreadsOf(edges);
    keptEdges_.assign(edges.begin(), edges.end());
  }
  return kept_;
}

std::vector<TrackSpread> TrackSummary::SpreadsOf(std::span<const std::size_t> edges) const {
  std::vector<TrackSpread> spreads(edges.empty() ? 0 : edges.size() - 1);
  Counts before{};  // the edge on the left of a long stretch; most often it is the last one's right
  std::size_t entriesBefore = 0;
  for (std::size_t i = 0; i < spreads.size(); ++i) {
    const std::size_t first = edges[i];
    const std::size_t last = edges[i + 1];
    if (last - first <= kShort) {
      spreads[i] = OfShort(first, last);
      continue;
    }
    if (entriesBefore != first) before = CountsBefore(first);
    const Counts upTo = CountsBefore(last);
    spreads[i] = OfLong(before, upTo);
    before = upTo;
    entriesBefore = last;
  }
  return spreads;
}

template <typename ValueOfRank>
TrackSpread TrackSummary::Spread(std::int64_t count, const ValueOfRank& valueOf) {
  if (count == 0) return {};
  const auto at = [&](double part) {
    return valueOf(std::llround(part * static_cast<double>(count - 1)));
  };
  return {count, at(0.1), at(0.5), at(0.9), at(1.0)};
}

// The values of a bin are taken to lie evenly in it.
double TrackSummary::ValueIn(std::size_t bin, std::int64_t rank, std::int64_t count) const {
  const double part = (static_cast<double>(rank) + 0.5) / static_cast<double>(count);
  return least_ + (static_cast<double>(bin) - 1.0 + part) * width_;
}

// A few bins are put in order sooner than 256 are counted.
TrackSpread TrackSummary::OfShort(std::size_t first, std::size_t last) const {
  std::array<std::uint8_t, kShort> inUse{};
  std::size_t count = 0;
  for (std::size_t i = first; i < last; ++i) {
    if (bins_[i] == 0) continue;
    std::size_t place = count++;
    for (; place > 0 && inUse[place - 1] > bins_[i]; --place) inUse[place] = inUse[place - 1];
    inUse[place] = bins_[i];
  }
  const auto end = inUse.begin() + static_cast<std::ptrdiff_t>(count);
  return Spread(static_cast<std::int64_t>(count), [&](std::int64_t rank) {
    const std::uint8_t bin = inUse[static_cast<std::size_t>(rank)];
    const auto [from, to] = std::equal_range(inUse.begin(), end, bin);
    return ValueIn(bin, rank - (from - inUse.begin()), to - from);
  });
}

TrackSpread TrackSummary::OfLong(const Counts& before, const Counts& upTo) const {
  Counts counts{};
  for (std::size_t bin = 1; bin < kBins; ++bin) counts[bin] = upTo[bin] - before[bin];
  GroupSums sums{};
  for (std::size_t group = 0; group < sums.size(); ++group) {
    const auto from = counts.begin() + static_cast<std::ptrdiff_t>(group * kGroup);
    sums[group] = std::accumulate(from, from + kGroup, std::int32_t{0});
  }
  return Spread(std::accumulate(sums.begin(), sums.end(), std::int64_t{0}),
                [&](std::int64_t rank) { return ValueAt(counts, sums, rank); });
}

// From the nearest running counts, with the entries between.
TrackSummary::Counts TrackSummary::CountsBefore(std::size_t entry) const {
  const std::size_t block = std::min((entry + kBlock / 2) / kBlock, bins_.size() / kBlock);
  const std::size_t from = block * kBlock;
  Counts counts = before_[block];
  for (std::size_t i = from; i < entry; ++i) ++counts[bins_[i]];
  for (std::size_t i = entry; i < from; ++i) --counts[bins_[i]];
  return counts;
}

double TrackSummary::ValueAt(const Counts& counts, const GroupSums& sums, std::int64_t rank) const {
  std::int64_t before = 0;
  std::size_t group = 0;
  while (before + sums[group] <= rank) before += sums[group++];
  std::size_t bin = group * kGroup;
  while (before + counts[bin] <= rank) before += counts[bin++];
  return ValueIn(bin, rank - before, counts[bin]);
}

}  // namespace cantorix
