// power_spectrum.h - one frame of samples to levels in dB, by bin or by display point.
// Relies on the framer, the transform and the spline. Does not choose the frame, average or find
// formants.
//
//   X[k] = sum of y[i] e^(-2 pi j i k / N), i = 0 ... n - 1     bin k, N >= n a power of two
//   P[k] = |X[k]|^2,  L[k] = 10 log10 P[k] dB                   k = 0 ... n / 2 - 1
//
// with the frame y (framer.h) in 16-bit sample units: 0 dB is a power of 1, and nothing is divided
// by the length or by the window's energy. Bin k stands for k rate / N Hz.
// Source: [1] L. R. Rabiner, R. W. Schafer, "Digital Processing of Speech Signals", 1978.
#pragma once

#include <span>
#include <vector>

#include "analysis/fft.h"
#include "analysis/framer.h"
#include "analysis/spline.h"

namespace cantorix {

struct PowerSpectrumOptions {
  int points;          // n: samples of a frame, 2 ... 2^24; transformed with the next power of two
  double preEmphasis;  // a; 0 or less: none
  bool hamming;        // false: rectangular window
  bool resample;       // display points instead of bins
  int displayPoints;   // P, when resampling
  double maxHz;        // the P points cover 0 Hz to below this one, evenly
  double rateHz;
};

// Distance of the display points in bins of a transform of `points`:
// maxHz / (rateHz * 0.5) * (points * 0.5) / displayPoints.
double DisplayStepBins(double points, double maxHz, double rateHz, int displayPoints);

// The positions 0, step, 2 step, ... of `displayPoints` display points among `bins` bins.
SplineGrid DisplayGrid(std::size_t bins, double stepBins, int displayPoints);

// Everything that the frames of a run share, and the scratch of one frame: one per thread.
class PowerSpectrumPlan {
 public:
  // Throws std::invalid_argument for a number of points outside 2 ... 2^24.
  explicit PowerSpectrumPlan(const PowerSpectrumOptions& options);

  std::size_t inputSize() const;   // samples read: n, and one more with pre-emphasis
  std::size_t outputSize() const;  // values written: n / 2 bins or P display points

 private:
  friend void PowerSpectrumDb(std::span<const double>, PowerSpectrumPlan&, std::span<double>);

  bool resample_;
  FftPlan fft_;
  Framer framer_;
  NaturalSpline spline_;
  SplineGrid grid_;
  std::vector<double> re_, im_, binsDb_, second_;
};

// Windows and transforms the first inputSize() values of `x` and writes outputSize() levels to the
// start of `out`: 10 log10 of the power of each bin, 0 for a power of exactly 0, resampled by a
// natural spline when the options ask for display points. Throws std::invalid_argument when a span
// is too short.
void PowerSpectrumDb(std::span<const double> x, PowerSpectrumPlan& plan, std::span<double> out);

}  // namespace cantorix
