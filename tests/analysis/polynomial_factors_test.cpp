// polynomial_factors_test.cpp - the factor routine against polynomials with chosen roots and on the
// prediction polynomials of real speech.
#include "analysis/polynomial_factors.h"

#include <gtest/gtest.h>

#include <string>

#include "analysis/framer.h"
#include "analysis/lpc.h"
#include "analysis/polynomial_twin.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

using testing::Complex;

// The largest distance from an expected root to its partner; each reported root serves once.
double WorstDistance(const std::vector<Complex>& expected,
                     std::span<const QuadraticFactor> factors) {
  std::vector<Complex> reported;
  for (const QuadraticFactor& f : factors) {
    for (const Complex& z : testing::RootsOf(f)) reported.push_back(z);
  }
  if (reported.size() != expected.size()) return testing::kInfinity;
  double worst = 0.0;
  for (const Complex& z : expected) {
    const auto nearest = std::min_element(
        reported.begin(), reported.end(),
        [&](const Complex& x, const Complex& y) { return std::abs(x - z) < std::abs(y - z); });
    worst = std::max(worst, static_cast<double>(std::abs(*nearest - z)));
    reported.erase(nearest);
  }
  return worst;
}

struct Pole {
  double radius, angle;
};

TEST(FactorPolynomial, FindsChosenRoots) {
  struct Row {
    std::string name;
    std::vector<Pole> pairs;
    std::vector<double> reals;
    double tolerance;
  };
  const Row rows[] = {
      {"pair and real", {{0.9, 1.0}}, {0.7}, 1e-14},
      {"formants and reals", {{0.98, 0.3}, {0.96, 0.8}, {0.9, 2.1}}, {0.95, -0.8, 0.02}, 1e-12},
      {"triple pair", {{0.95, 0.7}, {0.95, 0.7}, {0.95, 0.7}, {0.9, 2.0}}, {}, 1e-3},
      {"cluster", {{0.95, 0.70}, {0.94, 0.71}, {0.96, 0.72}, {0.93, 0.73}}, {}, 1e-4},
      {"nearly on the circle", {{1.0 - 1e-9, 0.5}, {1.0 - 1e-7, 1.5}, {1.0, 2.5}}, {}, 1e-13},
      {"outside the circle", {{1.5, 0.5}, {1.01, 1.5}, {3.0, 2.5}}, {}, 1e-12},
      {"imaginary axis", {{0.9, 1.5707963267948966}, {0.5, 1.5707963267948966}}, {}, 1e-14},
      {"nearly real", {{0.9, 1e-5}, {0.8, 3.14159}, {0.7, 1.0}}, {}, 1e-9},
      {"far inside", {{0.9, 1.0}, {1e-3, 2.0}, {1e-6, 0.5}}, {}, 1e-12},
      {"huge", {{9e40, 1.0}, {8e40, 2.0}, {7e40, 0.5}}, {}, 1e28},
      {"tiny", {{9e-40, 1.0}, {8e-40, 2.0}, {7e-40, 0.5}}, {}, 1e-52},
  };
  for (const Row& row : rows) {
    std::vector<Complex> pairs;
    for (const Pole& pole : row.pairs) testing::AddPair(pairs, pole.radius, pole.angle);
    std::vector<Complex> roots = pairs;
    roots.insert(roots.end(), row.reals.begin(), row.reals.end());
    FactorList list;
    ASSERT_TRUE(FactorPolynomial(testing::FromRoots(roots), list)) << row.name;
    EXPECT_LE(WorstDistance(pairs, list.quadratics()), row.tolerance) << row.name;
    // An odd degree leaves one real root over.
    EXPECT_EQ(static_cast<std::size_t>(list.linear + list.degreeLeft), row.reals.size())
        << row.name;
  }
}

TEST(FactorPolynomial, DropsRealRootsBeforeAnyPair) {
  struct Row {
    std::string name;
    std::vector<double> a;
    int quadratics, linear, degreeLeft;
  };
  const Row rows[] = {
      {"nothing", {}, 0, 0, 0},
      {"constant", {1.0}, 0, 0, 0},
      {"one real", {1.0, -0.5}, 0, 0, 1},
      {"quadratic goes on", {1.0, -1.5, 0.5}, 1, 0, 0},
      {"quadratic with a root at zero goes on", {1.0, -1.5, 0.0}, 1, 0, 0},
      {"cubic of reals", testing::FromRoots({0.9, 0.5, -0.3}), 0, 2, 1},
      {"last two of four reals go on", testing::FromRoots({0.9, 0.5, -0.3, -0.7}), 1, 2, 0},
      {"reals and a pair", testing::FromRoots({0.9, -0.8, {0.5, 0.5}, {0.5, -0.5}}), 1, 2, 0},
      {"zeros and a pair", {1.0, -1.0, 0.5, 0.0, 0.0, 0.0}, 1, 3, 0},
      {"only zeros", {1.0, 0.0, 0.0, 0.0, 0.0, 0.0}, 1, 3, 0},
      {"leading zeros", {0.0, 0.0, 2.0, -2.0, 1.0}, 1, 0, 0},
      {"all zero", {0.0, 0.0, 0.0}, 0, 0, 0},
  };
  FactorList list;
  for (const Row& row : rows) {
    EXPECT_TRUE(FactorPolynomial(row.a, list)) << row.name;
    EXPECT_EQ(list.count, row.quadratics) << row.name;
    EXPECT_EQ(list.linear, row.linear) << row.name;
    EXPECT_EQ(list.degreeLeft, row.degreeLeft) << row.name;
  }
  EXPECT_FALSE(FactorPolynomial(std::vector{1e-300, 1e10, 1e10, 1e10, 1e10}, list)) << "overflows";
  EXPECT_EQ(list.degreeLeft, 4);
  EXPECT_EQ(list.count, 0);
}

// Frames of `order` milliseconds.
TEST(FactorPolynomial, FindsThePairsOfSpeechAndNeverFails) {
  struct Row {
    int decimation, order;
    std::size_t hop;
  };
  FactorList list;
  LpcResult lpc;
  for (const Row& row :
       {Row{3, 8, 61}, Row{4, 9, 61}, Row{4, 13, 901}, Row{3, 14, 61}, Row{4, 17, 61},
        Row{4, 24, 97}, Row{4, 50, 997}, Row{4, 101, 1999}, Row{4, 400, 7999}}) {
    const testing::Samples speech = testing::Speech(row.decimation);
    const std::vector<double> x(speech.begin(), speech.end());
    Framer framer(static_cast<std::size_t>(48 / row.decimation * row.order), true, 0.98);
    for (std::size_t t = 0; t + framer.inputSize() <= x.size(); t += row.hop) {
      LpcAnalyse(framer.Frame(std::span(x).subspan(t)), row.order, lpc, std::cerr);
      if (!lpc.valid) continue;
      ASSERT_TRUE(FactorPolynomial(lpc.polynomial(), list)) << row.order;
      ASSERT_EQ(2 * list.count + list.linear + list.degreeLeft, row.order);
      ASSERT_LE(testing::WorstResidual(lpc.polynomial(), list.quadratics()), 1e-9) << row.order;
      // No pair stands for another one that was missed.
      auto pairs = list.quadratics();
      std::vector<std::pair<double, double>> sorted;
      for (const QuadraticFactor& f : pairs) sorted.emplace_back(f.u, f.v);
      std::sort(sorted.begin(), sorted.end());
      ASSERT_EQ(std::adjacent_find(sorted.begin(), sorted.end()), sorted.end()) << row.order;
    }
  }
}

}  // namespace
}  // namespace cantorix
