// framer.cpp - the two cases of a frame, each a plain loop.
#include "analysis/framer.h"

#include <stdexcept>

#include "analysis/window.h"

namespace cantorix {

Framer::Framer(std::size_t length, bool hamming, double preEmphasis)
    : preEmphasis_(preEmphasis),
      window_(hamming ? HammingWindow(length) : std::vector<double>(length, 1.0)),
      frame_(length) {}

std::size_t Framer::inputSize() const { return window_.size() + (preEmphasis_ > 0.0 ? 1 : 0); }

std::span<const double> Framer::Frame(std::span<const double> x) {
  if (x.size() < inputSize()) throw std::invalid_argument("Framer::Frame: size");
  if (preEmphasis_ > 0.0) {
    for (std::size_t i = 0; i < frame_.size(); ++i) {
      frame_[i] = (x[i + 1] - preEmphasis_ * x[i]) * window_[i];
    }
  } else {
    for (std::size_t i = 0; i < frame_.size(); ++i) frame_[i] = x[i] * window_[i];
  }
  return frame_;
}

}  // namespace cantorix
