// log_spectrum.cpp - the faster logarithm: a power is 2^e m with m around 1, and log m is the odd
// series of s = (m - 1) / (m + 1). Without branches, tables and conversions, so that a loop over it
// is vectorised; the C library's logarithm is compiled for the narrowest vectors.
#include "analysis/log_spectrum.h"

#include <bit>
#include <cmath>
#include <cstdint>

#include "analysis/decibel.h"
#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr double kLeastPower = 1e-30;
constexpr double kGreatestPower = 1e30;
constexpr double kDbPerOctave = 3.0102999566398119521;  // 10 log10 2
constexpr double kDbPerNeper = 4.3429448190325182765;   // 10 / ln 10

// 10 log10 of a normal positive number. With |s| < 0.1716 the series ends below 2^-56 after the
// term s^21 / 21.
inline double FastDb(double power) {
  constexpr std::uint64_t kOne = 0x3FF0000000000000;       // the bits of 1
  constexpr std::uint64_t kRootHalf = 0x3FE6A09E667F3BCD;  // the bits of the root of 1/2
  constexpr std::uint64_t kTwoTo52 = 0x4330000000000000;   // the bits of 2^52
  const auto bits = std::bit_cast<std::uint64_t>(power);
  const std::uint64_t biased = (bits + (kOne - kRootHalf)) >> 52;  // e + 1023
  const double e = std::bit_cast<double>(biased | kTwoTo52) - (0x1p52 + 1023.0);
  const double m = std::bit_cast<double>(bits - (biased << 52) + kOne);

  const double s = (m - 1.0) / (m + 1.0);
  const double z = s * s;
  double series = 1.0 / 21.0;
  series = series * z + 1.0 / 19.0;
  series = series * z + 1.0 / 17.0;
  series = series * z + 1.0 / 15.0;
  series = series * z + 1.0 / 13.0;
  series = series * z + 1.0 / 11.0;
  series = series * z + 1.0 / 9.0;
  series = series * z + 1.0 / 7.0;
  series = series * z + 1.0 / 5.0;
  series = series * z + 1.0 / 3.0;
  const double logM = 2.0 * s + 2.0 * s * (z * series);
  return e * kDbPerOctave + logM * kDbPerNeper;
}

CANTORIX_CLONES std::uint64_t LevelsFast(const double* __restrict power, std::size_t count,
                                         double* __restrict levelsDb) {
  std::uint64_t outside = 0;
  for (std::size_t k = 0; k < count; ++k) {
    const double p = power[k];
    const bool inside = p >= kLeastPower && p <= kGreatestPower;
    const bool zero = p == 0.0;
    const double level = FastDb(inside ? p : 1.0);
    levelsDb[k] = level;
    outside |= inside || zero ? 0u : 1u;
  }
  return outside;
}

CANTORIX_CLONES void Powers(const double* __restrict re, const double* __restrict im,
                            std::size_t count, double* __restrict power) {
  for (std::size_t k = 0; k < count; ++k) power[k] = re[k] * re[k] + im[k] * im[k];
}

}  // namespace

void FindPowers(std::span<const double> re, std::span<const double> im, std::span<double> power) {
  Powers(re.data(), im.data(), power.size(), power.data());
}

void FindLevels(std::span<const double> power, std::span<double> levelsDb) {
  for (std::size_t k = 0; k < power.size(); ++k) levelsDb[k] = PowerDb(power[k]);
}

bool FindLevelsFast(std::span<const double> power, std::span<double> levelsDb) {
  return LevelsFast(power.data(), power.size(), levelsDb.data()) == 0;
}

}  // namespace cantorix
