// lpc_frame.h - one frame of samples made ready for linear prediction.
// Relies on the Hamming window. Does not choose the frame.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace cantorix {

// The window of a run and the room for one of its frames: one per thread.
class LpcFramer {
 public:
  // Frames of `length` samples; preEmphasis a > 0: x[i + 1] - a x[i], otherwise x[i]; the Hamming
  // window, or none, goes over the result.
  LpcFramer(std::size_t length, bool hamming, double preEmphasis);

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
