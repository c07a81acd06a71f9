// spectrum_limits.h - how long the frames of a spectrum may be, and how high its display reaches.
#pragma once

#include <bit>
#include <cstdint>

#include "platform/numbers.h"

namespace cantorix {

// Whether frames of `points` samples can be analysed: a power of two from 32 to 8192.
inline bool IsSpectrumSize(std::int32_t points) {
  return points >= 32 && points <= 8192 && std::has_single_bit(static_cast<std::uint32_t>(points));
}

// The longest LPC frame in samples: 400 coefficients at 5 MHz, less than a second of work. No rate
// and order of speech come near it; a header of nonsense does.
inline constexpr std::int64_t kLongestLpcFrame = 1LL << 21U;

// The whole kHz within half of the rate, in Hz: 5000 at 11025 Hz, 0 below 2000 Hz.
inline std::int32_t HighestRangeHz(double rateHz) { return TruncateToInt32(rateHz) / 2000 * 1000; }

// The most LPC coefficients of a spectrum: one for each kHz of the rate and 10 more.
inline std::int64_t MostLpcCoefficients(double rateHz) {
  return Truncate(rateHz * 0.0005 + rateHz * 0.0005 + 10.0);
}

}  // namespace cantorix
