// fft_test.cpp - the fast transform against the plain loop, bit for bit.
#include "analysis/fft.h"

#include <gtest/gtest.h>

#include <bit>
#include <string>

#include "analysis/plain_fft.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

struct Points {
  explicit Points(std::size_t n) : re(n), im(n) {}
  std::vector<double> re, im;
};

Points SpeechAndNoise(std::size_t n, double scale) {
  Points points(n);
  const auto speech = testing::Speech();
  const auto noise = testing::Noise(n, 3000, static_cast<unsigned>(n));
  for (std::size_t i = 0; i < n; ++i) {
    points.re[i] = speech[i + 20000] * scale;
    points.im[i] = noise[i] / 7.0 * scale;
  }
  return points;
}

// Every kind of number, with gaps of zeros of both signs.
Points SpecialPoints(std::size_t n, double huge) {
  const double values[] = {0.0, -0.0, 5e-324, -2.5e-310, huge, -1.0, -huge, 1e-300};
  Points points(n);
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
        {"speech", SpeechAndNoise(n, 1.0)},
        {"denormal", SpeechAndNoise(n, 1e-312)},
        {"special", SpecialPoints(n, 1e100)},
        {"overflowing", SpecialPoints(n, 1e308)},
    };
    for (const auto& [name, points] : rows) {
      Points expected = points;
      Points actual = points;
      testing::PlainFft(expected.re, expected.im, m);
      FftPlan(m).Transform(actual.re, actual.im);
      EXPECT_EQ(FirstDifference(expected.re, actual.re), -1) << name << ", m = " << m;
      EXPECT_EQ(FirstDifference(expected.im, actual.im), -1) << name << ", m = " << m;
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
  EXPECT_THROW(FftPlan(25), std::invalid_argument);
}

}  // namespace
}  // namespace cantorix
