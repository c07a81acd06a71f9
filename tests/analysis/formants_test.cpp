// formants_test.cpp - factors to formants at their borders, and the order and the filter of
// candidates. Whole frames stand in spectrum_test.cpp and spectrogram_test.cpp.
#include "analysis/formants.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "analysis/fft.h"
#include "analysis/polynomial_twin.h"
#include "analysis/spectrogram_column.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

using testing::kInfinity;
using testing::kNan;

constexpr double kRate = 11025.0;
constexpr double kHzPerRadian = kRate / kTwoPi;

std::vector<double> PolynomialOf(const std::vector<Formant>& resonances) {
  std::vector<testing::Complex> roots;
  for (const Formant& resonance : resonances) {
    testing::AddPair(roots, std::exp(-resonance.bandwidthHz / kHzPerRadian / 2.0),
                     resonance.frequencyHz / kHzPerRadian);
  }
  return testing::FromRoots(roots);
}

std::optional<FormantList> Find(const std::vector<double>& a, double maxBandwidthHz = 600.0) {
  return FindFormants(static_cast<int>(a.size()) - 1, maxBandwidthHz, a, kRate, std::cerr);
}

TEST(QuadraticToFormant, CoversPairsAndRealRoots) {
  struct Row {
    std::string name;
    double b, c, hz, radiusTerm;
  };
  const Row rows[] = {
      {"pair at 60 degrees", -0.9, 0.81, kRate / 6.0, 0.81},
      {"pair at 120 degrees", 0.9, 0.81, kRate / 3.0, 0.81},
      {"pair at nearly 90 degrees", 1e-12, 0.81, kRate / 4.0, 0.81},
      {"outside the circle", -1.1, 1.21, kRate / 6.0, 1.21},
      {"positive reals", -1.4, 0.45, kRate * 0.5, 0.81},
      {"negative reals", 1.4, 0.45, 0.0, 0.81},
      {"opposite reals", 0.0, -0.25, 0.0, 0.25},
      {"double real", -1.0, 0.25, kRate * 0.5, 0.25},
  };
  for (const Row& row : rows) {
    const Formant formant = QuadraticToFormant(row.b, row.c, kRate);
    EXPECT_NEAR(formant.frequencyHz, row.hz, 1e-8) << row.name;
    EXPECT_NEAR(formant.bandwidthHz, -std::log(row.radiusTerm) * kHzPerRadian, 1e-8) << row.name;
  }
  EXPECT_EQ(QuadraticToFormant(0.0, 0.0, kRate).bandwidthHz, kInfinity);
}

TEST(QuadraticToFormant, APairOnTheImaginaryAxisReportsItsAngleIsKept) {
  EXPECT_EQ(QuadraticToFormant(0.0, 0.81, kRate).frequencyHz, 3.1415926535898 * 0.5);
  EXPECT_EQ(QuadraticToFormant(-0.0, 0.81, kRate).frequencyHz, 3.1415926535898 * 0.5);
}

TEST(FindFormants, KeepsABandwidthUpToTheLimit) {
  const double c = std::exp(-600.0 / kHzPerRadian);
  const double exact = QuadraticToFormant(-0.5, c, kRate).bandwidthHz;
  ASSERT_NEAR(exact, 600.0, 1e-9);
  const std::vector<double> a{1.0, -0.5, c};
  EXPECT_EQ(Find(a, exact)->candidates, 1);
  const auto tooWide = Find(a, std::nextafter(exact, 0.0));
  EXPECT_EQ(tooWide->candidates, 0);
  EXPECT_EQ(tooWide->count, 1);
}

TEST(FindFormants, SortsTheCandidatesAndTheirBandwidthsAndDropsRealPoles) {
  const std::vector<Formant> sorted{
      {500.0, 60.0}, {1500.0, 90.0}, {2500.0, 170.0}, {3500.0, 250.0}};
  auto resonances = sorted;
  std::swap(resonances[0], resonances[3]);
  resonances.insert(resonances.begin() + 2, {4600.0, 900.0});  // too wide
  for (const std::vector<testing::Complex>& reals :
       {std::vector<testing::Complex>{}, {0.97, -0.96, 0.5}, {0.97, -0.96, 0.5, -0.2}}) {
    std::vector<double> a = PolynomialOf(resonances);
    for (const testing::Complex& root : reals) {
      a.push_back(0.0);
      for (std::size_t i = a.size() - 1; i > 0; --i) {
        a[i] -= static_cast<double>(root.real()) * a[i - 1];
      }
    }
    const auto list = Find(a);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->count, 5);
    ASSERT_EQ(list->candidates, 4);
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_NEAR(list->frequencyHz[i], sorted[i].frequencyHz, 1e-6) << reals.size();
      EXPECT_NEAR(list->bandwidthHz[i], sorted[i].bandwidthHz, 1e-6) << reals.size();
    }
  }
  const auto last = Find({1.0, -0.1, -0.72});  // 0.9 and -0.8: a last quadratic goes on
  ASSERT_EQ(last->candidates, 1);
  EXPECT_EQ(last->frequencyHz[0], kRate * 0.5);
}

TEST(FindFormants, SaysWhenItIsConfusedAndNothingOfFramesWithoutAPolynomial) {
  std::ostringstream errors;
  const std::vector<double> a{1e-300, 1e10, 1e10, 1e10, 1e10};
  EXPECT_FALSE(FindFormants(4, 600.0, a, kRate, errors));
  EXPECT_EQ(errors.str(), "  factor() is confused, 4\n");
  errors.str("");
  EXPECT_EQ(FindFormants(4, 600.0, std::vector{1.0, kNan, 0.1, 0.1, 0.1}, kRate, errors)->count, 0);
  EXPECT_EQ(FindFormants(-1, 600.0, std::vector{1.0}, kRate, errors)->count, 0);
  EXPECT_EQ(FindFormants(9, 600.0, std::vector<double>{}, kRate, errors)->count, 0);
  LpcResult silent;
  LpcAnalyse(std::vector<double>(154, 0.0), 14, silent, errors);
  EXPECT_EQ(FindFormants(silent, kRate, errors)->count, 0);
  EXPECT_EQ(errors.str(), "");
}

TEST(FormantSelection, LooksAtFiveCandidatesAndDropsWideOnes) {
  constexpr std::uint16_t kNone = kNoFormantHz;
  const std::pair<std::vector<Formant>, FormantColumn> rows[] = {
      {{}, {kNone, kNone, kNone, kNone, kNone}},
      {{{500.0, 300.0}}, {kNone, kNone, kNone, kNone, kNone}},  // too wide
      {{{500.5, 250.0}}, {501, kNone, kNone, kNone, kNone}},    // just narrow enough
      // The sixth is never looked at.
      {{{99.0, 90.0}, {700.7, 50.0}, {800.0, 500.0}, {1500.0, 80.0}, {2500.0, 90.0}, {3500.0, 9.0}},
       {701, 1500, 2500, kNone, kNone}},
      // Up to the last of 16 bits, which stands for none.
      {{{900.0, 50.0}, {65534.5, 50.0}}, {900, kNone, kNone, kNone, kNone}},
      {{{65533.5, 50.0}}, {65534, kNone, kNone, kNone, kNone}},
  };
  for (const auto& [candidates, expected] : rows) {
    FormantList list;
    for (const Formant& formant : candidates) {
      const auto i = static_cast<std::size_t>(list.candidates++);
      list.frequencyHz[i] = formant.frequencyHz;
      list.bandwidthHz[i] = formant.bandwidthHz;
    }
    EXPECT_EQ(InWholeHz(SelectFormants(list)), expected) << expected[0];
  }
}

}  // namespace
}  // namespace cantorix
