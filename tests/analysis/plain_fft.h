// plain_fft.h - the transform as the text books print it: permutation, then stage by stage with
// the factor recurrence inside the loops. The yardstick of the fast one, digit for digit.
#pragma once

#include <cmath>
#include <utility>
#include <vector>

#include "analysis/fft.h"

namespace cantorix::testing {

inline void PlainFft(std::vector<double>& re, std::vector<double>& im, int m) {
  const std::size_t n = std::size_t{1} << m;
  std::size_t j = 0;
  for (std::size_t i = 0; i + 1 < n; ++i) {
    if (i < j) {
      std::swap(re[i], re[j]);
      std::swap(im[i], im[j]);
    }
    std::size_t k = n / 2;
    for (; k <= j; k /= 2) j -= k;
    j += k;
  }
  for (int l = 1; l <= m; ++l) {
    const std::size_t span = std::size_t{1} << l;
    const std::size_t half = span / 2;
    const double theta = kPi / static_cast<double>(half);
    const double stepRe = std::cos(theta);
    const double stepIm = -std::sin(theta);
    double wRe = 1.0;
    double wIm = 0.0;
    for (std::size_t k = 0; k < half; ++k) {
      for (std::size_t i = k; i < n; i += span) {
        const std::size_t p = i + half;
        const double tRe = wRe * re[p] - wIm * im[p];
        const double tIm = wRe * im[p] + wIm * re[p];
        re[p] = re[i] - tRe;
        im[p] = im[i] - tIm;
        re[i] += tRe;
        im[i] += tIm;
      }
      const double oldRe = wRe;
      wRe = wRe * stepRe - wIm * stepIm;
      wIm = oldRe * stepIm + wIm * stepRe;
    }
  }
}

}  // namespace cantorix::testing
