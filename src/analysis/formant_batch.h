// formant_batch.h - the formant candidates of many frames at once: predictions and factors are
// found side by side (prediction_lanes.h, factor_lanes.h), with the digits of LpcAnalyse and
// FindFormants for each frame.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <span>
#include <vector>

#include "analysis/factor_lanes.h"
#include "analysis/formants.h"
#include "analysis/prediction_lanes.h"

namespace cantorix {

// The working memory of one thread.
class FormantBatch {
 public:
  // LPC orders as LpcAnalyse takes them.
  FormantBatch(int order, double rateHz);

  // Takes the next windowed frame into the batch. What LpcAnalyse says of the order goes to
  // `errors`.
  void Add(std::span<const double> frame, std::ostream& errors);

  // Told the candidates of a frame, which hold until it returns.
  using Taker = std::function<void(std::size_t frame, const FormantList& candidates)>;
  // Finds the candidates of the frames, counted from 0 and in any order, and empties the batch.
  // When a polynomial cannot be factored, says so of the first such frame on `errors` and returns
  // false.
  bool Find(const Taker& take, std::ostream& errors);

 private:
  std::size_t terms() const { return lags_.size(); }
  std::span<double> Polynomial(std::size_t frame) {
    return std::span(polynomials_).subspan(frame * terms(), terms());
  }
  void Predict();

  int order_;
  double rateHz_;
  std::vector<double> lags_;
  PredictionLanes predictions_;
  std::size_t frames_ = 0;
  std::size_t predicted_ = 0;  // of frames_
  std::vector<double> polynomials_;
  std::vector<std::size_t> valid_;  // frames that have a polynomial
  FactorLanes factors_;
  FormantList list_;
};

}  // namespace cantorix
