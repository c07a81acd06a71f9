// plain_frames.h - frames, levels and predictions step by step over whole arrays: the yardsticks
// that the spectra, the cepstrum and linear prediction share.
#pragma once

#include <cmath>
#include <iostream>
#include <vector>

#include "analysis/formants.h"
#include "analysis/plain_fft.h"
#include "analysis/plain_spline.h"
#include "analysis/power_spectrum.h"
#include "analysis/test_signals.h"

namespace cantorix::testing {

// A frame buffer that takes `size` samples from t on when all of them are there, else those up to
// the position total - t; the rest stays what it was.
class PlainFrames {
 public:
  explicit PlainFrames(std::size_t size) : frame_(size) {}

  const std::vector<double>& At(const Samples& samples, double t, double total) {
    const auto first = static_cast<std::int64_t>(t);
    const std::int64_t end = t + static_cast<double>(frame_.size()) <= total
                                 ? first + std::ssize(frame_)
                                 : static_cast<std::int64_t>(total - t);
    for (std::int64_t i = first; i < end; ++i) {
      frame_.at(static_cast<std::size_t>(i - first)) = samples.at(static_cast<std::size_t>(i));
    }
    return frame_;
  }

 private:
  std::vector<double> frame_;
};

// The first n values with pre-emphasis a (none: 0 or less) under a Hamming window (or none).
inline std::vector<double> PlainInput(const std::vector<double>& x, std::size_t n, double a,
                                      bool hamming = true) {
  std::vector<double> y(n);
  for (std::size_t i = 0; i < n; ++i) {
    const double angle = 6.2831853071796 * static_cast<double>(i) / static_cast<double>(n);
    const double w = hamming ? 0.54 - 0.46 * std::cos(angle) : 1.0;
    y[i] = (a > 0.0 ? x.at(i + 1) - a * x[i] : x.at(i)) * w;
  }
  return y;
}

// Powers of the transform of y, zeros behind it, with 2^m points.
inline std::vector<double> PlainPowers(std::vector<double> y, int m) {
  y.resize(std::size_t{1} << m);
  std::vector<double> im(y.size());
  PlainFft(y, im, m);
  for (std::size_t k = 0; k < y.size(); ++k) y[k] = y[k] * y[k] + im[k] * im[k];
  return y;
}

inline void ToPlainDb(std::vector<double>& powers) {
  for (double& power : powers) power = power == 0.0 ? 0.0 : 10.0 * std::log10(power);
}

// Values at `count` display points from 0 Hz up to maxHz, of the bins of a transform of `points`.
inline std::vector<double> PlainDisplay(const std::vector<double>& bins, double points,
                                        double maxHz, double rateHz, int count) {
  const PlainSpline spline(bins);
  const double step = maxHz / (rateHz * 0.5) * (points * 0.5) / count;
  std::vector<double> display(static_cast<std::size_t>(count));
  for (std::size_t j = 0; j < display.size(); ++j) {
    display[j] = spline.At(static_cast<double>(j) * step);
  }
  return display;
}

inline std::vector<double> PlainLevels(const std::vector<double>& x,
                                       const PowerSpectrumOptions& o) {
  const auto n = static_cast<std::size_t>(o.points);
  int m = 1;
  while ((std::size_t{1} << m) < n) ++m;
  auto levels = PlainPowers(PlainInput(x, n, o.preEmphasis, o.hamming), m);
  levels.resize(n / 2);
  ToPlainDb(levels);
  if (!o.resample) return levels;
  return PlainDisplay(levels, o.points, o.maxHz, o.rateHz, o.displayPoints);
}

// The inverse filter's response, from the coefficients that 256 points hold.
inline std::vector<double> PlainEnvelope(std::vector<double> a, double maxHz, double rateHz,
                                         int count) {
  auto levels = PlainPowers(std::move(a), 8);
  levels.resize(128);
  ToPlainDb(levels);
  return PlainDisplay(levels, 256, maxHz, rateHz, count);
}

inline std::vector<double> PlainAutocorrelation(std::span<const double> y, std::size_t lags) {
  std::vector<double> r;
  for (std::size_t k = 0; k < lags; ++k) {
    double sum = 0.0;
    for (std::size_t i = 0; i + k < y.size(); ++i) sum += y[i] * y[i + k];
    r.push_back(sum);
  }
  return r;
}

// The recursion of Levinson and Durbin on the autocorrelation r, r[0] > 0.
struct PlainPrediction {
  explicit PlainPrediction(const std::vector<double>& r) : k(r.size()), E(r.at(0)) {
    for (std::size_t i = 1; i < r.size(); ++i) {
      double sum = 0.0;
      for (std::size_t j = 1; j < i; ++j) sum += a[j] * r[i - j];
      k[i] = -(r[i] + sum) / E;
      E = i == 1 ? r[0] + k[1] * r[1] : E * (1.0 - k[i] * k[i]);
      const std::vector<double> old = a;
      for (std::size_t j = 1; j < i; ++j) a[j] = old[j] + k[i] * old[i - j];
      a.push_back(k[i]);
    }
  }
  std::vector<double> k, a{1.0};
  double E;
};

// What linear prediction finds in the windowed frame y; the roots come from the formant search,
// which has a yardstick of its own.
struct PlainPoles {
  PlainPoles(const std::vector<double>& y, int order, double rateHz) {
    const auto r = PlainAutocorrelation(y, static_cast<std::size_t>(order) + 1);
    if (r[0] == 0.0) return;
    a = PlainPrediction(r).a;
    const auto list = FindFormants(order, 600.0, a, rateHz, std::cerr).value();
    for (std::size_t i = 0; i < 5 && i < static_cast<std::size_t>(list.candidates); ++i) {
      const Formant formant{list.frequencyHz[i] + 0.5, list.bandwidthHz[i] + 0.5};
      if (formant.frequencyHz >= 2.0 * formant.bandwidthHz) formants.push_back(formant);
    }
  }
  std::vector<double> a;  // none in silence
  std::vector<Formant> formants;
};

}  // namespace cantorix::testing
