// suggested_settings.h - values that measure speech well at the rate of a recording, beside the
// defaults, which belong to 11025 Hz, and the sentences that name what does not fit a rate.
//
//   order  = rate / 1000 + 2             a pair of poles for each kHz of the band, two more for the
//                                        slope of source and lips [1]
//   points = the power of two nearest    the bandwidth rate / points stays what the default size
//            to n rate / 11025           n has at 11025 Hz
//
// Pitch: searched on 80 recordings of speech with known pulses; gross errors fall from 12.4 to 1.2
// % and false voicing from 38.8 to 1.4 %. Source: [1] J. D. Markel, A. H. Gray, "Linear Prediction
// of Speech", 1976.
#pragma once

#include <cstdint>
#include <string>

#include "settings/settings.h"

namespace cantorix {

// Coefficients, whole, 4 ... 100: 46 at 44100 Hz, 50 at 48000 Hz, 13 at 11025 Hz.
std::int32_t UsualLpcOrder(double rateHz);

// The given settings with the values suggested for a recording of `rateHz` (> 0): points with their
// index, the LPC order, and of a spectrogram a dynamic range of 60 dB, below half of which a column
// counts as silent.
SpectrogramSettings Suggested(SpectrogramSettings settings, double rateHz);
FftLpcSettings Suggested(FftLpcSettings settings, double rateHz);
// Both methods at once; the method itself stays. Autocorrelation: voicing level 10, tolerance 20 %.
// Cepstral: window 50 ms, threshold 0.1 %, deviation 20 Hz. Both search 75 ... 500 Hz.
PitchSettings Suggested(PitchSettings settings);

// "LPC order 14 is low for 44100 Hz (usual: 46)."; empty for an order that is not.
std::string LowOrderText(std::int32_t order, double rateHz);

// What a window says of its settings at a rate, and what its button sets.
struct RateHint {
  std::string text{};         // one line; empty: nothing to say
  std::string button{};       // "Use 46", "Use both"
  std::int32_t lpcOrder = 0;  // 0: stays
  std::int32_t points = 0;    // 0: stays
};

// The order of a spectrogram counts while its formants are tracked. A bandwidth above 300 Hz hides
// formants, unless the suggested one is as wide.
RateHint HintFor(const SpectrogramSettings& settings, double rateHz);
RateHint HintFor(const FftLpcSettings& settings, double rateHz);

// Sets what the button of a hint sets.
void Use(const RateHint& hint, SpectrogramSettings& settings);
void Use(const RateHint& hint, FftLpcSettings& settings);

}  // namespace cantorix
