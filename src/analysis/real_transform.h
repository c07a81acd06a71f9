// real_transform.h - the transform of real values in half of the time of fft.h, with other digits:
//
//   X[k] = sum of x[n] e^(-2 pi j n k / N), n = 0 ... N - 1,   k = 0 ... N / 2
//
// The points z[n] = x[2n] + j x[2n + 1] are transformed together, h = N / 2 of them:
//
//   X[k] = E[k] + W^k O[k],  W = e^(-2 pi j / N),  Z[h] = Z[0],
//   E[k] = (Z[k] + conj Z[h - k]) / 2,  O[k] = (Z[k] - conj Z[h - k]) / 2j
//
// For what is decided with a margin. Whatever is shown to somebody comes from fft.h.
// Source: [1] J. W. Cooley, P. A. W. Lewis, P. D. Welch, "The fast Fourier transform algorithm:
// programming considerations in the calculation of sine, cosine and Laplace transforms", 1970.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "analysis/fft.h"

namespace cantorix {

// One per thread: the values are its scratch.
class RealTransform {
 public:
  // For N = 2^m values, 2 <= m <= 12.
  explicit RealTransform(int m);

  // x[0], x[2], ... and x[1], x[3], ...: to be written before each transform, which overwrites
  // them.
  std::span<double> even() { return std::span(re_).first(halfSize_.size()); }
  std::span<double> odd() { return std::span(im_).first(halfSize_.size()); }

  // Writes X[first], X[first + 1], ... to `re` and `im`, of the same size, at most up to X[N / 2].
  void Transform(std::size_t first, std::span<double> re, std::span<double> im);

  // How far a result may be from that of FftPlan for the same values, for each 1 of the sum of
  // their magnitudes; the same holds for values of which both differ by rounding alone.
  // With u = 2^-53 and factors within t of the roots of unity, a stage leaves an error of at most
  // 5.05 u + 1.01 t of that sum: m stages in FftPlan, m - 1 here, whose error counts twice when E
  // and O are formed from both of Z, and one more for the factors here.
  double error() const;

 private:
  int m_;
  FftPlan halfSize_;
  std::vector<double> re_, im_;          // and Z[h], which is Z[0]
  std::vector<double> rootRe_, rootIm_;  // W^k
};

}  // namespace cantorix
