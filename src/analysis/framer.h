// framer.h - one frame of samples made ready for a spectrum or for linear prediction: first
// difference (pre-emphasis), then the analysis window. Does not choose the frame.
//
//   y[i] = (x[i + 1] - a x[i]) w[i]   a > 0
//   y[i] = x[i] w[i]                  a <= 0,   i = 0 ... n - 1
//
// with samples x, pre-emphasis a (0 ... 1) and w the Hamming window (window.h) or 1. The difference
// lifts the spectrum by about 6 dB per octave against the fall of the voice source.
// Source: [1] J. D. Markel, A. H. Gray, "Linear Prediction of Speech", 1976.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace cantorix {

// The window of a run and the room for one of its frames: one per thread.
class Framer {
 public:
  // Frames of `length` samples under the Hamming window, or none, with pre-emphasis a.
  Framer(std::size_t length, bool hamming, double preEmphasis);

  // Samples read: the length, and one more with pre-emphasis.
  std::size_t inputSize() const;
  // The frame of the first inputSize() values of `x`, valid until the next call. Throws
  // std::invalid_argument when `x` is shorter.
  std::span<const double> Frame(std::span<const double> x);

 private:
  double preEmphasis_;
  std::vector<double> window_;
  std::vector<double> frame_;
};

}  // namespace cantorix
