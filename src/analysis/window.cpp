// window.cpp - the cosine of the C library, with the constants of fft.h.
#include "analysis/window.h"

#include <cmath>

#include "analysis/fft.h"

namespace cantorix {

std::vector<double> HammingWindow(std::size_t n) {
  std::vector<double> window(n);
  for (std::size_t i = 0; i < n; ++i) {
    window[i] = 0.54 - 0.46 * std::cos(kTwoPi * static_cast<double>(i) / static_cast<double>(n));
  }
  return window;
}

}  // namespace cantorix
