// option_limits.h - what the option dialogs refuse is refused without them, too, in the same words.
// Values of a settings record that no option touches are left alone.
#pragma once

#include "document/document.h"
#include "measure/options.h"
#include "settings/settings.h"

namespace cantorix {

// Sets the fields of the assignments. Throws WrongUsage for a field that does not exist, for a text
// that is no value for it and, naming the fields that were set, for a group of settings that these
// made into something that its dialog does not take at any rate.
void ApplyAssignments(const MeasureOptions& options, Settings& settings);

// Throws WrongUsage when an option asks for a spectrogram beyond what its dialog allows for the
// recording's rate.
void RequireSpectrogramRange(const MeasureOptions& options, const CSonadexDoc& document);

}  // namespace cantorix
