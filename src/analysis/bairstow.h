// bairstow.h - one real quadratic factor of a real polynomial, by Newton's method on the two
// coefficients of the remainder. Which start to take, and what to do with a factor, is left to
// polynomial_factors.h. Polynomials are p(z) = p[0] z^n + p[1] z^(n-1) + ... + p[n].
//
//   p(z) = q(z) (z^2 - u z - v) + r1 (z - u) + r0             quotient q, remainder r1, r0
//   b[i] = p[i] + u b[i-1] + v b[i-2],  i = 0 ... n           r1 = b[n-1], r0 = b[n]
//   c[i] = b[i] + u c[i-1] + v c[i-2],  i = 0 ... n - 1       db[i]/du = c[i-1], db[i]/dv = c[i-2]
//   c[n-2] du + c[n-3] dv = -b[n-1]                           the step that leads towards
//   c[n-1] du + c[n-2] dv = -b[n]                             r1 = r0 = 0
//
// Source: [1] L. Bairstow, "Investigations relating to the stability of the aeroplane", 1914.
#pragma once

#include <optional>

namespace cantorix {

// z^2 - u z - v
struct QuadraticFactor {
  double u = 0.0;
  double v = 0.0;

  // A quarter of the discriminant: negative for a complex pair.
  double Discriminant() const { return u * 0.5 * (u * 0.5) + v; }
  // Two real roots, a double one included, rather than a complex pair.
  bool HasRealRoots() const { return Discriminant() >= 0.0; }
  // Modulus of the pair, or the larger one of two real roots.
  double Radius() const;
};

// What ends the steps of RefineFactor. All lengths are in units of the first factor's radius.
struct StepLimits {
  double tolerance;    // a step this short is the last one
  double longestStep;  // longer ones are cut to it: far from a root they lead astray
  int count;           // no more steps than this
};

// Below the first, a step that is not shorter than the second of the one before it is rounding.
inline constexpr double kShortStep = 1e-4;
inline constexpr double kShrinking = 0.9;

enum class Refinement {
  kLost,       // no end in sight, or a step that is not finite
  kConverged,  // the last step was within the tolerance
  kRounding,   // the steps became short, then stopped shrinking
};

// What a step of `length` means after one of `previous`, infinite before the first, with
// `stepsLeft` more to go; nothing when it is not the last one.
std::optional<Refinement> EndOfSteps(const StepLimits& limits, double length, double previous,
                                     int stepsLeft);

// Moves `f` to a factor of p, of degree n >= 3.
Refinement RefineFactor(const double* p, int n, const StepLimits& limits, QuadraticFactor& f);

// The larger |p(z)| over the two roots of `f`, relative to the sum of |p[i]| |z|^(n-i); n >= 3.
double RelativeResidual(const double* p, int n, QuadraticFactor f);

// The factor that a real root leaves of a cubic; every cubic has one.
QuadraticFactor FactorOfCubic(const double* p);

}  // namespace cantorix
