// glottal_source.cpp - Fourier coefficients of the pulse and their sum.
#include "synth/glottal_source.h"

#include <array>
#include <cmath>

#include "synth/exact_math.h"

namespace cantorix::synth {
namespace {

constexpr double kFullTurn = 6.283185307179586476925;

// Where the pulse or one of its derivatives jumps, and by how much.
struct Corner {
  double at;      // fraction of the period
  double first;   // jump of the first derivative
  double second;  // of the second
  double third;   // of the third
};

// With T the opening and D the closing fraction the pulse is 3(t/T)^2 - 2(t/T)^3 up to T, then
// 1 - ((t-T)/D)^2 up to T + D, then 0.
std::array<Corner, 3> CornersOf(double opening, double closing) {
  const double open2 = 6.0 / (opening * opening);
  const double open3 = 12.0 / (opening * opening * opening);
  const double close2 = 2.0 / (closing * closing);
  return {Corner{0.0, 0.0, open2, -open3}, Corner{opening, 0.0, open2 - close2, open3},
          Corner{opening + closing, 2.0 / closing, close2, 0.0}};
}

}  // namespace

GlottalSource::GlottalSource(double openingFraction, double closingFraction, double rateHz,
                             double lowestHz)
    : fadeStartHz_(0.90 * 0.5 * rateHz), fadeEndHz_(0.98 * 0.5 * rateHz) {
  const auto corners = CornersOf(openingFraction, closingFraction);
  harmonics_.resize(static_cast<std::size_t>(fadeEndHz_ / lowestHz));
  // Integrating by parts leaves the jumps only: a jump J of the m-th derivative at t adds
  // J e^(-iwt) / (iw)^(m+1), w = 2 pi k.
  for (std::size_t i = 0; i < harmonics_.size(); ++i) {
    const double k = static_cast<double>(i + 1);
    const double w = kFullTurn * k;
    for (const Corner& corner : corners) {
      const SinCos angle = OfTurns(k * corner.at);
      const double re = (corner.third / (w * w) - corner.first) / (w * w);
      const double im = corner.second / (w * w * w);
      harmonics_[i].re += re * angle.cos + im * angle.sin;
      harmonics_[i].im += im * angle.cos - re * angle.sin;
    }
  }
}

double GlottalSource::Weight(double hz) const {
  if (hz <= fadeStartHz_) return 1.0;
  return (fadeEndHz_ - hz) / (fadeEndHz_ - fadeStartHz_);
}

double GlottalSource::Flow(double turns, double f0Hz) const {
  const SinCos step = OfTurns(turns);
  SinCos angle;
  angle.cos = 1.0;
  double sum = 0.0;
  double hz = f0Hz;
  for (const Coefficient& c : harmonics_) {
    if (hz >= fadeEndHz_) break;
    angle = {angle.sin * step.cos + angle.cos * step.sin,
             angle.cos * step.cos - angle.sin * step.sin};
    sum += Weight(hz) * (c.re * angle.cos - c.im * angle.sin);
    hz += f0Hz;
  }
  return 2.0 * sum;
}

}  // namespace cantorix::synth
