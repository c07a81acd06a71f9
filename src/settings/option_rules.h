// option_rules.h - what the option dialogs offer and refuse, as functions of numbers.
// A refusal is the message to show; the dialog then stays open with its values as typed. Tests run
// in the order of the fields of each function's comment and the first failure counts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "settings/settings.h"

namespace cantorix {

inline constexpr int kFftLpcSizes = 8;       // 32 to 4096 points
inline constexpr int kSpectrogramSizes = 9;  // 32 to 8192 points

// The first `count` (at most kSpectrogramSizes) entries of a list of bandwidths at `rateHz`: the
// width of one transform line in whole Hz with the points of the transform, 32 points first.
std::vector<std::string> BandwidthTexts(double rateHz, int count);

// The largest frequency range of a spectrogram at `rateHz`: whole kHz, at most half the rate.
std::int32_t SpectrogramRangeLimitHz(double rateHz);

// LPC number of coefficients 4 to 100.
std::optional<std::string> FftLpcRefusal(const FftLpcSettings& entered);

// Calculation range from 50 Hz and 200 Hz wide, then the display range likewise.
std::optional<std::string> PitchRefusal(const PitchSettings& entered);

// Pre-emphasis 0 to 1, frequency range 500 Hz to the limit at `rateHz`, coefficients up to 400.
std::optional<std::string> SpectrogramRefusal(const SpectrogramSettings& entered, double rateHz);

}  // namespace cantorix
