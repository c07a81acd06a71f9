// frame_span.h - the sample indices of a frame that starts between two samples.
// A frame walks j = start, start + 1.0, start + 2.0, ... in doubles while j < trunc(start + window)
// and takes sample trunc(j). That is a plain run of indices with one exception: at a power of two
// the spacing of doubles doubles, so a start within a rounding error below an integer can be
// rounded up to it there (511.99999999999994 + 1.0 is 513.0). From then on j is whole, so a frame
// skips at most one index, and only a power of two.
#pragma once

#include <cstdint>

namespace cantorix {

struct FrameSpan {
  std::int64_t first = 0;
  std::int64_t end = 0;       // one past the last index; not above first: an empty frame
  std::int64_t skipped = -1;  // the index inside that is left out, or -1

  bool Holds(std::int64_t k) const { return k >= first && k < end && k != skipped; }
};

// The frame of `window` samples at `start`; 0 <= start, start + window < 2^52.
FrameSpan SpanOfFrame(double start, double window);

}  // namespace cantorix
