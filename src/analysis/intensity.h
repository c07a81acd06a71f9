// intensity.h - level contour of a stretch of samples.
// Relies on a sample source and the progress port. Does not choose the stretch, store or draw.
//
//   L[i] = 10 log10 (1 / W sum of x[j]^2) dB over the samples j = i S ... i S + W of frame i
//   L[i] - min L                                   in relative mode
//
// with the samples x in 16-bit units, the window W = windowMs rate / 1000 + 0.5 and the step
// S = stepMs rate / 1000 in samples, neither rounded, and (length - W) / S frames, truncated.
// Source: [1] L. R. Rabiner, R. W. Schafer, "Digital Processing of Speech Signals", 1978.
#pragma once

#include "analysis/intensity_track.h"
#include "platform/progress.h"
#include "platform/sample_source.h"

namespace cantorix {

struct IntensitySettings;
class Workers;

// Levels in dB re a mean square of 1 in 16-bit sample units (relative mode: re the quietest frame)
// over `range`, whose sample 0 is the recording's sample trunc(range.start); samples outside the
// recording count as 0. A frame of zeros is minus infinity, and in relative mode NaN. No frame
// gives a valid track of zeros. A cancelled run, lack of memory, a window or step that is not
// positive, and a step so far below one sample that the levels would outgrow the recording give an
// invalid result without a track. Throws FileError when the store cannot be read. With `workers`
// long stretches take several threads, to the same digits.
IntensityResult ComputeIntensity(const SampleSource& samples, const SampleRange& range,
                                 double rateHz, const IntensitySettings& settings,
                                 Progress& progress, Workers* workers = nullptr);

}  // namespace cantorix
