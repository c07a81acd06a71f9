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
  }
  before_.push_back(counts);
}

TrackSpread TrackSummary::Of(std::size_t first, std::size_t last) const {
  const Counts counts = CountsOf(first, last);
  GroupSums sums{};
  for (std::size_t bin = 0; bin < kBins; ++bin) sums[bin / kGroup] += counts[bin];
  TrackSpread spread;
  spread.count = std::accumulate(sums.begin(), sums.end(), std::int64_t{0});
  if (spread.count == 0) return spread;
  const auto at = [&](double part) {
    return ValueAt(counts, sums, std::llround(part * static_cast<double>(spread.count - 1)));
  };
  spread.low = at(0.1);
  spread.middle = at(0.5);
  spread.high = at(0.9);
  spread.most = at(1.0);
  return spread;
}

// From the running counts nearest to both ends, with the entries between them and the ends.
TrackSummary::Counts TrackSummary::CountsOf(std::size_t first, std::size_t last) const {
  const auto nearest = [&](std::size_t entry) {
    return std::min((entry + kBlock / 2) / kBlock, bins_.size() / kBlock);
  };
  const std::size_t from = nearest(first);
  const std::size_t to = nearest(last);
  Counts counts{};
  for (std::size_t bin = 0; bin < kBins; ++bin) counts[bin] = before_[to][bin] - before_[from][bin];
  Add(counts, first, from * kBlock, 1);
  Add(counts, from * kBlock, first, -1);
  Add(counts, to * kBlock, last, 1);
  Add(counts, last, to * kBlock, -1);
  counts[0] = 0;
  return counts;
}

void TrackSummary::Add(Counts& counts, std::size_t first, std::size_t last,
                       std::int32_t times) const {
  for (std::size_t i = first; i < last; ++i) counts[bins_[i]] += times;
}

// The value of that rank, 0 being the smallest one's. The values of a bin are taken to lie evenly
// in it.
double TrackSummary::ValueAt(const Counts& counts, const GroupSums& sums, std::int64_t rank) const {
  std::int64_t before = 0;
  std::size_t group = 0;
  while (before + sums[group] <= rank) before += sums[group++];
  std::size_t bin = group * kGroup;
  while (before + counts[bin] <= rank) before += counts[bin++];
  const double part = (static_cast<double>(rank - before) + 0.5) / static_cast<double>(counts[bin]);
  return least_ + (static_cast<double>(bin) - 1.0 + part) * width_;
}

}  // namespace cantorix
