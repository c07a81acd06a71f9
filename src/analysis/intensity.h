// intensity.h - level contour of a stretch of samples.
// Relies on a sample source and the progress port. Does not choose the stretch, store or draw.
#pragma once

#include "analysis/intensity_track.h"
#include "platform/progress.h"
#include "platform/sample_source.h"
#include "settings/settings.h"

namespace cantorix {

// Levels in dB re a mean square of 1 in 16-bit sample units (relative mode: re the quietest frame)
// over `range`, whose sample 0 is the recording's sample trunc(range.start); samples outside the
// recording count as 0. Frames last windowMs x rate / 1000 + 0.5 samples, start every stepMs x rate
// / 1000 from the start of the range and are computed while more than one fits. A frame of zeros is
// minus infinity, and in relative mode NaN. No frame gives a valid track of zeros.
// A cancelled run, lack of memory, a window or step that is not positive, and a step so far below
// one sample that the levels would outgrow the recording give an invalid result without a track.
// Throws FileError when the store cannot be read.
IntensityResult ComputeIntensity(const SampleSource& samples, const SampleRange& range,
                                 double rateHz, const IntensitySettings& settings,
                                 Progress& progress);

}  // namespace cantorix
