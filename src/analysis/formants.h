// formants.h - formant frequencies and bandwidths from the roots of a prediction polynomial.
// Relies on polynomial_factors.h for the roots. Which candidates count as F1, F2, ... is left to
// the analyses that show them. Source: J. D. Markel, A. H. Gray, "Linear Prediction of Speech",
// 1976.
#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <span>

#include "analysis/lpc.h"

namespace cantorix {

// Widest resonance that the analyses accept as a formant candidate, Hz.
inline constexpr double kMaxFormantBandwidthHz = 600.0;

struct FormantList {
  std::int32_t count = 0;       // quadratic factors found
  std::int32_t candidates = 0;  // those narrow enough, in the first entries below
  std::array<double, kMaxLpcOrder / 2> frequencyHz{};  // ascending
  std::array<double, kMaxLpcOrder / 2> bandwidthHz{};
};

struct Formant {
  double frequencyHz;
  double bandwidthHz;
};

// The resonance of the factor z^2 + b z + c at `rateHz`. A complex pair gives its angle and its
// radius; two real roots give 0 or half the rate and the radius of the larger one.
Formant QuadraticToFormant(double b, double c, double rateHz);

// The resonances of a[0] z^order + ... + a[order] no wider than `maxBandwidthHz`. Real roots are
// dropped on the way, except in a last quadratic. A polynomial with a coefficient that is not
// finite has no resonances. Orders are cut to 0 ... kMaxLpcOrder and to the coefficients given.
// When the factoring fails, says so on `errors` and returns nothing.
std::optional<FormantList> FindFormants(int order, double maxBandwidthHz, std::span<const double> a,
                                        double rateHz, std::ostream& errors);
// The same with the message on the standard error stream.
std::optional<FormantList> FindFormants(int order, double maxBandwidthHz, std::span<const double> a,
                                        double rateHz);

// The candidates of an analysed frame: none for a frame that predicts nothing.
std::optional<FormantList> FindFormants(const LpcResult& lpc, double rateHz, std::ostream& errors);

}  // namespace cantorix
