// spline.cpp - the recurrences in their usual order; a knot distance of 1 leaves out the factors
// that are exactly 1.
#include "analysis/spline.h"

#include <algorithm>
#include <stdexcept>

namespace cantorix {
namespace {

// What a search by halving finds among the knots 0 ... knots - 1: the last knot at or before u
// that has a successor. Not-a-number compares as beyond the end.
std::size_t IntervalOf(double u, std::size_t knots) {
  if (u < 1.0) return 0;
  if (!(u < static_cast<double>(knots - 1))) return knots - 2;
  return static_cast<std::size_t>(u);
}

}  // namespace

NaturalSpline::NaturalSpline(std::size_t maxKnots)
    : pivot_(maxKnots), inverse_(maxKnots), coupling_(maxKnots) {
  for (std::size_t i = 1; i + 1 < maxKnots; ++i) {
    pivot_[i] = 0.5 * coupling_[i - 1] + 2.0;
    inverse_[i] = 1.0 / pivot_[i];
    coupling_[i] = (0.5 - 1.0) / pivot_[i];
  }
}

void NaturalSpline::Fit(std::span<const double> y, std::span<double> second) const {
  const std::size_t n = y.size();
  if (second.size() != n || n > pivot_.size()) throw std::invalid_argument("NaturalSpline: size");
  std::fill(second.begin(), second.end(), 0.0);
  if (n < 3) return;

  for (std::size_t i = 1; i + 1 < n; ++i) {
    second[i] = 6.0 * ((y[i + 1] - y[i]) - (y[i] - y[i - 1])) / 2.0;
  }
  for (std::size_t i = 1; i + 1 < n; ++i) {
    second[i] = (second[i] - 0.5 * second[i - 1]) / pivot_[i];
  }
  second[n - 1] = 0.0 - 0.0 * second[n - 2];  // not 0 when the curve is not finite
  for (std::size_t i = n - 1; i-- > 0;) {
    second[i] = coupling_[i] * second[i + 1] + second[i];
  }
}

// With its row divided by the pivot, M[i] = s[i] + coupling[i] M[i + 1] after the elimination from
// the left, where s[i] = r[i] / pivot[i] + coupling[i] s[i - 1] for a right side of r[i]; the row
// as far from the right end mirrors that. Both chains run side by side.
void NaturalSpline::FitFast(std::span<const double> y, std::span<double> second) const {
  const std::size_t n = y.size();
  if (second.size() != n || n > pivot_.size()) throw std::invalid_argument("NaturalSpline: size");
  std::fill(second.begin(), second.end(), 0.0);
  if (n < 3) return;

  const std::size_t last = n - 1;
  const std::size_t left = last / 2;          // the last row that is eliminated from the left
  const std::size_t right = last - left - 1;  // as many rows are from the right
  for (std::size_t i = 1; i <= left; ++i) {
    second[i] = 3.0 * ((y[i + 1] - y[i]) - (y[i] - y[i - 1])) * inverse_[i];
  }
  for (std::size_t i = left + 1; i < last; ++i) {
    second[i] = 3.0 * ((y[i + 1] - y[i]) - (y[i] - y[i - 1])) * inverse_[last - i];
  }
  for (std::size_t i = 2; i <= right; ++i) {
    second[i] += coupling_[i] * second[i - 1];
    second[last - i] += coupling_[i] * second[last - i + 1];
  }
  if (left > right && left > 1) second[left] += coupling_[left] * second[left - 1];

  const double both = coupling_[left] * coupling_[right];
  second[left] = (second[left] + coupling_[left] * second[left + 1]) / (1.0 - both);
  second[left + 1] += coupling_[right] * second[left];
  for (std::size_t d = 1; d < left; ++d) {
    second[left - d] += coupling_[left - d] * second[left - d + 1];
    // Beyond the last row stands the end, whose coupling is 0.
    second[left + 1 + d] += coupling_[right - std::min(d, right)] * second[left + d];
  }
}

SplineGrid::SplineGrid(std::size_t knots, std::span<const double> positions) : knots_(knots) {
  places_.reserve(positions.size());
  for (const double u : positions) {
    const std::size_t knot = knots < 2 ? 0 : IntervalOf(u, knots);
    const double a = static_cast<double>(knot + 1) - u;
    const double b = u - static_cast<double>(knot);
    places_.push_back({knot, a, b, a * a * a - a, b * b * b - b});
  }
}

void SplineGrid::Evaluate(std::span<const double> y, std::span<const double> second,
                          std::span<double> out) const {
  if (y.size() != knots_ || second.size() != knots_ || out.size() != size()) {
    throw std::invalid_argument("SplineGrid: size");
  }
  if (knots_ < 2) {
    std::fill(out.begin(), out.end(), knots_ == 1 ? y[0] : 0.0);
    return;
  }
  for (std::size_t j = 0; j < places_.size(); ++j) {
    const Place& p = places_[j];
    const double curvature = p.lowSecond * second[p.knot] + p.highSecond * second[p.knot + 1];
    out[j] = p.lowY * y[p.knot] + p.highY * y[p.knot + 1] + curvature / 6.0;
  }
}

}  // namespace cantorix
