// spline.h - natural cubic spline through values at the knots 0, 1, 2, ...
// Both halves are made for many curves over the same knots: what depends on the knots and on the
// wanted positions alone is computed once.
//
//   M[j-1] + 4 M[j] + M[j+1] = 6 (y[j-1] - 2 y[j] + y[j+1]),  M[0] = M[n-1] = 0
//   S(j + b) = a y[j] + b y[j+1] + ((a^3 - a) M[j] + (b^3 - b) M[j+1]) / 6,  a = 1 - b
//
// with values y[j] and second derivatives M[j] at the knots j = 0 ... n - 1, 0 <= b <= 1 between
// two of them; outside, the curve of the first and of the last interval goes on.
// Source: [1] C. de Boor, "A practical guide to splines", 1978.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace cantorix {

// The elimination factors of the tridiagonal system. They do not depend on the number of knots.
class NaturalSpline {
 public:
  explicit NaturalSpline(std::size_t maxKnots);

  // Writes the second derivative at each knot to `second`, as long as `y` and at most maxKnots.
  void Fit(std::span<const double> y, std::span<double> second) const;

  // The same in a third of the time, with other digits: within 600 u of the greatest |y|, u =
  // 2^-53. Eliminates from both ends towards the middle.
  void FitFast(std::span<const double> y, std::span<double> second) const;

 private:
  std::vector<double> pivot_;     // what a row is divided by
  std::vector<double> inverse_;   // 1 / pivot
  std::vector<double> coupling_;  // the row's entry right of the diagonal after elimination
};

// Positions at which curves over `knots` knots are wanted, with the interval each one lies in:
// below the first knot the first interval goes on, beyond the last knot the last one.
class SplineGrid {
 public:
  SplineGrid(std::size_t knots, std::span<const double> positions);

  std::size_t size() const { return places_.size(); }
  // The curve with values `y` and second derivatives `second` (one each per knot) at every
  // position; `out` has size() entries. A curve of one knot is constant, one of none is 0.
  void Evaluate(std::span<const double> y, std::span<const double> second,
                std::span<double> out) const;

 private:
  // Weights of the values and of the second derivatives at the interval's two ends.
  struct Place {
    std::size_t knot;
    double lowY, highY, lowSecond, highSecond;
  };
  std::size_t knots_;
  std::vector<Place> places_;
};

}  // namespace cantorix
