// track_lookup.h - values of the pitch and intensity tracks at a time, as readouts and log take
// them: entry k = trunc((t - a) x n / (b - a)) of n entries that span [a, b] ms, 0 outside.
#pragma once

#include "analysis/intensity_track.h"
#include "analysis/pitch.h"
#include "document/channel.h"

namespace cantorix {

// 0 where the track is absent.
double PitchAt(const PitchResult& pitch, const CChannel& channel, double ms);
double IntensityAt(const IntensityResult& intensity, const CChannel& channel, double ms);

// The running mean over the voiced entries between two times, ends included: each later value v
// replaces the mean r by (v + r) x 0.5. 0 without a voiced entry.
double AveragePitch(const PitchResult& pitch, const CChannel& channel, double startMs,
                    double endMs);

}  // namespace cantorix
