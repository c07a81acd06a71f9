// option_commands.h - the entries of the Options menu: a dialog filled from the document's
// settings; what the user confirms goes back into them and, as one group, into the configuration
// file. A file that is missing or of another version stays as it is, without a message.
#pragma once

#include "mainview/sonadex_view.h"
#include "settings/field_table.h"

namespace cantorix {

struct FftLpcSettings;
struct SpectrogramSettings;

void SetFftLpcOptions(CSonadexView& view);
void SetSpectrogramOptions(CSonadexView& view);
void SetPitchOptions(CSonadexView& view);
void SetIntensityOptions(CSonadexView& view);
void SetLogOptions(CSonadexView& view);

// The settings of one dialog were changed: patches the configuration file and draws anew.
void KeepOptions(CSonadexView& view, SettingsDialog dialog);

// The same for this document alone: its points, LPC order and ranges do not go into the file.
void UseInDocument(CSonadexView& view, const SpectrogramSettings& used);
void UseInDocument(CSonadexView& view, const FftLpcSettings& used);
// What the hints of all windows of the recording offer: order and points that are usual at its
// rate.
void UseHints(CSonadexView& view);

}  // namespace cantorix
