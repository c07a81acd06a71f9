// polynomial_factors.h - all the real quadratic factors of a real polynomial.
// Relies on bairstow.h for the single factor. Knows nothing of speech: formants.h turns factors
// into frequencies and bandwidths.
//
//   a(z) = a[0] z^n + ... + a[n] = a[0] product of (z^2 - u[i] z - v[i]) product of (z - x[i])
//   a'[i] = a[i] + u a'[i-1] + v a'[i-2],  i = 0 ... n - 2     what a factor u, v leaves
//
// with a factor u[i], v[i] for each pair of roots, real roots x[i]. A factor found on a' takes its
// last steps on a itself, so that the rounding of a division does not reach the next factor.
// Source: [1] J. H. Wilkinson, "Rounding Errors in Algebraic Processes", 1963.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "analysis/bairstow.h"

namespace cantorix {

inline constexpr int kMaxPolynomialDegree = 400;

struct FactorList {
  int count = 0;       // complex pairs, or the one last quadratic whatever its roots
  int linear = 0;      // real roots that were dropped
  int degreeLeft = 0;  // of what could not be factored; 0 or 1 when all went well
  std::array<QuadraticFactor, kMaxPolynomialDegree / 2> factors;

  std::span<const QuadraticFactor> quadratics() const {
    return std::span(factors).first(static_cast<std::size_t>(count));
  }
};

// Factors a[0] z^n + a[1] z^(n-1) + ... + a[n], n = a.size() - 1 <= kMaxPolynomialDegree, all
// coefficients finite; leading zeros lower the degree. Real roots are linear factors and dropped:
// roots at zero first, then two at a time before any complex pair. So a real pair counts as a
// quadratic only when nothing but it is left, of degree 2 exactly, and an odd degree leaves one
// real root over.
//
// The steps of a factor end when they are below 1e-12 of its size, or where rounding lets them go
// no further; its roots then satisfy the polynomial to 1e-9 of the sum of |a[i]| |z|^(n-i). The
// same coefficients always give the same factors, whatever was factored before.
// Returns false, with the degree that withstood in degreeLeft, when no start leads on.
bool FactorPolynomial(std::span<const double> a, FactorList& list);

}  // namespace cantorix
