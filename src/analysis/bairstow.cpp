// bairstow.cpp - the two divisions of a Newton step in one pass, and what is made of them.
#include "analysis/bairstow.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace cantorix {
namespace {

constexpr int kCubicSteps = 60;

// p divided by a factor leaves r1 (z - u) + r0; (du, dv) leads towards r1 = r0 = 0.
struct Step {
  double r1, r0;
  double du, dv;
};

// b is the quotient of p by the factor, c the quotient of b by the factor.
Step NewtonStep(const double* p, int n, QuadraticFactor f) {
  double b1 = p[0], b2 = 0.0;
  double c1 = p[0], c2 = 0.0, c3 = 0.0;
  for (int i = 1; i < n; ++i) {
    const double b = (p[i] + f.v * b2) + f.u * b1;
    const double c = (b + f.v * c2) + f.u * c1;
    b2 = b1;
    b1 = b;
    c3 = c2;
    c2 = c1;
    c1 = c;
  }
  const double r0 = (p[n] + f.v * b2) + f.u * b1;
  const double scale = 1.0 / (c2 * c2 - c1 * c3);
  return {b1, r0, (r0 * c3 - b1 * c2) * scale, (b1 * c1 - r0 * c2) * scale};
}

}  // namespace

double QuadraticFactor::Radius() const {
  const double d = Discriminant();
  return d < 0.0 ? std::sqrt(-v) : std::fabs(u * 0.5) + std::sqrt(d);
}

std::optional<Refinement> EndOfSteps(const StepLimits& limits, double length, double previous,
                                     int stepsLeft) {
  if (!std::isfinite(length)) return Refinement::kLost;
  if (length <= limits.tolerance) return Refinement::kConverged;
  if (length < kShortStep && length >= kShrinking * previous) return Refinement::kRounding;
  if (stepsLeft <= 0) return Refinement::kLost;
  return std::nullopt;
}

Refinement RefineFactor(const double* p, int n, const StepLimits& limits, QuadraticFactor& f) {
  const double unit = 1.0 / f.Radius();
  double previous = std::numeric_limits<double>::infinity();
  for (int left = limits.count - 1;; --left) {
    const Step step = NewtonStep(p, n, f);
    const double length = std::max(std::fabs(step.du) * unit, std::fabs(step.dv) * unit * unit);
    const double cut = length > limits.longestStep ? limits.longestStep / length : 1.0;
    f.u += step.du * cut;
    f.v += step.dv * cut;
    if (const auto end = EndOfSteps(limits, length, previous, left)) return *end;
    previous = length;
  }
}

double RelativeResidual(const double* p, int n, QuadraticFactor f) {
  const Step step = NewtonStep(p, n, f);
  const auto magnitudes = [&](double radius) {
    double sum = 0.0;
    for (int i = 0; i <= n; ++i) sum = sum * radius + std::fabs(p[i]);
    return sum;
  };
  // z - u is minus the other root.
  const double h = f.u * 0.5;
  const double d = f.Discriminant();
  if (d < 0.0) {
    const double real = step.r0 - step.r1 * h;
    return std::sqrt(real * real - step.r1 * step.r1 * d) / magnitudes(std::sqrt(-f.v));
  }
  const double root = std::sqrt(d);
  return std::max(std::fabs(step.r0 - step.r1 * (h - root)) / magnitudes(std::fabs(h + root)),
                  std::fabs(step.r0 - step.r1 * (h + root)) / magnitudes(std::fabs(h - root)));
}

// Starts beyond all roots on the side where the cubic leaves zero, from where Newton's method comes
// down to a real root without passing it.
QuadraticFactor FactorOfCubic(const double* p) {
  const double a = p[1] / p[0], b = p[2] / p[0], c = p[3] / p[0];
  const auto value = [&](double x) { return ((x + a) * x + b) * x + c; };
  const auto slope = [&](double x) { return (3.0 * x + 2.0 * a) * x + b; };
  const double centre = -a / 3.0;
  const double height = value(centre);
  // The plastic number bounds the roots of x^3 = x + 1, the worst case of the two terms.
  const double reach = 1.3247179572447 * std::max(std::cbrt(std::fabs(height)),
                                                  std::sqrt(std::max(0.0, -slope(centre))));
  double x = centre - std::copysign(reach, height);
  for (int i = 0; i < kCubicSteps; ++i) {
    const double next = x - value(x) / slope(x);
    if (!((next - x) * height > 0.0)) break;  // only rounding moves it back
    x = next;
  }
  return {-(a + x), -(b + (a + x) * x)};
}

}  // namespace cantorix
