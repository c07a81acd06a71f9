// formant_batch.cpp - frames become polynomials a few at a time, all polynomials factors at once.
#include "analysis/formant_batch.h"

#include <algorithm>

#include "analysis/lpc.h"

namespace cantorix {
namespace {

std::size_t UsableOrder(int order) {
  return static_cast<std::size_t>(std::clamp(order, 0, kMaxLpcOrder));
}

}  // namespace

FormantBatch::FormantBatch(int order, double rateHz)
    : order_(order),
      rateHz_(rateHz),
      lags_(UsableOrder(order) + 1),
      predictions_(UsableOrder(order)),
      factors_(static_cast<int>(UsableOrder(order))) {}

void FormantBatch::Add(std::span<const double> frame, std::ostream& errors) {
  SayOrderTooLarge(order_, errors);
  Autocorrelate(frame, lags_);
  predictions_.Set(frames_ - predicted_, lags_);
  ++frames_;
  if (frames_ - predicted_ == PredictionLanes::kLanes) Predict();
}

void FormantBatch::Predict() {
  predictions_.Predict();
  if (polynomials_.size() < frames_ * terms()) polynomials_.resize(frames_ * terms());
  for (std::size_t lane = 0; predicted_ < frames_; ++lane, ++predicted_) {
    if (predictions_.Polynomial(lane, Polynomial(predicted_))) valid_.push_back(predicted_);
  }
}

bool FormantBatch::Find(const Taker& take, std::ostream& errors) {
  Predict();
  list_.count = list_.candidates = 0;
  std::size_t next = 0;
  for (std::size_t frame = 0; frame < frames_; ++frame) {
    if (next < valid_.size() && valid_[next] == frame) {
      ++next;
    } else {
      take(frame, list_);
    }
  }
  std::size_t firstFailed = frames_;
  int degreeLeft = 0;
  factors_.Factor({valid_.size(), [&](std::size_t i) { return Polynomial(valid_[i]); },
                   [&](std::size_t i, bool factored, const FactorList& factors) {
                     if (factored) {
                       CollectFormants(factors, kMaxFormantBandwidthHz, rateHz_, list_);
                       take(valid_[i], list_);
                     } else if (valid_[i] < firstFailed) {
                       firstFailed = valid_[i];
                       degreeLeft = factors.degreeLeft;
                     }
                   }});
  const bool found = firstFailed == frames_;
  if (!found) SayConfused(degreeLeft, errors);
  frames_ = predicted_ = 0;
  valid_.clear();
  return found;
}

}  // namespace cantorix
