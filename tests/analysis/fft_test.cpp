// fft_test.cpp - the fast transform against the plain loop, bit for bit, and against what a
// transform must give.
#include "analysis/fft.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <complex>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>

#include "analysis/plain_fft.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

struct Points {
  std::vector<double> re, im;
};

Points RandomPoints(std::size_t n, double scale) {
  std::mt19937_64 random(n);
  std::normal_distribution<double> normal(0.0, scale);
  Points points{std::vector<double>(n), std::vector<double>(n)};
  for (std::size_t i = 0; i < n; ++i) {
    points.re[i] = normal(random);
    points.im[i] = normal(random);
  }
  return points;
}

Points SpeechPoints(std::size_t n) {
  const auto speech = testing::Speech();
  Points points{std::vector<double>(n), std::vector<double>(n)};
  for (std::size_t i = 0; i < n && i + 20000 < speech.size(); ++i) points.re[i] = speech[i + 20000];
  return points;
}

// Every kind of number, with gaps of zeros of both signs.
Points SpecialPoints(std::size_t n, double huge) {
  const double values[] = {0.0, -0.0, 5e-324, -2.5e-310, huge, -1.0, -huge, 1e-300};
  Points points{std::vector<double>(n), std::vector<double>(n)};
  for (std::size_t i = 0; i < n; ++i) {
    points.re[i] = values[(i * i + i / 3) % 8];
    points.im[i] = values[(i * 5 + i / 7) % 8];
  }
  return points;
}

// Index of the first entry with other bits, or -1. Not-a-number has many spellings, all equal here.
std::ptrdiff_t FirstDifference(const std::vector<double>& a, const std::vector<double>& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    const bool same = std::bit_cast<std::uint64_t>(a[i]) == std::bit_cast<std::uint64_t>(b[i]);
    if (!same && !(std::isnan(a[i]) && std::isnan(b[i]))) return static_cast<std::ptrdiff_t>(i);
  }
  return -1;
}

TEST(Fft, HasTheDigitsOfThePlainLoop) {
  for (int m = 0; m <= 13; ++m) {
    const std::size_t n = std::size_t{1} << m;
    const std::pair<std::string, Points> rows[] = {
        {"random", RandomPoints(n, 1000.0)},
        {"denormal", RandomPoints(n, 1e-310)},
        {"speech", SpeechPoints(n)},
        {"silence", {std::vector<double>(n), std::vector<double>(n, -0.0)}},
        {"special", SpecialPoints(n, 1e100)},
        {"overflowing", SpecialPoints(n, 1e308)},
    };
    for (const auto& [name, points] : rows) {
      Points expected = points;
      Points actual = points;
      testing::PlainFft(expected.re, expected.im, m);
      Fft(actual.re, actual.im, m);
      EXPECT_EQ(FirstDifference(expected.re, actual.re), -1) << name << ", m = " << m;
      EXPECT_EQ(FirstDifference(expected.im, actual.im), -1) << name << ", m = " << m;
    }
  }
}

TEST(Fft, FindsComplexTonesInTheirBin) {
  constexpr int kLog2 = 9;
  constexpr std::size_t kSize = 512;
  const FftPlan plan(kLog2);
  for (const std::size_t bin : {std::size_t{0}, std::size_t{1}, std::size_t{200}, kSize - 3}) {
    Points tone{std::vector<double>(kSize), std::vector<double>(kSize)};
    for (std::size_t i = 0; i < kSize; ++i) {
      const auto z = std::polar(1.0, 2.0 * M_PI * static_cast<double>(i * bin % kSize) / kSize);
      tone.re[i] = z.real();
      tone.im[i] = z.imag();
    }
    plan.Transform(tone.re, tone.im);
    for (std::size_t k = 0; k < kSize; ++k) {
      EXPECT_NEAR(tone.re[k], k == bin ? 512.0 : 0.0, 1e-9) << bin << " at " << k;
      EXPECT_NEAR(tone.im[k], 0.0, 1e-9) << bin << " at " << k;
    }
  }
}

TEST(Fft, RefusesArraysOfAnotherSize) {
  const FftPlan plan(4);
  std::vector<double> right(16);
  std::vector<double> wrong(15);
  EXPECT_THROW(plan.Transform(right, wrong), std::invalid_argument);
  EXPECT_THROW(plan.Transform(wrong, right), std::invalid_argument);
  EXPECT_THROW(FftPlan(-1), std::invalid_argument);
}

}  // namespace
}  // namespace cantorix
