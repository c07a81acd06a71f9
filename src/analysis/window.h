// window.h - the analysis window of the spectra and of the cepstral pitch.
//
//   w[i] = 0.54 - 0.46 cos(2 pi i / n)   i = 0 ... n - 1
//
// Source: [1] R. B. Blackman, J. W. Tukey, "The measurement of power spectra", 1958 (Hamming).
#pragma once

#include <cstddef>
#include <vector>

namespace cantorix {

// The window of n points. The divisor is n: they are the first n of n + 1 symmetric points, 1 at
// i = n / 2.
std::vector<double> HammingWindow(std::size_t n);

}  // namespace cantorix
