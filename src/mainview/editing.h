// editing.h - the edit commands: clipboard, cut, paste, clear, gain, smooth, undo. Each stops
// playback, saves the undo file, changes, marks the document modified and refreshes, and leaves the
// document as it was when a step fails. Failures are shown; the commands do not throw but for
// Abandoned, which ends a command silently.
#pragma once

#include "mainview/sonadex_view.h"

namespace cantorix {

void CopySelection(CSonadexView& view);
void CutSelection(CSonadexView& view);
void Paste(CSonadexView& view);
void ClearToReference(CSonadexView& view);
void ReferenceAndGain(CSonadexView& view);  // asks for the values first
void ApplyReferenceAndGain(CSonadexView& view, double reference, double gainPercent);
void Smooth(CSonadexView& view);
void SetReferenceOfAllChannels(CSonadexView& view);
void Undo(CSonadexView& view);

// Saves the undo file. Throws Abandoned when it cannot be created or the user cancels; when it was
// created and not written, says so and the edit goes on without undo.
void SaveUndoFile(CSonadexView& view);

}  // namespace cantorix
