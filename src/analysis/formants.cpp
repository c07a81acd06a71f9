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

// A quarter of the discriminant of z^2 + b z + c.
double Discriminant(double b, double c) {
  const double h = b * 0.5;
  return h * h - c;
}

double FrequencyHz(double b, double c, double rateHz) {
  const double d = Discriminant(b, c);
  if (!(d < 0.0)) return b < 0.0 ? rateHz * 0.5 : 0.0;
  const double h = b * 0.5;
  // Kept: a pair on the imaginary axis reports the angle itself, 1.5708, instead of a quarter of
  // the rate; earlier measurements hold that number.
  return h != 0.0 ? std::atan2(std::sqrt(-d), -h) * (rateHz / kTwoPi) : kPi * 0.5;
}

double BandwidthHz(double b, double c, double rateHz) {
  const double d = Discriminant(b, c);
  if (d < 0.0) return -std::log(c) * (rateHz / kTwoPi);
  const double radius = std::fabs(b * 0.5) + std::sqrt(d);
  return -std::log(radius * radius) * (rateHz / kTwoPi);
}

}  // namespace

Formant QuadraticToFormant(double b, double c, double rateHz) {
  return {FrequencyHz(b, c, rateHz), BandwidthHz(b, c, rateHz)};
}

void CollectFormants(const FactorList& factors, double maxBandwidthHz, double rateHz,
                     FormantList& into) {
  into.count = factors.count;
  into.candidates = 0;
  for (const QuadraticFactor& factor : factors.quadratics()) {
    const double bandwidth = BandwidthHz(-factor.u, -factor.v, rateHz);
    if (!(bandwidth <= maxBandwidthHz)) continue;
    const auto entry = static_cast<std::size_t>(into.candidates++);
    into.frequencyHz[entry] = FrequencyHz(-factor.u, -factor.v, rateHz);
    into.bandwidthHz[entry] = bandwidth;
  }
  SortByFrequency(into);
}

void SayConfused(int degreeLeft, std::ostream& errors) {
  errors << "  factor() is confused, " << degreeLeft << '\n';
}

std::optional<FormantList> FindFormants(int order, double maxBandwidthHz, std::span<const double> a,
                                        double rateHz, std::ostream& errors) {
  std::optional<FormantList> result(std::in_place);
  const auto p = static_cast<std::size_t>(std::clamp(order, 0, kMaxLpcOrder));
  a = a.first(std::min(a.size(), p + 1));
  if (!AllFinite(a)) return result;

  FactorList factors;
  if (!FactorPolynomial(a, factors)) {
    SayConfused(factors.degreeLeft, errors);
    return std::nullopt;
  }
  CollectFormants(factors, maxBandwidthHz, rateHz, *result);
  return result;
}

std::optional<FormantList> FindFormants(const LpcResult& lpc, double rateHz, std::ostream& errors) {
  if (!lpc.valid) return FormantList{};
  return FindFormants(lpc.order, kMaxFormantBandwidthHz, lpc.polynomial(), rateHz, errors);
}

}  // namespace cantorix
