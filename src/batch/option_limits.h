// option_limits.h - what the option dialogs refuse is refused on the command line, too, in the same
// words. Values of a settings record that no option touches are left alone.
#pragma once

#include "batch/request.h"
#include "batch/session.h"
#include "settings/settings.h"

namespace cantorix::batch {

// Throws WrongUsage, naming the fields that options set, for a group of settings that these made
// into something that its dialog does not take at any rate.
void RequireDialogLimits(const Request& request, const DocumentSettings& settings);

// Throws WrongUsage when an option asks for a spectrogram beyond what its dialog allows for the
// recording's rate.
void RequireSpectrogramRange(Session& session);

}  // namespace cantorix::batch
