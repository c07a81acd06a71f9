// analysis_commands.h - pitch and intensity of a stretch of the view's recording: the pitch track
// goes to the view, the intensity track to the channel.
#pragma once

#include "analysis/sample_range.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

enum class Stretch { kAll, kSelection, kWindow };

// In samples, clamped to the recording.
SampleRange StretchOf(const CSonadexView& view, Stretch stretch);

// Pitch and intensity of a stretch. A run that is cancelled leaves no track, and a pitch run
// without one is followed by no intensity run; settings that do not fit are reported. Throws
// FileError, without a track, when the store cannot be read.
void AnalysePitch(CSonadexView& view, Stretch stretch);
// The same of samples inside the recording.
void AnalysePitch(CSonadexView& view, const SampleRange& range);
// Intensity alone.
void AnalyseIntensity(CSonadexView& view, Stretch stretch);
void AnalyseIntensity(CSonadexView& view, const SampleRange& range);

}  // namespace cantorix
