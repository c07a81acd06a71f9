// exact_math.cpp - Taylor series on reduced arguments.
#include "synth/exact_math.h"

#include <cmath>

namespace cantorix::synth {
namespace {

constexpr double kTwoPi = 6.283185307179586476925;

// Both series for |x| <= pi / 4; the first term left out is below 2e-17.
SinCos Series(double x) {
  const double x2 = x * x;
  double sine = 1.0;
  double cosine = 1.0;
  for (int n = 16; n >= 2; n -= 2) {
    sine = 1.0 - sine * x2 / (n * (n + 1));
    cosine = 1.0 - cosine * x2 / (n * (n - 1));
  }
  return {sine * x, cosine};
}

}  // namespace

SinCos OfTurns(double turns) {
  const double quarters = 4.0 * (turns - std::floor(turns));
  const double nearest = std::floor(quarters + 0.5);
  const SinCos s = Series((quarters - nearest) * 0.25 * kTwoPi);
  switch (static_cast<int>(nearest)) {
    case 1:
      return {s.cos, -s.sin};
    case 2:
      return {-s.sin, -s.cos};
    case 3:
      return {-s.cos, s.sin};
    default:
      return s;
  }
}

double SmallExp(double x) {
  double sum = 1.0;
  for (int n = 19; n >= 1; --n) sum = 1.0 + sum * x / n;
  return sum;
}

}  // namespace cantorix::synth
