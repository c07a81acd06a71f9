// option_forms.h - the option dialogs as tables: every row with its text, its limits, its message
// and its member of the settings, in the order in which they are shown and judged.
#pragma once

#include <string>
#include <vector>

#include "settings/option_row.h"
#include "settings/settings.h"
#include "settings/transform_sizes.h"

namespace cantorix {

const OptionForm<FftLpcSettings>& FftLpcForm();
const OptionForm<SpectrogramSettings>& SpectrogramForm();
const OptionForm<PitchSettings>& PitchForm();
const OptionForm<IntensitySettings>& IntensityForm();
const OptionForm<DocumentSettings>& ZoomForm();
const OptionForm<DocumentSettings>& LogForm();
const OptionForm<GainSettings>& GainForm();
const OptionForm<GenericParameters>& GenericForm();

// What the forms take, for fields that stand elsewhere.
inline constexpr OptionLimits kSpectrumOrders{4, 100};
inline constexpr std::int32_t kMostTrackingCoefficients = 400;
inline constexpr std::int32_t kLowestRangeHz = 500;

// The first `count` (at most kSpectrogramSizes) entries of a list of bandwidths at `rateHz`: the
// width of one transform line in whole Hz with the points of the transform, 32 points first.
std::vector<std::string> BandwidthTexts(double rateHz, int count);

// The largest frequency range of a spectrogram at `rateHz`: whole kHz, at most half the rate.
std::int32_t SpectrogramRangeLimitHz(double rateHz);

}  // namespace cantorix
