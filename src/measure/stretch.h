// stretch.h - the stretch that --from and --to choose and the place that --at names, and the one
// rule for what of a recording they may name.
#pragma once

#include "analysis/sample_range.h"
#include "document/channel.h"
#include "measure/options.h"

namespace cantorix {

// Whether a time lies in the recording, or behind its end by no more than the rounding of a time
// that was taken from a table.
bool IsInRecording(const CChannel& channel, double ms);

// Throws WrongUsage, with the recording's length, for a time that is no number, for one outside the
// recording, and for a stretch that ends before it starts or holds no sample.
void RequireStretch(const MeasureOptions& options, const CChannel& channel);

// The stretch in samples, the whole recording without one.
SampleRange StretchOf(const MeasureOptions& options, const CChannel& channel);

}  // namespace cantorix
