// plain_levels.h - the levels of a frame step by step over whole arrays: the yardstick of the
// spectra.
#pragma once

#include <cmath>
#include <vector>

#include "analysis/plain_fft.h"
#include "analysis/plain_spline.h"
#include "analysis/power_spectrum.h"

namespace cantorix::testing {

// Step by step over whole arrays.
inline std::vector<double> PlainLevels(const std::vector<double>& x,
                                       const PowerSpectrumOptions& options) {
  const auto n = static_cast<std::size_t>(options.points);
  int m = 1;
  while ((std::size_t{1} << m) < n) ++m;
  std::vector<double> re(std::size_t{1} << m);
  std::vector<double> im(re.size());
  for (std::size_t i = 0; i < n; ++i) {
    const double angle = 6.2831853071796 * static_cast<double>(i) / static_cast<double>(n);
    const double w = options.hamming ? 0.54 - 0.46 * std::cos(angle) : 1.0;
    re[i] = (options.preEmphasis > 0.0 ? x[i + 1] - options.preEmphasis * x[i] : x[i]) * w;
  }
  PlainFft(re, im, m);
  std::vector<double> levels(n / 2);
  for (std::size_t k = 0; k < n / 2; ++k) {
    const double power = re[k] * re[k] + im[k] * im[k];
    levels[k] = power == 0.0 ? 0.0 : 10.0 * std::log10(power);
  }
  if (!options.resample) return levels;
  const PlainSpline spline(levels);
  const double step = options.maxHz / (options.rateHz * 0.5) * (static_cast<double>(n) * 0.5) /
                      options.displayPoints;
  std::vector<double> display(static_cast<std::size_t>(options.displayPoints));
  for (std::size_t j = 0; j < display.size(); ++j) {
    display[j] = spline.At(static_cast<double>(j) * step);
  }
  return display;
}

}  // namespace cantorix::testing
