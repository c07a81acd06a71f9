// track_columns.cpp - the entries around a column.
#include "mainview/track_columns.h"

#include <algorithm>
#include <cmath>

namespace cantorix {
namespace {

// The first entry at or right of column `x`, in 0 ... size.
std::size_t FirstFrom(const TrackPlace& place, double x, std::size_t size) {
  const double i = std::ceil((x - place.first) / place.step);
  if (!(i > 0.0)) return 0;
  return i < static_cast<double>(size) ? static_cast<std::size_t>(i) : size;
}

}  // namespace

std::vector<TrackSpread> TrackColumns(const TrackSummary& track, const TrackPlace& place,
                                      std::size_t count) {
  std::vector<std::size_t> edges(count + 1);
  for (std::size_t c = 0; c < edges.size(); ++c) {
    edges[c] = FirstFrom(place, static_cast<double>(c), track.size());
  }
  return track.OfEach(edges);
}

EntryRange EntriesAround(std::size_t size, const TrackPlace& place, double from, double to) {
  const std::size_t first = FirstFrom(place, from, size);
  const std::size_t last = FirstFrom(place, to, size);
  return {first > 0 ? first - 1 : 0, std::min(last + 1, size)};
}

}  // namespace cantorix
