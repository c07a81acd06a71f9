// plain_cepstrum.h - the pitch of a frame, written step by step over whole arrays with the plain
// transform, the C library's logarithm and the spline of the text books. The yardstick of the fast
// one, digit for digit.
#pragma once

#include <vector>

#include "analysis/cepstral_pitch.h"
#include "analysis/plain_frames.h"

namespace cantorix::testing {

class PlainCepstrum {
 public:
  explicit PlainCepstrum(const CepstralOptions& options)
      : options_(options), frames_(static_cast<std::size_t>(options.windowSamples) + 5) {}

  double Pitch(const Samples& samples, double t, double total) {
    const int m = static_cast<int>(std::lround(std::log2(options_.points)));
    const auto window = static_cast<std::size_t>(options_.windowSamples);
    auto levels = PlainPowers(PlainInput(frames_.At(samples, t, total), window, 0.0), m);
    ToPlainDb(levels);
    auto cepstrum = PlainPowers(levels, m);
    cepstrum.resize(cepstrum.size() / 2);
    return PeakPitch(cepstrum);
  }

 private:
  double PeakPitch(const std::vector<double>& cepstrum) const {
    const auto low = static_cast<std::size_t>(options_.rateHz / options_.highHz);
    const auto high = static_cast<std::size_t>(options_.rateHz / options_.lowHz);
    if (high < low + 2) return 0.0;
    std::vector<double> y(high - low);
    for (std::size_t j = 0; j < y.size() && low + j < cepstrum.size(); ++j) {
      y[j] = cepstrum[low + j];
    }
    const PlainSpline spline(y);
    const auto begin = static_cast<std::size_t>(10.0 * options_.rateHz / options_.highHz);
    const auto end = static_cast<std::size_t>(10.0 * options_.rateHz / options_.lowHz);
    double best = 0.0;
    double index = 0.0;
    for (std::size_t k = 0; k < 10 * y.size() && begin + k < end; ++k) {
      const double value = spline.At(static_cast<double>(k) * 0.1);
      if (value <= best) continue;
      best = value;
      index = std::max(static_cast<double>(begin + k), 1.0);
    }
    const double f0 = index > 0.0 ? options_.rateHz / (index / 10.0) : 0.0;
    return f0 > options_.highHz || f0 < options_.lowHz ? 0.0 : f0;
  }

  CepstralOptions options_;
  PlainFrames frames_;
};

}  // namespace cantorix::testing
