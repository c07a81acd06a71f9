// track_columns.h - an evenly spaced track over the columns of a picture, for tracks with more
// entries than the picture has columns.
#pragma once

#include <span>
#include <vector>

#include "analysis/track_summary.h"

namespace cantorix {

// Entry i stands at column first + i * step (step > 0).
struct TrackPlace {
  double first = 0.0;
  double step = 1.0;

  double X(double i) const { return first + i * step; }
};

// How the entries that stand in each of `count` columns are spread. Column c holds the entries at
// [c, c + 1).
std::vector<TrackSpread> TrackColumns(const TrackSummary& track, const TrackPlace& place,
                                      std::size_t count);

// The half-open range of entries that stand in [from, to), with one more on either side, so that a
// line through them runs on to the edges.
struct EntryRange {
  std::size_t first = 0;
  std::size_t last = 0;
};
EntryRange EntriesAround(std::size_t size, const TrackPlace& place, double from, double to);

}  // namespace cantorix
