// formants.h - formant frequencies and bandwidths from the roots of a prediction polynomial.
// Relies on polynomial_factors.h for the roots. Which candidates count as F1, F2, ... is left to
// the analyses that show them.
//
//   z^2 + b z + c = (z - r e^(j phi)) (z - r e^(-j phi)),  b = -2 r cos phi,  c = r^2
//   F = phi rate / (2 pi) Hz,  B = -ln(r^2) rate / (2 pi) Hz
//
// for a pair of radius r and angle phi = atan2(sqrt(c - b^2 / 4), -b / 2): frequency F and
// bandwidth B of a resonance whose impulse response falls as e^(-pi B t).
// Sources: [1] B. S. Atal, S. L. Hanauer, "Speech analysis and synthesis by linear prediction of
// the speech wave", 1971; [2] J. D. Markel, A. H. Gray, "Linear Prediction of Speech", 1976.
#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <span>

#include "analysis/lpc.h"
#include "analysis/polynomial_factors.h"

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

// The resonances of factors, no wider than `maxBandwidthHz`. Overwrites the counts and as many
// entries of `into` as it counts.
void CollectFormants(const FactorList& factors, double maxBandwidthHz, double rateHz,
                     FormantList& into);

// What is said of a polynomial when a degree of it withstood the factoring.
void SayConfused(int degreeLeft, std::ostream& errors);

// The resonances of a[0] z^order + ... + a[order] no wider than `maxBandwidthHz`. Real roots are
// dropped on the way, except in a last quadratic. A polynomial with a coefficient that is not
// finite has no resonances. Orders are cut to 0 ... kMaxLpcOrder and to the coefficients given.
// When the factoring fails, says so on `errors` and returns nothing.
std::optional<FormantList> FindFormants(int order, double maxBandwidthHz, std::span<const double> a,
                                        double rateHz, std::ostream& errors);
// The candidates of an analysed frame: none for a frame that predicts nothing.
std::optional<FormantList> FindFormants(const LpcResult& lpc, double rateHz, std::ostream& errors);

}  // namespace cantorix
