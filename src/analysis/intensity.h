// intensity.h - level contour of a stretch of samples.
// Relies on a sample source and the progress port. Does not choose the stretch, store or draw.
#pragma once

#include "analysis/intensity_track.h"
#include "platform/progress.h"
#include "platform/sample_source.h"
#include "settings/settings.h"

namespace cantorix {

// Levels in dB re a mean square of 1 in 16-bit sample units (relative mode: re the quietest frame)
// over `range`. A frame of zeros is minus infinity, and in relative mode NaN. A cancelled run gives
// an invalid result without a track.
IntensityResult ComputeIntensity(const SampleSource& samples, const SampleRange& range,
                                 double rateHz, const IntensitySettings& settings,
                                 Progress& progress);

}  // namespace cantorix
