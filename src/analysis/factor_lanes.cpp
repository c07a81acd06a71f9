// factor_lanes.cpp - the steps of all lanes in one pass, and what a lane does between its steps.
#include "analysis/factor_lanes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr std::size_t kLanes = FactorLanes::kLanes;
// One step of RefineFactor in every lane; p has `terms` coefficients for each.
CANTORIX_CLONES void TakeSteps(const double* p, std::size_t terms, FactorLanes::Steps& s) {
  double u[kLanes], v[kLanes], b1[kLanes], b2[kLanes], c1[kLanes], c2[kLanes], c3[kLanes];
  for (std::size_t k = 0; k < kLanes; ++k) {
    u[k] = s.u[k];
    v[k] = s.v[k];
    b1[k] = c1[k] = p[k];
    b2[k] = c2[k] = c3[k] = 0.0;
  }
  for (std::size_t i = 1; i + 1 < terms; ++i) {
    const double* q = p + i * kLanes;
    for (std::size_t k = 0; k < kLanes; ++k) {
      const double b = (q[k] + v[k] * b2[k]) + u[k] * b1[k];
      const double c = (b + v[k] * c2[k]) + u[k] * c1[k];
      b2[k] = b1[k];
      b1[k] = b;
      c3[k] = c2[k];
      c2[k] = c1[k];
      c1[k] = c;
    }
  }
  const double* q = p + (terms - 1) * kLanes;
  for (std::size_t k = 0; k < kLanes; ++k) {
    const double r0 = (q[k] + v[k] * b2[k]) + u[k] * b1[k];
    const double scale = 1.0 / (c2[k] * c2[k] - c1[k] * c3[k]);
    const double du = (r0 * c3[k] - b1[k] * c2[k]) * scale;
    const double dv = (b1[k] * c1[k] - r0 * c2[k]) * scale;
    const double length =
        std::max(std::fabs(du) * s.unit[k], std::fabs(dv) * s.unit[k] * s.unit[k]);
    const double shortened = s.longestStep[k] / length;
    const double cut = length > s.longestStep[k] ? shortened : 1.0;
    const double previous = s.length[k];
    const double left = s.left[k] - 1.0;
    // What EndOfSteps asks, one by one for the vectors; a length that is not finite fails the
    // last of the comparisons.
    double ended = length < kShrinking * previous ? 0.0 : 1.0;
    ended = length < kShortStep ? ended : 0.0;
    ended = length > s.tolerance[k] ? ended : 1.0;
    ended = left > 0.0 ? ended : 1.0;
    ended = length <= std::numeric_limits<double>::max() ? ended : 1.0;
    s.u[k] = u[k] + du * cut;
    s.v[k] = v[k] + dv * cut;
    s.previous[k] = previous;
    s.length[k] = length;
    s.left[k] = left;
    s.ended[k] = ended;
  }
}

}  // namespace

FactorLanes::FactorLanes(int degree)
    : terms_(static_cast<std::size_t>(std::clamp(degree, 0, kMaxPolynomialDegree)) + 1),
      p_(terms_ * kLanes),
      lanes_(kLanes) {}

void FactorLanes::Factor(const FactorBatch& batch) {
  next_ = 0;
  busyLanes_ = 0;
  for (Lane& lane : lanes_) lane.busy = false;
  for (std::size_t lane = 0; lane < kLanes; ++lane) Fill(batch, lane);
  while (busyLanes_ > 0) {
    TakeSteps(p_.data(), terms_, steps_);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      if (steps_.ended[lane] != 0.0 && lanes_[lane].busy) EndTask(batch, lane);
    }
  }
}

// Gives the lane the next polynomial that has something to refine, if there is one.
void FactorLanes::Fill(const FactorBatch& batch, std::size_t lane) {
  FactorSearch& search = lanes_[lane].search;
  while (next_ < batch.count) {
    lanes_[lane].polynomial = next_;
    const auto coefficients = batch.coefficients(next_++);
    if (coefficients.size() > terms_) throw std::invalid_argument("FactorLanes: degree");
    search.Begin(coefficients);
    if (!search.done()) {
      lanes_[lane].busy = true;
      ++busyLanes_;
      BeginTask(lane);
      return;
    }
    search.Report(list_);
    batch.take(lanes_[lane].polynomial, search.factored(), list_);
  }
}

void FactorLanes::BeginTask(std::size_t lane) {
  const RefinementTask& task = lanes_[lane].search.task();
  const std::size_t zeros = terms_ - 1 - static_cast<std::size_t>(task.n);
  double* p = p_.data() + lane;
  for (std::size_t i = 0; i < zeros; ++i) p[i * kLanes] = 0.0;
  p += zeros * kLanes;
  for (std::size_t i = 0; i <= static_cast<std::size_t>(task.n); ++i) p[i * kLanes] = task.p[i];
  steps_.u[lane] = task.start.u;
  steps_.v[lane] = task.start.v;
  steps_.unit[lane] = 1.0 / task.start.Radius();
  steps_.tolerance[lane] = task.limits.tolerance;
  steps_.longestStep[lane] = task.limits.longestStep;
  steps_.left[lane] = task.limits.count;
  steps_.length[lane] = std::numeric_limits<double>::infinity();
}

void FactorLanes::EndTask(const FactorBatch& batch, std::size_t lane) {
  FactorSearch& search = lanes_[lane].search;
  const auto outcome = EndOfSteps(search.task().limits, steps_.length[lane], steps_.previous[lane],
                                  static_cast<int>(steps_.left[lane]));
  search.Take(outcome.value(), {steps_.u[lane], steps_.v[lane]});
  if (!search.done()) {
    BeginTask(lane);
    return;
  }
  lanes_[lane].busy = false;
  --busyLanes_;
  search.Report(list_);
  batch.take(lanes_[lane].polynomial, search.factored(), list_);
  Fill(batch, lane);
}

}  // namespace cantorix
