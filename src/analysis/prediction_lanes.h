// prediction_lanes.h - the recursion of lpc.h for several frames side by side.
// A lane is one frame and takes the operations of LpcAnalyse in their order, so it gets the same
// digits. Frames and their autocorrelations come from the caller.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace cantorix {

// The working memory of one thread.
class PredictionLanes {
 public:
  static constexpr std::size_t kLanes = 8;

  // Predictions of `order` coefficients, 0 ... kMaxLpcOrder.
  explicit PredictionLanes(std::size_t order);

  // Gives a lane the autocorrelation of its frame, order + 1 lags.
  void Set(std::size_t lane, std::span<const double> r);
  // Predicts in every lane.
  void Predict();
  // Of a lane, once predicted: the order + 1 coefficients that LpcAnalyse finds, into `a`; false
  // for a frame that predicts nothing.
  bool Polynomial(std::size_t lane, std::span<double> a) const;

 private:
  std::size_t terms_;
  std::vector<double> r_, a_;  // r_[lag * kLanes + lane], a_[j * kLanes + lane]
  double valid_[kLanes] = {};  // 1 or 0
};

}  // namespace cantorix
