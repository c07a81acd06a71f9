// lpc_envelope.h - the response of a prediction polynomial over display points.
// Relies on the transform and the spline. Turning it upside down, so that formants are peaks, is
// left to the analyses that show it.
//
//   A[k] = sum of a[i] e^(-2 pi j i k / 256), i = 0 ... p,   L[k] = 10 log10 |A[k]|^2 dB
//
// for the bins k = 0 ... 127 of k rate / 256 Hz each; the model's spectrum is E / |A|^2, with the
// residual energy E (lpc.h).
// Source: [1] J. Makhoul, "Linear prediction: a tutorial review", 1975.
#pragma once

#include <array>
#include <span>

#include "analysis/fft.h"
#include "analysis/lpc.h"
#include "analysis/spline.h"

namespace cantorix {

// What the frames of a run share, and the scratch of one frame: one per thread.
class LpcEnvelopePlan {
 public:
  // displayPoints cover 0 Hz to below maxHz evenly.
  LpcEnvelopePlan(int displayPoints, double maxHz, double rateHz);

  std::size_t displayPoints() const { return grid_.size(); }

 private:
  friend void LpcEnvelopeDb(const LpcResult&, LpcEnvelopePlan&, std::span<double>);

  static constexpr int kTransformLog2 = 8;
  static constexpr std::size_t kPoints = std::size_t{1} << kTransformLog2;

  FftPlan fft_;
  NaturalSpline spline_;
  SplineGrid grid_;
  std::array<double, kPoints> re_, im_;
  std::array<double, kPoints / 2> binsDb_, second_;
};

// Writes displayPoints() levels to the start of `out`: 10 log10 of the power response of A itself,
// without a gain term, from 128 bins (0 for a power of exactly 0) by a natural spline. A frame
// that predicts nothing gives 0 everywhere; coefficients from a[256] on are left out. Throws
// std::invalid_argument when `out` is too short.
void LpcEnvelopeDb(const LpcResult& lpc, LpcEnvelopePlan& plan, std::span<double> out);

}  // namespace cantorix
