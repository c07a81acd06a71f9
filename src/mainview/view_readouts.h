// view_readouts.h - the numbers of a view's readout strip, taken from cursor, selection and tracks.
// CSonadexView asks for them at every change that they depend on; readout_texts.h words them.
#pragma once

#include "mainview/sonadex_view.h"

namespace cantorix {

// Cursor time, pitch and intensity there, and the length of the selection: 0 without one, but
// while the button is held the length of the drag. A cursor or selection beyond the recording
// counts as at its end.
void ReadCursor(CSonadexView& view);

// The average pitch over the selection; 0 when none is shown.
void ReadSelection(CSonadexView& view);

}  // namespace cantorix
