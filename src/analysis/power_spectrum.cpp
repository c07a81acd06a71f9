// power_spectrum.cpp - frame, transform, levels, display points: one after the other.
#include "analysis/power_spectrum.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

#include "analysis/log_spectrum.h"

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
    : resample_(options.resample),
      fft_(TransformLog2(options.points)),
      framer_(static_cast<std::size_t>(options.points), options.hamming, options.preEmphasis),
      spline_(static_cast<std::size_t>(options.points / 2)),
      grid_(GridFor(options)),
      re_(fft_.size()),
      im_(fft_.size()),
      binsDb_(static_cast<std::size_t>(options.points / 2)),
      second_(binsDb_.size()) {}

std::size_t PowerSpectrumPlan::inputSize() const { return framer_.inputSize(); }

std::size_t PowerSpectrumPlan::outputSize() const {
  return resample_ ? grid_.size() : binsDb_.size();
}

void PowerSpectrumDb(std::span<const double> x, PowerSpectrumPlan& plan, std::span<double> out) {
  if (x.size() < plan.inputSize() || out.size() < plan.outputSize()) {
    throw std::invalid_argument("PowerSpectrumDb: size");
  }
  const auto frame = plan.framer_.Frame(x);
  std::fill(std::copy(frame.begin(), frame.end(), plan.re_.begin()), plan.re_.end(), 0.0);
  std::fill(plan.im_.begin(), plan.im_.end(), 0.0);
  plan.fft_.Transform(plan.re_, plan.im_);
  FindPowers(plan.re_, plan.im_, plan.binsDb_);
  FindLevels(plan.binsDb_, plan.binsDb_);
  if (!plan.resample_) {
    std::copy(plan.binsDb_.begin(), plan.binsDb_.end(), out.begin());
    return;
  }
  plan.spline_.Fit(plan.binsDb_, plan.second_);
  plan.grid_.Evaluate(plan.binsDb_, plan.second_, out.first(plan.grid_.size()));
}

}  // namespace cantorix
