// track_columns.cpp - the entries around a column, and their extent.
#include "mainview/track_columns.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace cantorix {
namespace {

// The first entry at or right of column `x`, in 0 ... size.
std::size_t FirstFrom(const TrackPlace& place, double x, std::size_t size) {
  const double i = std::ceil((x - place.first) / place.step);
  if (!(i > 0.0)) return 0;
  return i < static_cast<double>(size) ? static_cast<std::size_t>(i) : size;
}

ValueExtent ExtentAbove(std::span<const double> values, double floor) {
  constexpr double kNone = std::numeric_limits<double>::infinity();
  double low = kNone;
  double high = -kNone;
  for (const double value : values) {
    if (!(value > floor)) continue;
    low = std::min(low, value);
    high = std::max(high, value);
  }
  return low <= high ? ValueExtent{low, high} : ValueExtent{};
}

}  // namespace

std::vector<ValueExtent> TrackColumns(std::span<const double> values, const TrackPlace& place,
                                      std::size_t count, double floor) {
  std::vector<ValueExtent> columns(count);
  std::size_t first = FirstFrom(place, 0.0, values.size());
  for (std::size_t c = 0; c < count; ++c) {
    const std::size_t last =
        std::max(FirstFrom(place, static_cast<double>(c + 1), values.size()), first);
    columns[c] = ExtentAbove(values.subspan(first, last - first), floor);
    first = last;
  }
  return columns;
}

EntryRange EntriesAround(std::size_t size, const TrackPlace& place, double from, double to) {
  const std::size_t first = FirstFrom(place, from, size);
  const std::size_t last = FirstFrom(place, to, size);
  return {first > 0 ? first - 1 : 0, std::min(last + 1, size)};
}

}  // namespace cantorix
