// formants_test.cpp - factors to formants at their borders, the order and the filter of candidates,
// and whole frames: a sinusoid, synthetic vowels, silence.
#include "analysis/formants.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <string>

#include "analysis/fft.h"
#include "analysis/lpc_frame.h"
#include "analysis/polynomial_twin.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

constexpr double kRate = 11025.0;

struct Resonance {
  double hz, bandwidthHz;
};

std::vector<double> PolynomialOf(const std::vector<Resonance>& resonances) {
  std::vector<testing::Complex> roots;
  for (const Resonance& resonance : resonances) {
    testing::AddPair(roots, std::exp(-resonance.bandwidthHz * kTwoPi / (2.0 * kRate)),
                     resonance.hz * kTwoPi / kRate);
  }
  return testing::FromRoots(roots);
}

std::optional<FormantList> Find(const std::vector<double>& a, double maxBandwidthHz = 600.0) {
  return FindFormants(static_cast<int>(a.size()) - 1, maxBandwidthHz, a, kRate);
}

TEST(QuadraticToFormant, CoversPairsAndRealRoots) {
  const double s = kRate / kTwoPi;
  struct Row {
    std::string name;
    double b, c, hz, bandwidthHz;
  };
  const Row rows[] = {
      {"pair at 60 degrees", -0.9, 0.81, kRate / 6.0, -std::log(0.81) * s},
      {"pair at 120 degrees", 0.9, 0.81, kRate / 3.0, -std::log(0.81) * s},
      {"outside the circle", -1.1, 1.21, kRate / 6.0, -std::log(1.21) * s},
      {"positive reals", -1.4, 0.45, kRate * 0.5, -std::log(0.81) * s},
      {"negative reals", 1.4, 0.45, 0.0, -std::log(0.81) * s},
      {"opposite reals", 0.0, -0.25, 0.0, -std::log(0.25) * s},
      {"double real", -1.0, 0.25, kRate * 0.5, -std::log(0.25) * s},
  };
  for (const Row& row : rows) {
    const Formant formant = QuadraticToFormant(row.b, row.c, kRate);
    EXPECT_NEAR(formant.frequencyHz, row.hz, 1e-8) << row.name;
    EXPECT_NEAR(formant.bandwidthHz, row.bandwidthHz, 1e-8) << row.name;
  }
  EXPECT_EQ(QuadraticToFormant(0.0, 0.0, kRate).bandwidthHz,
            std::numeric_limits<double>::infinity());
}

TEST(QuadraticToFormant, APairOnTheImaginaryAxisReportsItsAngleIsKept) {
  EXPECT_EQ(QuadraticToFormant(0.0, 0.81, kRate).frequencyHz, 3.1415926535898 * 0.5);
  EXPECT_EQ(QuadraticToFormant(-0.0, 0.81, kRate).frequencyHz, 3.1415926535898 * 0.5);
  EXPECT_NEAR(QuadraticToFormant(1e-12, 0.81, kRate).frequencyHz, kRate / 4.0, 1e-6);
}

TEST(FindFormants, KeepsABandwidthUpToTheLimit) {
  const double s = kRate / kTwoPi;
  const double c = std::exp(-600.0 / s);
  const double exact = QuadraticToFormant(-0.5, c, kRate).bandwidthHz;
  ASSERT_NEAR(exact, 600.0, 1e-9);
  const std::vector<double> a{1.0, -0.5, c};
  const double below = std::nextafter(exact, 0.0);
  EXPECT_EQ(Find(a, exact)->candidates, 1);
  EXPECT_EQ(Find(a, below)->candidates, 0);
  EXPECT_EQ(Find(a, below)->count, 1);
  EXPECT_EQ(Find({1.0, -0.5, std::exp(-599.999 / s)})->candidates, 1);
  EXPECT_EQ(Find({1.0, -0.5, std::exp(-600.001 / s)})->candidates, 0);
}

TEST(FindFormants, SortsTheCandidatesAndTheirBandwidths) {
  const std::vector<Resonance> resonances{
      {3500.0, 250.0}, {500.0, 60.0}, {4600.0, 900.0}, {2500.0, 170.0}, {1500.0, 90.0}};
  const auto list = Find(PolynomialOf(resonances));
  ASSERT_TRUE(list);
  EXPECT_EQ(list->count, 5);
  ASSERT_EQ(list->candidates, 4);  // 900 Hz is too wide
  const Resonance expected[] = {{500.0, 60.0}, {1500.0, 90.0}, {2500.0, 170.0}, {3500.0, 250.0}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(list->frequencyHz[i], expected[i].hz, 1e-6);
    EXPECT_NEAR(list->bandwidthHz[i], expected[i].bandwidthHz, 1e-6);
  }
}

TEST(FindFormants, ShowsNothingAtZeroOrHalfTheRateForRealPoles) {
  std::vector<testing::Complex> roots{0.97, -0.96, 0.5};
  testing::AddPair(roots, 0.97, 0.5);
  testing::AddPair(roots, 0.96, 1.5);
  for (const bool odd : {true, false}) {
    if (!odd) roots.push_back(-0.2);
    const auto list = Find(testing::FromRoots(roots));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->count, 2);
    ASSERT_EQ(list->candidates, 2);
    EXPECT_NEAR(list->frequencyHz[0], 0.5 * kRate / kTwoPi, 1e-6);
    EXPECT_NEAR(list->frequencyHz[1], 1.5 * kRate / kTwoPi, 1e-6);
  }
}

TEST(FindFormants, LetsTheLastQuadraticGoOnWithRealRoots) {
  const auto list = Find({1.0, -0.1, -0.72});  // 0.9 and -0.8
  ASSERT_EQ(list->candidates, 1);
  EXPECT_EQ(list->frequencyHz[0], kRate * 0.5);
  EXPECT_NEAR(list->bandwidthHz[0], -std::log(0.81) * kRate / kTwoPi, 1e-8);
}

TEST(FindFormants, SaysWhenItIsConfused) {
  std::ostringstream errors;
  const std::vector<double> a{1e-300, 1e10, 1e10, 1e10, 1e10};
  EXPECT_FALSE(FindFormants(4, 600.0, a, kRate, errors));
  EXPECT_EQ(errors.str(), "  factor() is confused, 4\n");
}

TEST(FindFormants, HasNothingToSayAboutFramesWithoutAPolynomial) {
  std::ostringstream errors;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(FindFormants(4, 600.0, std::vector{1.0, nan, 0.1, 0.1, 0.1}, kRate, errors)->count, 0);
  EXPECT_EQ(FindFormants(-1, 600.0, std::vector{1.0}, kRate, errors)->count, 0);
  EXPECT_EQ(FindFormants(9, 600.0, std::vector<double>{}, kRate, errors)->count, 0);
  const LpcResult silent = LpcAnalyse(std::vector<double>(154, 0.0), 14);
  const auto list = FindFormants(silent, kRate, errors);
  ASSERT_TRUE(list);
  EXPECT_EQ(list->count + list->candidates, 0);
  EXPECT_EQ(errors.str(), "");
}

TEST(Formants, OfASinusoidAreTheSinusoid) {
  for (const double hz : {300.0, 1000.0, 2500.0, 4800.0}) {
    std::vector<double> x(2000);
    for (std::size_t i = 0; i < x.size(); ++i) {
      x[i] = 8000.0 * std::sin(kTwoPi * hz * static_cast<double>(i) / kRate);
    }
    LpcFramer framer(x.size(), true, 0.0);
    const auto list = FindFormants(LpcAnalyse(framer.Frame(x), 2), kRate, std::cerr);
    ASSERT_EQ(list->candidates, 1) << hz;
    EXPECT_NEAR(list->frequencyHz[0], hz, 0.5) << hz;
    EXPECT_GT(list->bandwidthHz[0], 0.0) << hz;
    EXPECT_LT(list->bandwidthHz[0], 10.0) << hz;
  }
}

// Resonators of second order one after the other, driven by a pulse every `period` samples.
std::vector<double> Vowel(const std::vector<Resonance>& resonances, int period, int count) {
  std::vector<double> x(static_cast<std::size_t>(count), 0.0);
  for (std::size_t i = 0; i < x.size(); i += static_cast<std::size_t>(period)) x[i] = 1000.0;
  for (const Resonance& resonance : resonances) {
    const double radius = std::exp(-kTwoPi * 0.5 * resonance.bandwidthHz / kRate);
    const double u = 2.0 * radius * std::cos(kTwoPi * resonance.hz / kRate);
    double last = 0.0, before = 0.0;
    for (double& sample : x) {
      sample += u * last - radius * radius * before;
      before = last;
      last = sample;
    }
  }
  return x;
}

TEST(Formants, OfSyntheticVowelsAreTheResonances) {
  const std::vector<Resonance> vowels[] = {
      {{730, 80}, {1090, 90}, {2440, 120}, {3400, 200}, {4400, 250}},
      {{270, 60}, {2290, 100}, {3010, 140}, {3700, 200}, {4600, 250}},
      {{300, 60}, {870, 80}, {2240, 120}, {3300, 200}, {4300, 250}},
  };
  for (const auto& vowel : vowels) {
    const std::vector<double> x = Vowel(vowel, 250, 6000);
    LpcFramer framer(512, true, 0.0);
    const LpcResult lpc = LpcAnalyse(framer.Frame(std::span(x).subspan(3000)), 10);
    const auto list = FindFormants(lpc, kRate, std::cerr);
    ASSERT_EQ(list->candidates, 5) << vowel[0].hz;
    for (std::size_t i = 0; i < 5; ++i) {
      EXPECT_NEAR(list->frequencyHz[i], vowel[i].hz, 0.03 * vowel[i].hz) << vowel[0].hz;
    }
  }
}

}  // namespace
}  // namespace cantorix
