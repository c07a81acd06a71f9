// analyses.h - the measurements of an open recording as its settings and some options ask for them:
// the stretch is chosen, what does not fit the recording is refused, and what comes out is the same
// for every front end.
// All throw WrongUsage for options that do not fit the recording, NoResult when nothing comes of
// it, Abandoned when the user cancels, memory runs out or, after a message through the document's
// prompts, when the analysis failed; FileError when the samples cannot be read.
#pragma once

#include <functional>
#include <string>

#include "analysis/intensity_track.h"
#include "analysis/pitch.h"
#include "analysisview/fft_lpc_view.h"
#include "analysisview/spectrogram_view.h"
#include "measure/options.h"

namespace cantorix {

// Told a sentence that the user should know of a result that is good.
using Remark = std::function<void(const std::string&)>;

PitchResult MeasurePitch(CSonadexDoc& document, const MeasureOptions& options);
IntensityResult MeasureIntensity(CSonadexDoc& document, const MeasureOptions& options);

// Into a window of the document. With a usual LPC order the document's settings get it.
void MeasureSpectrum(CSonadexDoc& document, const MeasureOptions& options, const Remark& remark,
                     CFFTLPCView& into);
// With `takeLevels` the levels are given away as they come, without their reference.
void MeasureSpectrogram(CSonadexDoc& document, const MeasureOptions& options, const Remark& remark,
                        CSpectrogramView& into, const LevelTaker& takeLevels = {});
// The formant tracks of a spectrogram without its levels. With a step between the columns they
// stand exactly that far apart, and the stretch ends with the last whole one.
void MeasureFormants(CSonadexDoc& document, const MeasureOptions& options, const Remark& remark,
                     CSpectrogramView& into);

}  // namespace cantorix
