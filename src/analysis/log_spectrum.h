// log_spectrum.h - powers to dB for a whole transform, in the stated arithmetic or in a faster one:
//
//   P[k] = re[k]^2 + im[k]^2,  L[k] = 10 log10 P[k] dB, 0 dB where P[k] is 0
//
// The faster logarithm takes P = 2^e m with m around 1 and ln m = 2 (s + s^3 / 3 + s^5 / 5 + ...),
// s = (m - 1) / (m + 1).
// Source: [1] M. Abramowitz, I. A. Stegun, "Handbook of Mathematical Functions", 1964.
#pragma once

#include <cstddef>
#include <span>

namespace cantorix {

// Writes re^2 + im^2 to `power`; the other spans are at least as long.
void FindPowers(std::span<const double> re, std::span<const double> im, std::span<double> power);

// Writes PowerDb of each power; in place, too.
void FindLevels(std::span<const double> power, std::span<double> levelsDb);

// The same within kFastLevelError, without the C library's logarithm. Returns false, with the
// levels unusable, when a power other than 0 lies outside 1e-30 ... 1e30 (not-a-number included).
bool FindLevelsFast(std::span<const double> power, std::span<double> levelsDb);

// What FindLevelsFast gives, and at most how far it is from FindLevels: 64 times 2^-53 for each dB
// and one more. The faster logarithm itself is good to 3 units of 2^-53 per dB and 18 more, the C
// library's is off by fewer than 8 per dB.
inline constexpr double kMaxFastLevelDb = 300.0;
inline constexpr double kFastLevelError = 64.0 * 0x1p-53 * (kMaxFastLevelDb + 1.0);

}  // namespace cantorix
