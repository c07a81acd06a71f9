// plain_spectrogram.h - a spectrogram computed column by column over whole arrays, every rule as a
// loop of its own: the yardstick of the fast one, digit for digit.
// The roots come from the formant search itself, which has a yardstick of its own.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "analysis/formants.h"
#include "analysis/plain_levels.h"
#include "analysis/spectrogram.h"
#include "analysis/test_signals.h"

namespace cantorix::testing {

struct PlainSpectrogram {
  std::vector<std::vector<double>> levels;
  std::vector<FormantColumn> formants;
};

inline std::vector<double> PlainPolynomial(const std::vector<double>& y, int p) {
  std::vector<double> r, a{1.0};
  for (int k = 0; k <= p; ++k) {
    double sum = 0.0;
    for (std::size_t i = 0; i + static_cast<std::size_t>(k) < y.size(); ++i) {
      sum += y[i] * y[i + static_cast<std::size_t>(k)];
    }
    r.push_back(sum);
  }
  if (r[0] == 0.0) return {};
  double e = r[0];
  for (std::size_t i = 1; i <= static_cast<std::size_t>(p); ++i) {
    double sum = 0.0;
    for (std::size_t j = 1; j < i; ++j) sum += a[j] * r[i - j];
    const double k = -(r[i] + sum) / e;
    e = i == 1 ? r[0] + k * r[1] : e * (1.0 - k * k);
    const std::vector<double> old = a;
    a.push_back(k);
    for (std::size_t j = 1; j < i; ++j) a[j] = old[j] + k * old[i - j];
  }
  return a;
}

class PlainFrames {
 public:
  PlainFrames(const Samples& samples, std::size_t size) : samples_(samples), frame_(size) {}

  const std::vector<double>& At(double t) {
    const auto total = static_cast<double>(samples_.size());
    const auto first = static_cast<std::int64_t>(t);
    const auto size = static_cast<double>(frame_.size());
    const auto end = t + size <= total ? first + static_cast<std::int64_t>(size)
                                       : static_cast<std::int64_t>(total - t);
    for (std::int64_t i = first; i < end; ++i) {
      frame_[static_cast<std::size_t>(i - first)] = samples_[static_cast<std::size_t>(i)];
    }
    return frame_;
  }

 private:
  const Samples& samples_;
  std::vector<double> frame_;
};

inline FormantColumn PlainFormants(const std::vector<double>& x,
                                   const SpectrogramSettings& settings, double rateHz) {
  FormantColumn column;
  column.fill(65535);
  const std::size_t length = x.size() - 10;
  std::vector<double> y(length);
  for (std::size_t i = 0; i < length; ++i) {
    const double angle = 6.2831853071796 * static_cast<double>(i) / static_cast<double>(length);
    const double w = 0.54 - 0.46 * std::cos(angle);
    const double a = settings.preEmphasis;
    y[i] = (a > 0.0 ? x[i + 1] - a * x[i] : x[i]) * w;
  }
  const auto list =
      FindFormants(settings.lpcOrder, 600.0, PlainPolynomial(y, settings.lpcOrder), rateHz);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < 5 && i < static_cast<std::size_t>(list->candidates); ++i) {
    const double f = list->frequencyHz[i] + 0.5;
    if (f >= (list->bandwidthHz[i] + 0.5) * 2.0) column[kept++] = static_cast<std::uint16_t>(f);
  }
  return column;
}

inline void PlainReference(double dynamicRange, PlainSpectrogram& result) {
  double highest = -1e7;
  for (const auto& column : result.levels) {
    for (const double v : column) highest = std::max(highest, v);
  }
  for (auto& column : result.levels) {
    for (double& v : column) v = std::max(v - highest + dynamicRange, 0.0);
  }
  for (std::size_t c = 0; c < result.formants.size(); ++c) {
    double loudest = -100000.0;
    for (const double v : result.levels[c]) loudest = std::max(loudest, v);
    if (loudest < dynamicRange * 0.5) result.formants[c].fill(0);
  }
}

inline PlainSpectrogram ComputePlainSpectrogram(const Samples& samples,
                                                const SpectrogramRequest& request,
                                                const SpectrogramSettings& settings) {
  const int order = settings.lpcOrder;
  const int highestHz = static_cast<int>(request.rateHz) / 2000 * 1000;
  const PowerSpectrumOptions options{.points = settings.points,
                                     .preEmphasis = settings.preEmphasis,
                                     .hamming = true,
                                     .resample = true,
                                     .displayPoints = request.rows,
                                     .maxHz = std::min(settings.rangeHz, highestHz) * 1.0,
                                     .rateHz = request.rateHz};
  PlainFrames frames(samples, static_cast<std::size_t>(settings.points) + 10);
  const int lpcLength = static_cast<int>(request.rateHz * 0.001) * order;
  PlainFrames lpcFrames(samples, static_cast<std::size_t>(lpcLength) + 10);
  PlainSpectrogram result;
  const double step =
      (request.range.end - request.range.start) / static_cast<double>(request.columns);
  for (std::int64_t c = 0; c < request.columns; ++c) {
    const double t = static_cast<double>(c) * step + request.range.start;
    result.levels.push_back(PlainLevels(frames.At(t), options));
    if (settings.trackFormants == 0) continue;
    result.formants.push_back(PlainFormants(lpcFrames.At(t), settings, request.rateHz));
  }
  PlainReference(settings.dynamicRangeDb, result);
  return result;
}

}  // namespace cantorix::testing
