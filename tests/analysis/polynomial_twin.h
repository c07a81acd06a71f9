// polynomial_twin.h - slow and plain arithmetic on polynomials, to judge the factor routine by:
// building from chosen roots, and how well a root satisfies its polynomial.
// Polynomials are a[0] z^n + ... + a[n].
#pragma once

#include <algorithm>
#include <cmath>
#include <complex>
#include <span>
#include <vector>

#include "analysis/bairstow.h"

namespace cantorix::testing {

using Complex = std::complex<long double>;

// The real parts of the product of (z - root); conjugates are up to the caller.
inline std::vector<double> FromRoots(const std::vector<Complex>& roots) {
  std::vector<Complex> product{1.0L};
  for (const Complex& root : roots) {
    product.push_back(0.0L);
    for (std::size_t i = product.size() - 1; i > 0; --i) product[i] -= root * product[i - 1];
  }
  std::vector<double> a(product.size());
  for (std::size_t i = 0; i < a.size(); ++i) a[i] = static_cast<double>(product[i].real());
  return a;
}

// Both members of a pair of the given radius and angle.
inline void AddPair(std::vector<Complex>& roots, double radius, double angle) {
  roots.push_back(std::polar<long double>(radius, angle));
  roots.push_back(std::conj(roots.back()));
}

inline std::vector<Complex> RootsOf(const QuadraticFactor& f) {
  const Complex root = std::sqrt(Complex(static_cast<long double>(f.u) * f.u / 4.0L + f.v, 0.0L));
  return {Complex(f.u / 2.0L) + root, Complex(f.u / 2.0L) - root};
}

// |a(z)| relative to the sum of |a[i]| |z|^(n-i).
inline double Residual(std::span<const double> a, const Complex& z) {
  Complex value = 0.0L;
  long double magnitudes = 0.0L;
  for (const double c : a) {
    value = value * z + Complex(c);
    magnitudes = magnitudes * std::abs(z) + std::fabs(c);
  }
  return static_cast<double>(std::abs(value) / magnitudes);
}

inline double WorstResidual(std::span<const double> a, std::span<const QuadraticFactor> factors) {
  double worst = 0.0;
  for (const QuadraticFactor& f : factors) {
    for (const Complex& z : RootsOf(f)) worst = std::max(worst, Residual(a, z));
  }
  return worst;
}

}  // namespace cantorix::testing
