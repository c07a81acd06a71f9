// spectrum.h - what the FFT/LPC window shows: one frame, or the average over a selection.
// Relies on spectrum_frame.h for the single frame. Does not check the settings against the rate.
//
//   V[0] = v[0],  V[j] = (v[j] + V[j-1]) / 2       the average V of the values v of frame j
//
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/sample_range.h"
#include "analysis/spectrum_frame.h"
#include "platform/progress.h"

namespace cantorix {

// Display point j of P stands for j * maxHz / P.
struct Spectrum {
  std::vector<double> fftDb;  // above the lowest display point
  double fftMaxDb = 0.0;
  double fftMinDb = 0.0;      // 0 once the spectrum is referenced
  std::vector<double> lpcDb;  // the envelope, from 0 upward; of the last frame in an average
  double lpcSpanDb = 0.0;
  FormantValues formants;
  double maxHz = 0.0;

  // Frequency of display point j in Hz.
  double FrequencyHz(std::size_t j) const {
    return static_cast<double>(j) * maxHz / static_cast<double>(fftDb.size());
  }
};

// The frame at sample Truncate(position). Throws FileError.
Spectrum SpectrumOfFrame(SpectrumFrameAnalyser& analyser, double position);

// The running halving average of frames `stepMs` apart, from the start of `selection` (samples) to
// the first frame that reaches its end: every value becomes half the sum of the new one and what
// there was, kNoFormant included. At least one frame is taken; a step that is not positive takes
// no second one. Throws Abandoned when the user cancels, FileError.
Spectrum AverageSpectrum(SpectrumFrameAnalyser& analyser, const SampleRange& selection,
                         double stepMs, Progress& progress);

}  // namespace cantorix
