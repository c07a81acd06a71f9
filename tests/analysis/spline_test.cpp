// spline_test.cpp - the precomputed spline against the text-book one, digit for digit.
#include "analysis/spline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "analysis/plain_spline.h"

namespace cantorix {
namespace {

std::vector<double> RandomValues(std::size_t n, double scale) {
  std::mt19937_64 random(n);
  std::normal_distribution<double> normal(0.0, scale);
  std::vector<double> values(n);
  for (double& x : values) x = normal(random);
  return values;
}

// The curve through `y` at the positions, by the classes under test.
std::vector<double> Curve(const std::vector<double>& y, const std::vector<double>& positions) {
  std::vector<double> second(y.size(), 77.0);
  NaturalSpline(4096).Fit(y, second);
  std::vector<double> out(positions.size(), 77.0);
  SplineGrid(y.size(), positions).Evaluate(y, second, out);
  return out;
}

TEST(Spline, HasTheDigitsOfTheSearchByHalving) {
  for (const std::size_t knots : {2u, 3u, 4u, 5u, 32u, 198u, 4096u}) {
    const auto y = RandomValues(knots, 50.0);
    std::vector<double> positions{-3.0, -0.1, -0.0, 0.0, 1e-300, std::nextafter(1.0, 0.0), 1.0};
    const auto last = static_cast<double>(knots - 1);
    for (const double u : {last - 1.0, std::nextafter(last, 0.0), last, last + 0.9, 2.0 * last}) {
      positions.push_back(u);
    }
    for (int k = 0; k < 10 * static_cast<int>(knots); ++k) positions.push_back(k * 0.1);
    for (int j = 0; j < 700; ++j) positions.push_back(j * (last / 613.0));
    const auto curve = Curve(y, positions);
    const testing::PlainSpline plain(y);
    for (std::size_t i = 0; i < positions.size(); ++i) {
      ASSERT_EQ(curve[i], plain.At(positions[i])) << knots << " knots at " << positions[i];
    }
  }
}

TEST(Spline, IsStraightThroughTwoKnotsAndFlatThroughOne) {
  EXPECT_EQ(Curve({2.0, 4.0}, {-1.0, 0.5, 3.0}), (std::vector{0.0, 3.0, 8.0}));
  EXPECT_EQ(Curve({5.0}, {-1.0, 0.0, 9.0}), (std::vector{5.0, 5.0, 5.0}));
  EXPECT_EQ(Curve({}, {0.0, 1.0}), (std::vector{0.0, 0.0}));
}

TEST(Spline, SurvivesPositionsAndValuesThatAreNoNumbers) {
  const double nan = std::nan("");
  EXPECT_TRUE(std::isnan(Curve({1.0, 2.0, 3.0}, {nan})[0]));
  EXPECT_EQ(Curve({1.0, nan, 3.0, 4.0}, {0.5, 2.5}).size(), 2u);
  EXPECT_EQ(Curve({1.0, 2.0, 3.0}, {-1e300, 1e300}).size(), 2u);
}

}  // namespace
}  // namespace cantorix
