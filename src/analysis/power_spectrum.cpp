// power_spectrum.cpp
#include "analysis/power_spectrum.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

#include "analysis/decibel.h"
#include "analysis/window.h"

namespace cantorix {
namespace {

constexpr int kMaxPoints = 1 << 24;

// The smallest transform that holds the points, of two points at least.
int TransformLog2(int points) {
  if (points < 2 || points > kMaxPoints) throw std::invalid_argument("PowerSpectrumPlan: points");
  return static_cast<int>(std::bit_width(static_cast<unsigned>(points) - 1));
}

SplineGrid GridFor(const PowerSpectrumOptions& options) {
  const auto bins = static_cast<std::size_t>(options.points / 2);
  if (!options.resample) return {bins, {}};
  const double step =
      DisplayStepBins(options.points, options.maxHz, options.rateHz, options.displayPoints);
  return DisplayGrid(bins, step, options.displayPoints);
}

}  // namespace

double DisplayStepBins(double points, double maxHz, double rateHz, int displayPoints) {
  return maxHz / (rateHz * 0.5) * (points * 0.5) / displayPoints;
}

SplineGrid DisplayGrid(std::size_t bins, double stepBins, int displayPoints) {
  std::vector<double> positions(static_cast<std::size_t>(std::max(displayPoints, 0)));
  for (std::size_t j = 0; j < positions.size(); ++j) {
    positions[j] = static_cast<double>(j) * stepBins;
  }
  return {bins, positions};
}

PowerSpectrumPlan::PowerSpectrumPlan(const PowerSpectrumOptions& options)
    : options_(options),
      fft_(TransformLog2(options.points)),
      window_(options.hamming ? HammingWindow(static_cast<std::size_t>(options.points))
                              : std::vector<double>(static_cast<std::size_t>(options.points), 1.0)),
      spline_(static_cast<std::size_t>(options.points / 2)),
      grid_(GridFor(options)),
      re_(fft_.size()),
      im_(fft_.size()),
      binsDb_(static_cast<std::size_t>(options.points / 2)),
      second_(binsDb_.size()) {}

std::size_t PowerSpectrumPlan::inputSize() const {
  return window_.size() + (options_.preEmphasis > 0.0 ? 1 : 0);
}

std::size_t PowerSpectrumPlan::outputSize() const {
  return options_.resample ? grid_.size() : binsDb_.size();
}

void PowerSpectrumPlan::FrameInput(std::span<const double> x) {
  std::fill(re_.begin(), re_.end(), 0.0);
  std::fill(im_.begin(), im_.end(), 0.0);
  const double a = options_.preEmphasis;
  for (std::size_t i = 0; i < window_.size(); ++i) {
    const double emphasised = a > 0.0 ? x[i + 1] - a * x[i] : x[i];
    re_[i] = emphasised * window_[i];
  }
}

void PowerSpectrumDb(std::span<const double> x, PowerSpectrumPlan& plan, std::span<double> out) {
  if (x.size() < plan.inputSize() || out.size() < plan.outputSize()) {
    throw std::invalid_argument("PowerSpectrumDb: size");
  }
  plan.FrameInput(x);
  plan.fft_.Transform(plan.re_, plan.im_);
  for (std::size_t k = 0; k < plan.binsDb_.size(); ++k) {
    plan.binsDb_[k] = PowerDb(plan.re_[k] * plan.re_[k] + plan.im_[k] * plan.im_[k]);
  }
  if (!plan.options_.resample) {
    std::copy(plan.binsDb_.begin(), plan.binsDb_.end(), out.begin());
    return;
  }
  plan.spline_.Fit(plan.binsDb_, plan.second_);
  plan.grid_.Evaluate(plan.binsDb_, plan.second_, out.first(plan.grid_.size()));
}

}  // namespace cantorix
