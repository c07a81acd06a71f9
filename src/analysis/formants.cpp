// formants.cpp - factors to frequencies and bandwidths, and their order.
#include "analysis/formants.h"

#include <algorithm>
#include <cmath>
#include <ostream>

#include "analysis/fft.h"
#include "analysis/polynomial_factors.h"

namespace cantorix {
namespace {

// An entry moves only past strictly larger frequencies, so equal ones keep their order.
void SortByFrequency(FormantList& list) {
  for (std::size_t i = 1; i < static_cast<std::size_t>(list.candidates); ++i) {
    const double frequency = list.frequencyHz[i];
    const double bandwidth = list.bandwidthHz[i];
    std::size_t j = i;
    for (; j > 0 && list.frequencyHz[j - 1] > frequency; --j) {
      list.frequencyHz[j] = list.frequencyHz[j - 1];
      list.bandwidthHz[j] = list.bandwidthHz[j - 1];
    }
    list.frequencyHz[j] = frequency;
    list.bandwidthHz[j] = bandwidth;
  }
}

}  // namespace

Formant QuadraticToFormant(double b, double c, double rateHz) {
  const double h = b * 0.5;
  const double d = h * h - c;
  const double s = rateHz / kTwoPi;
  if (!(d < 0.0)) {
    const double radius = std::fabs(h) + std::sqrt(d);
    return {b < 0.0 ? rateHz * 0.5 : 0.0, -std::log(radius * radius) * s};
  }
  // Kept: a pair on the imaginary axis reports the angle itself, 1.5708, instead of a quarter of
  // the rate; earlier measurements hold that number.
  const double frequency = h != 0.0 ? std::atan2(std::sqrt(-d), -h) * s : kPi * 0.5;
  return {frequency, -std::log(c) * s};
}

std::optional<FormantList> FindFormants(int order, double maxBandwidthHz, std::span<const double> a,
                                        double rateHz, std::ostream& errors) {
  std::optional<FormantList> result(std::in_place);
  const auto p = static_cast<std::size_t>(std::clamp(order, 0, kMaxLpcOrder));
  a = a.first(std::min(a.size(), p + 1));
  if (!AllFinite(a)) return result;

  FactorList factors;
  if (!FactorPolynomial(a, factors)) {
    errors << "  factor() is confused, " << factors.degreeLeft << '\n';
    return std::nullopt;
  }
  result->count = factors.count;
  for (const QuadraticFactor& factor : factors.quadratics()) {
    const Formant formant = QuadraticToFormant(-factor.u, -factor.v, rateHz);
    if (!(formant.bandwidthHz <= maxBandwidthHz)) continue;
    const auto entry = static_cast<std::size_t>(result->candidates++);
    result->frequencyHz[entry] = formant.frequencyHz;
    result->bandwidthHz[entry] = formant.bandwidthHz;
  }
  SortByFrequency(*result);
  return result;
}

std::optional<FormantList> FindFormants(const LpcResult& lpc, double rateHz, std::ostream& errors) {
  if (!lpc.valid) return FormantList{};
  return FindFormants(lpc.order, kMaxFormantBandwidthHz, lpc.polynomial(), rateHz, errors);
}

}  // namespace cantorix
