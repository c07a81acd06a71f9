// fast_cepstrum.h - the power cepstrum of a frame as cepstral_pitch.h states it, but for an error
// that is known: what is decided with more than that as a margin needs no other.
//
// Both transforms are of real values (real_transform.h), and the levels are taken once, for X[k]
// and X[N - k]. Let e be the transform's error for a sum of 1 and a the least |X[k]| found. With S
// the sum of |w[i] x[i]|, |X[k]| is known to e S, so a level to
//   d = 20 / ln 10 * 1.01 e S / a + kFastLevelError    when e S < a / 200,
// roundings of the powers included, which are far below the slack in kFastLevelError. The second
// transform of N levels of at most L dB then gives results that differ by at most
//   E = N (1.01 d + e L),
// and their squared lengths, of which the greatest is Y, by at most 2 sqrt(Y) E + E^2 + 8 u Y.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "analysis/real_transform.h"

namespace cantorix {

// One per thread.
class FastCepstrum {
 public:
  // Transforms of 2^m points, 7 <= m <= 12, and up to as many samples in a frame.
  explicit FastCepstrum(int m);

  // Writes C[first], C[first + 1], ... of the frame w[i] x[i], as long as `window`, to `cepstrum`,
  // at most up to C[N / 2], and gives a bound of their errors. Nothing, with the cepstrum unusable,
  // when there is none.
  std::optional<double> Find(std::span<const double> window, std::span<const double> frame,
                             std::size_t first, std::span<double> cepstrum);

 private:
  double LoadFrame(std::span<const double> window, std::span<const double> frame);
  void LoadLevels();

  RealTransform transform_;
  std::size_t points_;
  std::vector<double> re_, im_, powers_, levels_;
};

}  // namespace cantorix
