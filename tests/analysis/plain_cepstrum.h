// plain_cepstrum.h - the pitch of a frame, written step by step over whole arrays with the plain
// transform, the C library's logarithm and the spline of the text books. The yardstick of the fast
// one, digit for digit.
#pragma once

#include <cmath>
#include <vector>

#include "analysis/cepstral_pitch.h"
#include "analysis/plain_fft.h"
#include "analysis/plain_spline.h"
#include "analysis/test_signals.h"

namespace cantorix::testing {

struct PlainCepstrum {
  explicit PlainCepstrum(const CepstralOptions& cepstralOptions)
      : options(cepstralOptions), buffer(5000) {}

  double Pitch(const Samples& samples, double t, double total) {
    const auto n = static_cast<std::size_t>(options.points);
    const auto w = static_cast<std::size_t>(options.windowSamples);
    FillBuffer(samples, t, total);
    std::vector<double> re(n);
    std::vector<double> im(n);
    for (std::size_t i = 0; i < w; ++i) {
      const double angle = 6.2831853071796 * static_cast<double>(i) / static_cast<double>(w);
      re[i] = (0.54 - 0.46 * std::cos(angle)) * buffer[i];
    }
    const int m = static_cast<int>(std::lround(std::log2(n)));
    PlainFft(re, im, m);
    for (std::size_t k = 0; k < n; ++k) {
      const double power = re[k] * re[k] + im[k] * im[k];
      re[k] = power != 0.0 ? 10.0 * std::log10(power) : 0.0;
      im[k] = 0.0;
    }
    PlainFft(re, im, m);
    std::vector<double> cepstrum(n / 2);
    for (std::size_t q = 0; q < n / 2; ++q) cepstrum[q] = re[q] * re[q] + im[q] * im[q];
    return PeakPitch(cepstrum);
  }

  CepstralOptions options;
  std::vector<double> buffer;

 private:
  void FillBuffer(const Samples& samples, double t, double total) {
    const auto w = static_cast<double>(options.windowSamples);
    const auto first = static_cast<std::int64_t>(t);
    const std::int64_t end = t + w + 5 <= total ? first + options.windowSamples + 5
                                                : static_cast<std::int64_t>(total - t);
    for (std::int64_t i = first; i < end; ++i) {
      buffer[static_cast<std::size_t>(i - first)] = samples.at(static_cast<std::size_t>(i));
    }
  }

  double PeakPitch(const std::vector<double>& cepstrum) const {
    const auto low = static_cast<std::size_t>(options.rateHz / options.highHz);
    const auto high = static_cast<std::size_t>(options.rateHz / options.lowHz);
    if (high < low + 2) return 0.0;
    const std::size_t knots = high - low;
    std::vector<double> y(knots);
    for (std::size_t j = 0; j < knots; ++j) {
      y[j] = low + j < cepstrum.size() ? cepstrum[low + j] : 0.0;
    }
    const PlainSpline spline(y);
    const auto begin = static_cast<std::size_t>(10.0 * options.rateHz / options.highHz);
    const auto end = static_cast<std::size_t>(10.0 * options.rateHz / options.lowHz);
    double best = 0.0;
    std::size_t index = 0;
    bool found = false;
    for (std::size_t k = 0; k < 10 * knots && begin + k < end; ++k) {
      const double value = spline.At(static_cast<double>(k) * 0.1);
      if (value > best) {
        best = value;
        index = begin + k;
        found = true;
      }
    }
    if (!found) return 0.0;
    if (index == 0) index = 1;
    const double f0 = options.rateHz / (static_cast<double>(index) / 10.0);
    return f0 > options.highHz || f0 < options.lowHz ? 0.0 : f0;
  }
};

}  // namespace cantorix::testing
