// frame_span.cpp - only the crossings of powers of two are walked.
#include "analysis/frame_span.h"

#include <bit>

#include "platform/numbers.h"

namespace cantorix {
namespace {

// The index that the walk from `start` skips before `end`. Between powers of two adding 1.0 is
// exact, so the place before a crossing at `power` is power - 1 and the fraction carried so far.
std::int64_t SkippedIndex(double start, std::int64_t first, std::int64_t end) {
  double fraction = start - static_cast<double>(first);
  auto power = static_cast<std::int64_t>(std::bit_ceil(static_cast<std::uint64_t>(first) + 1));
  for (; power < end && fraction > 0.0; power *= 2) {
    const auto crossing = static_cast<double>(power);
    const double crossed = (crossing - 1.0 + fraction) + 1.0;
    if (crossed >= crossing + 1.0) return power;
    fraction = crossed - crossing;
  }
  return -1;
}

}  // namespace

FrameSpan SpanOfFrame(double start, double window) {
  FrameSpan span;
  span.first = Truncate(start);
  span.end = Truncate(start + window);
  span.skipped = SkippedIndex(start, span.first, span.end);
  return span;
}

}  // namespace cantorix
