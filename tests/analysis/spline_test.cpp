// spline_test.cpp - the precomputed spline against the text-book one, digit for digit.
#include "analysis/spline.h"

#include <gtest/gtest.h>

#include "analysis/plain_spline.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

using testing::kNan;

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
    const testing::Samples noise = testing::Noise(knots, 5000, static_cast<unsigned>(knots));
    std::vector<double> y(noise.begin(), noise.end());
    for (double& value : y) value /= 77.0;
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

TEST(Spline, HasCurvesThroughFewKnotsAndThroughNoNumbers) {
  EXPECT_EQ(Curve({2.0, 4.0}, {-1.0, 0.5, 3.0}), (std::vector{0.0, 3.0, 8.0}));
  EXPECT_EQ(Curve({5.0}, {-1.0, 0.0, 9.0}), (std::vector{5.0, 5.0, 5.0}));
  EXPECT_EQ(Curve({}, {0.0, 1.0}), (std::vector{0.0, 0.0}));
  EXPECT_TRUE(std::isnan(Curve({1.0, 2.0, 3.0}, {kNan})[0]));
  EXPECT_TRUE(std::isnan(Curve({1.0, kNan, 3.0, 4.0}, {0.5, 2.5})[0]));
  const auto far = Curve({1.0, 2.0, 4.0}, {-1e300, 1e300});
  EXPECT_FALSE(std::isfinite(far[0]) || std::isfinite(far[1]));
  std::vector<double> three(3), five(5);
  EXPECT_THROW(NaturalSpline(4).Fit(three, five), std::invalid_argument);
  EXPECT_THROW(NaturalSpline(4).Fit(five, five), std::invalid_argument);
  EXPECT_THROW(SplineGrid(3, three).Evaluate(three, three, five), std::invalid_argument);
  EXPECT_THROW(SplineGrid(3, three).Evaluate(three, five, three), std::invalid_argument);
  EXPECT_THROW(SplineGrid(5, three).Evaluate(three, five, three), std::invalid_argument);
}

}  // namespace
}  // namespace cantorix
