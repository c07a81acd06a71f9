// editing.h - the edit commands: clipboard, cut, paste, clear, gain, smooth, undo. Each stops
// playback, saves the undo file, changes, marks the document modified and refreshes, and leaves the
// document as it was when a step fails. Failures are shown; what is thrown is Abandoned, which ends
// a command silently, and FileError when samples cannot be read.
#pragma once

#include "mainview/sonadex_view.h"

namespace cantorix {

void CopySelection(CSonadexView& view);
void CutSelection(CSonadexView& view);
void Paste(CSonadexView& view);
void ClearToReference(CSonadexView& view);
void ReferenceAndGain(CSonadexView& view);  // asks for the values first
void ApplyReferenceAndGain(CSonadexView& view, const GainSettings& gain);
void Smooth(CSonadexView& view);
void SetReferenceOfAllChannels(CSonadexView& view);
void Undo(CSonadexView& view);

// Saves the undo file. Throws Abandoned when it cannot be created or the user cancels; when it was
// created and not written, says so and the edit goes on without undo.
void SaveUndoFile(CSonadexView& view);

}  // namespace cantorix
