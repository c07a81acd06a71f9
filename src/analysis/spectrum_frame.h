// spectrum_frame.h - the FFT spectrum, the LPC envelope and the formants of one frame.
// Relies on the power spectrum, linear prediction and the formant search. Which frames are taken,
// and what several of them average to, is spectrum.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <span>
#include <vector>

#include "analysis/formant_selection.h"
#include "analysis/frame_reader.h"
#include "analysis/framer.h"
#include "analysis/lpc_envelope.h"
#include "analysis/power_spectrum.h"

namespace cantorix {

struct SpectrumFrameOptions {
  int points;          // of the transform: 32 ... 8192, a power of two
  double windowMs;     // applied window: the samples of the frame that are used
  int lpcOrder;        // coefficients, and the length of the LPC frame in ms
  double maxHz;        // the display points cover 0 Hz to below this one
  double preEmphasis;  // 0 or less adds nothing
  double rateHz;
  int displayPoints;
};

inline constexpr double kNoFormant = -1.0;

struct FormantValues {
  FormantValues() {
    frequencyHz.fill(kNoFormant);
    bandwidthHz.fill(kNoFormant);
  }
  std::array<double, kFormants> frequencyHz;  // F1 ... F5, kNoFormant
  std::array<double, kFormants> bandwidthHz;
};

// Everything that the frames of a run share; all working memory is taken by the constructor.
class SpectrumFrameAnalyser {
 public:
  // `samples` must outlive the analyser. What the formant search has to say goes to `errors`.
  // Throws std::bad_alloc, std::invalid_argument for a number of points out of range.
  SpectrumFrameAnalyser(const SampleSource& samples, const SpectrumFrameOptions& options,
                        std::ostream& errors);

  const SpectrumFrameOptions& options() const { return options_; }

  // Levels in dB at the display points, into the first displayPoints entries of `fftDb`. The frame
  // starts at sample Truncate(start); only the applied window of it is used, and what lies past the
  // end of the recording reads 0. Throws FileError.
  void FrameFft(double start, std::span<double> fftDb);

  // The LPC envelope with its formants as peaks, from 0 dB upward, and the formants; a frame whose
  // polynomial cannot be factored has none. Returns the largest less the smallest level of the
  // envelope. Throws FileError.
  double FrameLpc(double start, std::span<double> envelopeDb, FormantValues& formants);

 private:
  SpectrumFrameOptions options_;
  std::ostream& errors_;
  FrameReader reader_;
  std::size_t appliedWindow_;  // samples
  PowerSpectrumPlan spectrum_;
  Framer framer_;
  LpcEnvelopePlan envelope_;
  LpcResult lpc_;
  std::vector<double> fftInput_, lpcInput_;
};

// Turns an inverse filter's response upside down and lifts it so that its smallest level is 0.
// Returns its span.
double OrientEnvelope(std::span<double> envelopeDb);

}  // namespace cantorix
