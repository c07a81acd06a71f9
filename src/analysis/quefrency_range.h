// quefrency_range.h - where a cepstrum is searched for the peak of a voice: the knots of the
// interpolation and the tenths of a sample between them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace cantorix {

inline constexpr std::size_t kFinePerKnot = 10;  // the fine grid counts tenths of a sample

struct QuefrencyRange {
  std::size_t first = 0;       // quefrency of knot 0, in samples
  std::size_t knots = 0;       // 0: nothing to search
  std::int64_t fineFirst = 0;  // fine index of knot 0, up to 9 above 10 * first
  std::size_t fineCount = 0;   // fine points that are searched, at most 10 * knots
};

// The range for pitches of lowHz ... highHz (samples rate / high to rate / low, truncated) in a
// cepstrum of `points` values, of which the upper half counts as 0. Fewer than two knots, or limits
// that are not positive numbers, give an empty range.
QuefrencyRange FindQuefrencyRange(double rateHz, double lowHz, double highHz, std::size_t points);

}  // namespace cantorix
