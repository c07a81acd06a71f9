// transforms_test.cpp - the fast transform and the precomputed spline against those of the text
// books, bit for bit, and the levels that they make together.
#include <gtest/gtest.h>

#include <bit>
#include <complex>
#include <functional>
#include <numbers>
#include <string>

#include "analysis/extremes.h"
#include "analysis/fft.h"
#include "analysis/plain_frames.h"
#include "analysis/power_spectrum.h"
#include "analysis/real_transform.h"
#include "analysis/spline.h"

namespace cantorix {
namespace {

using testing::kNan;
using Values = std::vector<double>;

Values NoiseOf(std::size_t count, double scale, unsigned seed) {
  const testing::Samples noise = testing::Noise(count, 3000, seed);
  Values values(noise.begin(), noise.end());
  for (double& value : values) value *= scale;
  return values;
}

// Every kind of number, with gaps of zeros of both signs.
Values SpecialOf(std::size_t count, std::size_t turn) {
  const double kinds[] = {0.0, -0.0, 5e-324, -2.5e-310, 1e308, -1.0, -1e308, 1e-300};
  Values values(count);
  for (std::size_t i = 0; i < count; ++i) values[i] = kinds[(i * i * turn + i / 3) % 8];
  return values;
}

// Not-a-number has many spellings, all equal here.
std::vector<std::uint64_t> BitsOf(const Values& values) {
  std::vector<std::uint64_t> bits;
  for (const double v : values) bits.push_back(std::bit_cast<std::uint64_t>(v == v ? v : kNan));
  return bits;
}

TEST(Fft, HasTheDigitsOfThePlainLoop) {
  for (int m = 0; m <= 13; ++m) {
    const std::size_t n = std::size_t{1} << m;
    const std::pair<Values, Values> rows[] = {{NoiseOf(n, 1.0 / 7.0, 1), NoiseOf(n, 1.0, 2)},
                                              {NoiseOf(n, 1e-312, 3), NoiseOf(n, 1e-312, 4)},
                                              {SpecialOf(n, 1), SpecialOf(n, 5)}};
    for (const auto& [re, im] : rows) {
      auto [expectedRe, expectedIm] = std::pair(re, im);
      auto [actualRe, actualIm] = std::pair(re, im);
      testing::PlainFft(expectedRe, expectedIm, m);
      FftPlan(m).Transform(actualRe, actualIm);
      EXPECT_EQ(BitsOf(actualRe), BitsOf(expectedRe)) << m;
      EXPECT_EQ(BitsOf(actualIm), BitsOf(expectedIm)) << m;
    }
  }
}

// X[k] of real values, with the C library's angles and twice the digits.
std::complex<long double> PlainBin(const Values& x, std::size_t k) {
  std::complex<long double> sum = 0.0L;
  for (std::size_t n = 0; n < x.size(); ++n) {
    const auto turn = static_cast<long double>(n * k % x.size());
    const long double angle = -2.0L * std::numbers::pi_v<long double> * turn;
    sum += static_cast<long double>(x[n]) *
           std::polar(1.0L, angle / static_cast<long double>(x.size()));
  }
  return sum;
}

TEST(RealTransform, StaysWithinItsErrorOfTheOther) {
  for (const int m : {2, 3, 7, 10, 11, 12}) {
    const std::size_t n = std::size_t{1} << m;
    Values re = NoiseOf(n, 1.0 / 7.0, static_cast<unsigned>(m));
    Values im(n);
    RealTransform transform(m);
    double sum = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
      (i % 2 == 0 ? transform.even() : transform.odd())[i / 2] = re[i];
      sum += std::abs(re[i]);
    }
    const Values input = re;
    const std::size_t first = n == 4 ? 0 : 1;
    Values realRe(n / 2 + 1 - first), realIm(realRe.size());
    transform.Transform(first, realRe, realIm);
    FftPlan(m).Transform(re, im);
    for (std::size_t k = first; k <= n / 2; ++k) {
      const std::complex<double> real(realRe[k - first], realIm[k - first]);
      EXPECT_LE(std::abs(real - std::complex(re[k], im[k])), transform.error() * sum) << m;
      if (k > 40) continue;
      const std::complex<double> plain(PlainBin(input, k));
      EXPECT_LE(std::abs(real - plain), 0.5 * transform.error() * sum) << m << ' ' << k;
    }
  }
}

// What the error of the real transform rests on.
TEST(RealTransform, KnowsHowFarTheFactorsAreFromTheRootsOfUnity) {
  for (const int m : {2, 11, 12}) {
    // The transform of an impulse at 1 is the factors of the last stage.
    Values re(std::size_t{1} << m), im(re.size());
    re[1] = 1.0;
    FftPlan(m).Transform(re, im);
    double worst = 0.0;
    for (std::size_t k = 0; k < re.size() / 2; ++k) {
      const long double angle = -2.0L * std::numbers::pi_v<long double> *
                                static_cast<long double>(k) / static_cast<long double>(re.size());
      const std::complex<double> root(std::polar(1.0L, angle));
      worst = std::max(worst, std::abs(std::complex(re[k], im[k]) - root));
    }
    const double known = m == 12 ? 0x1p-43 : 0x1p-45;
    EXPECT_LT(worst, known - 0x1p-51) << m;
    // m stages there; m - 1 here, which count twice, and one more.
    const double stage = 5.05 * 0x1p-53 + 1.01 * known;
    EXPECT_GT(RealTransform(m).error(), (m + 2 * (m - 1) + 1 - 1e-9) * stage) << m;
    EXPECT_LT(RealTransform(m).error(), (3.0 * m + 1e-9) * stage) << m;
  }
}

TEST(Extremes, AreFoundWhereverTheyStand) {
  for (const std::size_t count : {1u, 2u, 7u, 8u, 9u, 16u, 33u}) {
    for (std::size_t place = 0; place < count; ++place) {
      Values values(count, 5.0);
      values[place] = 4.0;
      EXPECT_EQ(Least(values), 4.0) << count << ' ' << place;
      EXPECT_EQ(Greatest(values), count == 1 ? 4.0 : 5.0) << count << ' ' << place;
      values[place] = 6.0;
      EXPECT_EQ(Greatest(values), 6.0) << count << ' ' << place;
    }
  }
}

// The curve through `y` at the positions, by the classes under test.
Values Curve(const Values& y, const Values& positions) {
  Values second(y.size(), 77.0);
  NaturalSpline(4096).Fit(y, second);
  Values out(positions.size(), 77.0);
  SplineGrid(y.size(), positions).Evaluate(y, second, out);
  return out;
}

TEST(Spline, HasTheDigitsOfTheSearchByHalving) {
  for (const std::size_t knots : {2u, 3u, 4u, 5u, 32u, 198u, 4096u}) {
    const Values y = NoiseOf(knots, 1.0 / 77.0, static_cast<unsigned>(knots));
    const auto last = static_cast<double>(knots - 1);
    Values positions{-3.0,       -0.1,    -0.0,
                     1e-300,     1.0,     std::nextafter(1.0, 0.0),
                     last - 1.0, last,    std::nextafter(last, 0.0),
                     last + 0.9, 2 * last};
    for (int j = 0; j < 700; ++j) positions.push_back(j * (last / 613.0));
    const testing::PlainSpline plain(y);
    Values expected;
    for (const double u : positions) expected.push_back(plain.At(u));
    EXPECT_EQ(Curve(y, positions), expected) << knots;
  }
  EXPECT_EQ(Curve({5.0}, {-1.0, 0.0, 9.0}), (Values{5.0, 5.0, 5.0}));
  EXPECT_EQ(Curve({}, {0.0, 1.0}), (Values{0.0, 0.0}));
  EXPECT_TRUE(std::isnan(Curve({1.0, 2.0, 3.0}, {kNan})[0]));
  EXPECT_FALSE(std::isfinite(Curve({1.0, 2.0, 4.0}, {1e300})[0]));
}

Values Levels(const Values& x, const PowerSpectrumOptions& options) {
  PowerSpectrumPlan plan(options);
  Values out(plan.outputSize());
  PowerSpectrumDb(x, plan, out);
  return out;
}

TEST(Spline, FromBothEndsStaysWithinItsError) {
  for (const std::size_t knots : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 31u, 32u, 198u, 4096u}) {
    for (const std::size_t most : {knots, knots + 3}) {
      const Values y = NoiseOf(knots, 1.0 / 77.0, static_cast<unsigned>(knots) + 1);
      Values exact(knots), fast(knots, 77.0);
      NaturalSpline(most).Fit(y, exact);
      NaturalSpline(most).FitFast(y, fast);
      double greatest = 0.0;
      for (const double value : y) greatest = std::max(greatest, std::abs(value));
      for (std::size_t j = 0; j < knots; ++j) {
        EXPECT_NEAR(fast[j], exact[j], 100.0 * 0x1p-53 * greatest) << knots << ' ' << j;
      }
    }
  }
}

TEST(PowerSpectrum, HasTheDigitsOfThePlainSteps) {
  const Values x = NoiseOf(8193, 1.0, 5);
  for (const PowerSpectrumOptions& options : {
           PowerSpectrumOptions{2, 0.0, true, false, 0, 5000.0, 11025.0},
           {64, -0.5, false, false, 0, 5000.0, 11025.0},
           {1024, 0.98, true, false, 0, 5000.0, 11025.0},
           {4, 0.0, false, true, 9, 5000.0, 11025.0},
           {32, 0.0, false, true, 200, 5000.0, 8000.0},   // beyond half the rate
           {300, 0.5, true, true, 100, 4000.0, 11025.0},  // no power of two
           {8192, 0.0, true, true, 3, 5000.0, 44100.0},   // hardly a point
       }) {
    EXPECT_EQ(Levels(x, options), testing::PlainLevels(x, options)) << options.points;
  }
}

TEST(PowerSpectrum, OfKnownFramesIsKnown) {
  PowerSpectrumOptions bins{512, 0.0, false, false, 0, 5000.0, 11025.0};
  Values cosine(512);
  for (std::size_t i = 0; i < cosine.size(); ++i) {
    cosine[i] = 1000.0 * std::cos(2.0 * M_PI * static_cast<double>(i) * 100.0 / 512.0);
  }
  EXPECT_NEAR(Levels(cosine, bins)[100], 20.0 * std::log10(1000.0 * 256.0), 1e-9);
  bins.hamming = true;  // takes 0.54 of the amplitude
  EXPECT_NEAR(Levels(cosine, bins)[100], 20.0 * std::log10(540.0 * 256.0), 1e-9);
  EXPECT_EQ(Levels(Values(512), bins), Values(256, 0.0));
}

TEST(Transforms, RefuseArraysOfAnotherSize) {
  Values three(3), five(5), many(16);
  const PowerSpectrumOptions options{4, 0.9, true, false, 0, 5000.0, 11025.0};
  PowerSpectrumPlan plan(options);  // takes 5 samples and gives 2 levels
  const std::function<void()> rows[] = {
      [&] { FftPlan(4).Transform(many, five); },
      [&] { FftPlan(4).Transform(five, many); },
      [] { const FftPlan none(-1); },
      [] { const FftPlan huge(25); },
      [&] { NaturalSpline(4).Fit(three, five); },
      [&] { NaturalSpline(4).Fit(five, five); },
      [&] { SplineGrid(3, three).Evaluate(three, three, five); },
      [&] { SplineGrid(3, three).Evaluate(three, five, three); },
      [&] { SplineGrid(5, three).Evaluate(three, five, three); },
      [&] { PowerSpectrumDb(std::span(five).first(4), plan, three); },
      [&] { PowerSpectrumDb(five, plan, std::span(three).first(1)); },
  };
  for (const auto& row : rows) EXPECT_THROW(row(), std::invalid_argument) << &row - rows;
  for (const int points : {1, -8, (1 << 24) + 1}) {
    PowerSpectrumOptions wrong = options;
    wrong.points = points;
    EXPECT_THROW(PowerSpectrumPlan{wrong}, std::invalid_argument) << points;
  }
}

}  // namespace
}  // namespace cantorix
