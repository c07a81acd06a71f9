// cepstral_pitch.h - the pitch of one frame from the peak of its power cepstrum.
// Relies on the transform, the window, the log spectrum and the peak search. The driver in
// pitch.cpp places the frames and decides which estimates to trust.
//
//   X[k] = sum of w[i] x[i] e^(-2 pi j i k / N), i = 0 ... W - 1    w Hamming, k = 0 ... N - 1
//   L[k] = 10 log10 |X[k]|^2 dB, 0 dB where X[k] is 0
//   C[q] = |sum of L[k] e^(-2 pi j k q / N)|^2, k = 0 ... N - 1     quefrency q in samples
//   f0 = rate / q0 Hz,  q0 in tenths of a sample where C is greatest, rate / high <= q0 < rate /
//   low
//
// with the samples x of a frame of W, transforms of N points, and C between whole quefrencies from
// a natural spline (spline.h).
// Source: [1] A. M. Noll, "Cepstrum pitch determination", 1967.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "analysis/cepstral_peak.h"
#include "analysis/fast_cepstrum.h"
#include "analysis/fft.h"
#include "analysis/quefrency_range.h"
#include "analysis/sample_window.h"

namespace cantorix {

struct CepstralOptions {
  double rateHz;
  double lowHz, highHz;        // calculation range, both ends included
  std::int64_t points;         // N of the transforms: 128, 256, 512, 1024, 2048 or 4096
  std::int64_t windowSamples;  // W, 0 ... N
};

// What the frames of a run share: tables, scratch, and the frame buffer, whose content a frame
// near the end of the recording may inherit. Starts zeroed. One per run and thread.
class CepstralWorkspace {
 public:
  explicit CepstralWorkspace(const CepstralOptions& options);

  // Whether the frame that starts at sample `frameStart` of `totalSamples` owes nothing to the one
  // before it.
  bool IsFree(double frameStart, double totalSamples) const;
  // Frames whose peak only the stated arithmetic could decide.
  std::int64_t exactFrames() const { return exactFrames_; }
  // Computes every frame in the stated arithmetic.
  void UseExactOnly() { exactOnly_ = true; }

 private:
  friend double CepstralPitch(SampleWindow&, double, double, CepstralWorkspace&);

  void FillFrame(SampleWindow& samples, double frameStart, double totalSamples);
  bool IsSilent() const;
  void FindPowerSpectrum();
  void FindCepstrum();
  std::span<double> Inside();
  std::optional<std::size_t> FindPeak();
  double PitchAt(std::size_t peak) const;

  CepstralOptions options_;
  bool supported_;
  QuefrencyRange range_;
  FftPlan fft_;
  FastCepstrum fast_;
  std::vector<double> window_, frame_, re_, im_, power_, cepstrum_;
  CepstralPeak peak_;
  std::int64_t exactFrames_ = 0;
  bool exactOnly_ = false;
};

// The estimate in Hz of the frame that starts at sample `frameStart` of a recording of
// `totalSamples` (both may have a fraction): 0 when it is unvoiced, -1 when the workspace's number
// of points or window is not supported. `samples` counts from sample 0 of the recording; samples
// outside it count as 0. Throws FileError.
double CepstralPitch(SampleWindow& samples, double frameStart, double totalSamples,
                     CepstralWorkspace& workspace);

}  // namespace cantorix
