// plain_factors.h - the search for the factors of a polynomial as one plain descent from attempts
// over factors and starts to steps, over whole arrays: the yardstick for the search that is stopped
// at every refinement and for the one that refines many factors side by side.
#pragma once

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "analysis/bairstow.h"
#include "analysis/fft.h"

namespace cantorix::testing {

struct PlainFactors {
  explicit PlainFactors(std::span<const double> coefficients) {
    Prepare({coefficients.begin(), coefficients.end()});
    for (attempt = 0; attempt < 4 && !factored; ++attempt) factored = ExtractAll();
    for (const QuadraticFactor& f : found) {
      const bool last = rest.size() <= 1 && &f == &found.back() && factors.empty();
      if (Quarter(f) >= 0.0 && !last) {
        linear += 2;
      } else {
        factors.push_back({std::ldexp(f.u, exponent), std::ldexp(f.v, 2 * exponent)});
      }
    }
    degreeLeft = rest.empty() ? 0 : static_cast<int>(rest.size()) - 1;
  }

  bool factored = false;
  int linear = 0, degreeLeft = 0;
  std::vector<QuadraticFactor> factors;

 private:
  using Polynomial = std::vector<double>;

  static double Quarter(QuadraticFactor f) { return f.u * 0.5 * (f.u * 0.5) + f.v; }
  static double Radius(QuadraticFactor f) {
    const double d = Quarter(f);
    return d < 0.0 ? std::sqrt(-f.v) : std::fabs(f.u * 0.5) + std::sqrt(d);
  }
  static double Apart(QuadraticFactor f, QuadraticFactor g) {
    return std::max(std::fabs(f.u - g.u), std::fabs(f.v - g.v));
  }
  static double Fraction(double x) { return x - std::floor(x); }
  static QuadraticFactor Pair(double radius, double halfTurns) {
    const double cosine = std::trunc(std::cos(kPi * halfTurns) * 1024.0) / 1024.0;
    return {2.0 * radius * cosine, -radius * radius};
  }
  static int MeanExponent(const Polynomial& p) {
    const double product = std::fabs(p.back() / p.front());
    const auto degree = static_cast<int>(p.size()) - 1;
    return std::isnormal(product) ? static_cast<int>(std::lround(std::log2(product) / degree)) : 0;
  }
  // x[i] = p[i] + u x[i - 1] + v x[i - 2]
  static Polynomial Divide(const Polynomial& p, QuadraticFactor f) {
    Polynomial x;
    for (std::size_t i = 0; i < p.size(); ++i) {
      const double one = i >= 1 ? x[i - 1] : 0.0;
      const double two = i >= 2 ? x[i - 2] : 0.0;
      x.push_back((p[i] + f.v * two) + f.u * one);
    }
    return x;
  }

  void Prepare(Polynomial a) {
    while (!a.empty() && a.front() == 0.0) a.erase(a.begin());
    for (; a.size() > 1 && a.size() != 3 && a.back() == 0.0; a.pop_back()) ++linear;
    full = a;
    if (a.empty()) return;
    for (double& c : full) c = c / a[0];
    exponent = a.size() > 3 ? MeanExponent(full) : 0;
    for (std::size_t i = 0; i < full.size(); ++i) {
      full[i] = std::ldexp(full[i], -static_cast<int>(i) * exponent);
    }
  }

  bool ExtractAll() {
    rest = full;
    found.clear();
    while (rest.size() > 2) {
      QuadraticFactor f;
      if (!Extract(f)) return false;
      Polynomial quotient = Divide(rest, f);
      quotient.resize(rest.size() - 2);
      rest = quotient;
      found.push_back(f);
    }
    return true;
  }

  bool Extract(QuadraticFactor& f) const {
    if (rest.size() == 3) {
      f = {-rest[1], -rest[2]};
      return full.size() == 3 || Finish(f) || Quarter(f) >= 0.0;
    }
    if (rest.size() == 4) {
      f = FactorOfCubic(rest.data());
      if (Finish(f)) return true;
    }
    for (int start = 0; start < 32; ++start) {
      const double longest[] = {1.0, 4.0, 1e9};
      f = Start(start);
      if (Refine(rest, 1e-6, longest[start % 3], 60, f) != Refinement::kLost && Finish(f)) {
        return true;
      }
    }
    return false;
  }

  QuadraticFactor Start(int start) const {
    const std::size_t n = rest.size() - 1;
    if (start == 0) {
      return Pair(
          1.0 - 0.7 / static_cast<double>(full.size() - 1),
          Fraction(0.5 + static_cast<double>(found.size()) * 0.6180339887 + attempt * 0.23));
    }
    if (start == 1 && rest[n - 2] != 0.0) {
      return {-rest[n - 1] / rest[n - 2], -rest[n] / rest[n - 2]};
    }
    return Pair(
        std::ldexp(1.0, MeanExponent(rest)) * (0.5 + 0.5625 * Fraction(start * 0.7548776662)),
        Fraction((start + 0.5 * attempt) * 0.6180339887));
  }

  static Refinement Refine(const Polynomial& p, double tolerance, double longest, int count,
                           QuadraticFactor& f) {
    const std::size_t n = p.size() - 1;
    const double unit = 1.0 / Radius(f);
    double previous = 0.0;
    for (int i = 0; i < count; ++i) {
      const Polynomial b = Divide(p, f);
      const Polynomial c = Divide(b, f);
      const double c3 = n < 3 ? 0.0 : c[n - 3];
      const double scale = 1.0 / (c[n - 2] * c[n - 2] - c[n - 1] * c3);
      const double du = (b[n] * c3 - b[n - 1] * c[n - 2]) * scale;
      const double dv = (b[n - 1] * c[n - 1] - b[n] * c[n - 2]) * scale;
      const double length = std::max(std::fabs(du) * unit, std::fabs(dv) * unit * unit);
      if (!std::isfinite(length)) return Refinement::kLost;
      const double cut = length > longest ? longest / length : 1.0;
      f = {f.u + du * cut, f.v + dv * cut};
      if (length <= tolerance) return Refinement::kConverged;
      if (i > 0 && length < 1e-4 && length >= 0.9 * previous) return Refinement::kRounding;
      previous = length;
    }
    return Refinement::kLost;
  }

  bool Finish(QuadraticFactor& f) const {
    QuadraticFactor finished = f;
    const Refinement outcome = Refine(full, 1e-12, 0.5, 12, finished);
    const bool another = !(Apart(f, finished) <= 1e-6 * Radius(finished)) &&
                         std::any_of(found.begin(), found.end(), [&](QuadraticFactor other) {
                           return Apart(finished, other) < 0.5 * Apart(f, other);
                         });
    if (outcome != Refinement::kLost && !another) {
      f = finished;
      if (outcome == Refinement::kConverged) return true;
    }
    const auto degree = static_cast<int>(full.size()) - 1;
    return RelativeResidual(full.data(), degree, f) <= (attempt == 0 ? 1e-14 * degree : 1e-9);
  }

  int attempt = 0, exponent = 0;
  Polynomial full, rest;
  std::vector<QuadraticFactor> found;
};

}  // namespace cantorix::testing
