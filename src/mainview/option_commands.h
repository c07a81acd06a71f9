// option_commands.h - the entries of the Options menu: a dialog filled from the document's
// settings; what the user confirms goes back into them and, as one group, into the configuration
// file. A file that is missing or of another version stays as it is, without a message.
#pragma once

#include "mainview/sonadex_view.h"
#include "settings/field_table.h"

namespace cantorix {

void SetFftLpcOptions(CSonadexView& view);
void SetSpectrogramOptions(CSonadexView& view);
void SetPitchOptions(CSonadexView& view);
void SetIntensityOptions(CSonadexView& view);
void SetLogOptions(CSonadexView& view);

// The settings of one dialog were changed: patches the configuration file and draws anew.
void KeepOptions(CSonadexView& view, SettingsDialog dialog);

}  // namespace cantorix
