// measure.cpp - written for plainness; speed does not matter here.
#include "tools/measure.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

#include "analysis/plain_frames.h"

namespace cantorix::testing {
namespace {

// Normalised correlation, in [-1, 1], of two stretches of 25 ms that lie `lag` samples apart.
double Correlation(std::span<const std::int16_t> x, std::int64_t centre, std::int64_t lag,
                   double rateHz) {
  const auto length = static_cast<std::int64_t>(0.025 * rateHz);
  const std::int64_t first = centre - (lag + length) / 2;
  double product = 0.0;
  double energyA = 0.0;
  double energyB = 0.0;
  for (std::int64_t n = 0; n < length; ++n) {
    const double a = x[static_cast<std::size_t>(first + n)];
    const double b = x[static_cast<std::size_t>(first + n + lag)];
    product += a * b;
    energyA += a * a;
    energyB += b * b;
  }
  return product / std::sqrt(energyA * energyB + 1e-9);
}

double Gain(const std::vector<double>& a, double hz, double rateHz) {
  std::complex<double> sum;
  for (std::size_t i = 0; i < a.size(); ++i) {
    sum += a[i] * std::polar(1.0, -2.0 * std::numbers::pi * hz / rateHz * static_cast<double>(i));
  }
  return 1.0 / std::abs(sum);
}

}  // namespace

double CorrelationPitch(std::span<const std::int16_t> x, std::int64_t centre, double rateHz) {
  const auto shortest = static_cast<std::int64_t>(rateHz / 300.0);
  const auto longest = static_cast<std::int64_t>(rateHz / 80.0);
  std::vector<double> r;
  for (std::int64_t lag = shortest - 1; lag <= longest + 1; ++lag) {
    r.push_back(Correlation(x, centre, lag, rateHz));
  }
  const double best = *std::max_element(r.begin() + 1, r.end() - 1);
  for (std::size_t i = 1; i + 1 < r.size(); ++i) {
    if (r[i] < r[i - 1] || r[i] < r[i + 1] || r[i] < 0.95 * best) continue;
    const double curve = r[i - 1] - 2.0 * r[i] + r[i + 1];
    const double shift = 0.5 * (r[i - 1] - r[i + 1]) / curve;
    return rateHz / (static_cast<double>(shortest - 1) + static_cast<double>(i) + shift);
  }
  return 0.0;
}

std::vector<double> EnvelopePeaks(std::span<const std::int16_t> x, std::int64_t centre,
                                  std::size_t length, int order, double preEmphasis,
                                  double rateHz) {
  // The pre-emphasis takes one sample before the frame.
  const std::int64_t first =
      centre - static_cast<std::int64_t>(length / 2) - (preEmphasis > 0.0 ? 1 : 0);
  const std::vector<double> samples(x.begin() + first, x.end());
  const std::vector<double> frame = PlainInput(samples, length, preEmphasis);
  const std::vector<double> a =
      PlainPrediction(PlainAutocorrelation(frame, static_cast<std::size_t>(order) + 1)).a;
  std::vector<double> peaks;
  for (int hz = 1; hz < 0.5 * rateHz - 1.0; ++hz) {
    const double here = Gain(a, hz, rateHz);
    if (here > Gain(a, hz - 1.0, rateHz) && here >= Gain(a, hz + 1.0, rateHz)) peaks.push_back(hz);
  }
  return peaks;
}

}  // namespace cantorix::testing
