// lpc_envelope.cpp - the coefficients as a signal, transformed, and its levels at the display
// points.
#include "analysis/lpc_envelope.h"

#include <algorithm>
#include <stdexcept>

#include "analysis/log_spectrum.h"
#include "analysis/power_spectrum.h"

namespace cantorix {

LpcEnvelopePlan::LpcEnvelopePlan(int displayPoints, double maxHz, double rateHz)
    : fft_(kTransformLog2),
      spline_(kPoints / 2),
      grid_(DisplayGrid(kPoints / 2, DisplayStepBins(kPoints, maxHz, rateHz, displayPoints),
                        displayPoints)) {}

void LpcEnvelopeDb(const LpcResult& lpc, LpcEnvelopePlan& plan, std::span<double> out) {
  if (out.size() < plan.displayPoints()) throw std::invalid_argument("LpcEnvelopeDb: size");
  out = out.first(plan.displayPoints());
  if (!lpc.valid) {
    std::fill(out.begin(), out.end(), 0.0);
    return;
  }
  const auto a = lpc.polynomial().first(std::min(lpc.polynomial().size(), plan.re_.size()));
  const auto end = std::copy(a.begin(), a.end(), plan.re_.begin());
  std::fill(end, plan.re_.end(), 0.0);
  plan.im_.fill(0.0);
  plan.fft_.Transform(plan.re_, plan.im_);
  FindPowers(plan.re_, plan.im_, plan.binsDb_);
  FindLevels(plan.binsDb_, plan.binsDb_);
  plan.spline_.Fit(plan.binsDb_, plan.second_);
  plan.grid_.Evaluate(plan.binsDb_, plan.second_, out);
}

}  // namespace cantorix
