// synth_test.cpp - the parts of the synthesiser against slow or independent twins.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "synth/exact_math.h"
#include "synth/glottal_source.h"
#include "synth/vowel.h"

namespace cantorix::synth {
namespace {

TEST(ExactMath, AgreesWithTheLibraryOverItsWholeRange) {
  for (int i = -4000; i <= 4000; ++i) {
    const double turns = i * 0.0013;
    const SinCos s = OfTurns(turns);
    EXPECT_NEAR(s.sin, std::sin(2.0 * std::numbers::pi * turns), 1e-14) << turns;
    EXPECT_NEAR(s.cos, std::cos(2.0 * std::numbers::pi * turns), 1e-14) << turns;
    const double x = i / 4000.0;
    EXPECT_NEAR(SmallExp(x) / std::exp(x), 1.0, 5e-16) << x;
  }
}

TEST(GlottalSource, IsThePolynomialPulseLessItsMean) {
  constexpr double kOpening = 0.4;
  constexpr double kClosing = 0.16;
  // A rate that carries so many harmonics that only the sharp closing shows that some are missing.
  const GlottalSource glottis(kOpening, kClosing, 400000.0, 100.0);
  const double mean = kOpening / 2.0 + kClosing * 2.0 / 3.0;
  for (int i = 0; i < 100; ++i) {
    const double t = 0.005 + i * 0.01;
    double pulse = 0.0;
    if (t < kOpening) {
      const double x = t / kOpening;
      pulse = 3.0 * x * x - 2.0 * x * x * x;
    } else if (t < kOpening + kClosing) {
      const double x = (t - kOpening) / kClosing;
      pulse = 1.0 - x * x;
    }
    EXPECT_NEAR(glottis.Flow(t, 100.0), pulse - mean, 1e-3) << t;
  }
}

TEST(GlottalSource, HasEnergyAtItsHarmonicsOnly) {
  // 37 and 1000 have no common divisor: an alias of any harmonic would fall beside the grid.
  constexpr int kRate = 1000;
  constexpr int kF0 = 37;
  const GlottalSource glottis(0.4, 0.16, kRate, kF0);
  std::vector<double> flow(kRate);
  for (int n = 0; n < kRate; ++n) {
    flow[static_cast<std::size_t>(n)] = glottis.Flow(static_cast<double>(n) * kF0 / kRate, kF0);
  }
  for (int hz = 0; hz <= kRate / 2; ++hz) {
    std::complex<double> sum;
    for (int n = 0; n < kRate; ++n) {
      sum += flow[static_cast<std::size_t>(n)] *
             std::polar(1.0, -2.0 * std::numbers::pi * hz * n / kRate);
    }
    if (hz % kF0 != 0 || hz == 0) {
      EXPECT_LT(std::abs(sum), 1e-8) << hz;
    } else if (hz < 450) {
      EXPECT_GT(std::abs(sum), 0.01) << hz;
    }
  }
}

TEST(PitchContour, TurnsAreTheIntegralOfTheFrequency) {
  const PitchContour contour({{50, 100}, {300, 180}, {310, 90}, {600, 90}});
  double turns = 0.0;
  constexpr double kStepMs = 0.5;
  for (int i = 0; i < 1400; ++i) {
    const double ms = i * kStepMs;
    EXPECT_NEAR(contour.Turns(ms), turns, 1e-9) << ms;
    turns += contour.Hz(ms + 0.5 * kStepMs) * kStepMs / 1000.0;
  }
}

TEST(Speak, ReachesItsPeakStopsAtItsEndAndBeginsOnTheSampleGrid) {
  const Formants formants = {{{500, 60}, {1500, 90}, {2500, 120}, {3500, 150}, {4500, 200}}};
  const Vowel vowel{"ə", 300.0, PitchContour({{0, 110}}), formants, formants, 0.0, 0.0, 12000.0};
  constexpr double kRate = 11025.0;
  constexpr double kStartMs = 33.3;  // sample 367.1: the first one that belongs to it is 368
  const std::vector<double> sound = Speak(vowel, kStartMs, kStartMs + 400.0, kRate);
  ASSERT_EQ(sound.size(), 4778U - 368U);
  double peak = 0.0;
  for (const double x : sound) peak = std::max(peak, std::fabs(x));
  EXPECT_DOUBLE_EQ(peak, 12000.0);
  for (std::size_t n = sound.size() - 500; n < sound.size(); ++n)
    EXPECT_LT(std::fabs(sound[n]), 1.0);
}

}  // namespace
}  // namespace cantorix::synth
