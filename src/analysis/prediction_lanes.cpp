// prediction_lanes.cpp - the recursion with the lanes innermost. A lane whose frame predicts
// nothing goes on with whatever comes of it, and is told from the others in the end.
#include "analysis/prediction_lanes.h"

#include <algorithm>
#include <limits>

#include "analysis/lpc.h"
#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr std::size_t kLanes = PredictionLanes::kLanes;

// a[0] is 1 in all lanes.
CANTORIX_CLONES void Recurse(const double* __restrict r, std::size_t terms, double* __restrict a,
                             double* __restrict valid) {
  double E[kLanes];
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    E[lane] = r[lane];
    valid[lane] = r[lane] > 0.0 && r[lane] <= std::numeric_limits<double>::max() ? 1.0 : 0.0;
  }
  for (std::size_t i = 1; i < terms; ++i) {
    double sum[kLanes] = {};
    for (std::size_t j = 1; j < i; ++j) {
      for (std::size_t lane = 0; lane < kLanes; ++lane) {
        sum[lane] += a[j * kLanes + lane] * r[(i - j) * kLanes + lane];
      }
    }
    double k[kLanes];
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      k[lane] = -(r[i * kLanes + lane] + sum[lane]) / E[lane];
      E[lane] = i == 1 ? r[lane] + k[lane] * r[kLanes + lane] : E[lane] * (1.0 - k[lane] * k[lane]);
      valid[lane] = E[lane] > 0.0 ? valid[lane] : 0.0;
      a[i * kLanes + lane] = k[lane];
    }
    // The coefficients change by pairs that need each other as they were.
    for (std::size_t j = 1; 2 * j <= i; ++j) {
      double* low = a + j * kLanes;
      double* high = a + (i - j) * kLanes;
      CANTORIX_INDEPENDENT_TURNS
      for (std::size_t lane = 0; lane < kLanes; ++lane) {
        const double before = low[lane];
        const double after = before + k[lane] * high[lane];
        high[lane] = high[lane] + k[lane] * before;
        low[lane] = after;
      }
    }
  }
}

}  // namespace

PredictionLanes::PredictionLanes(std::size_t order)
    : terms_(order + 1), r_(terms_ * kLanes), a_(terms_ * kLanes, 1.0) {}

void PredictionLanes::Set(std::size_t lane, std::span<const double> r) {
  for (std::size_t lag = 0; lag < terms_; ++lag) r_[lag * kLanes + lane] = r[lag];
}

void PredictionLanes::Predict() { Recurse(r_.data(), terms_, a_.data(), valid_); }

bool PredictionLanes::Polynomial(std::size_t lane, std::span<double> a) const {
  for (std::size_t j = 0; j < terms_; ++j) a[j] = a_[j * kLanes + lane];
  return valid_[lane] != 0.0 && AllFinite(a.first(terms_));
}

}  // namespace cantorix
