// editing.h - the edit commands: clipboard, cut, paste, clear, gain, smooth, undo. Each stops
// playback, saves the undo file, changes, marks the document modified and refreshes, and leaves the
// document as it was when a step fails. What they throw: Abandoned, after the message when there is
// one (a refusal, a cancel, no memory), and FileError when samples cannot be read or written.
// Positions are cut to whole samples, so that what was cut and is pasted where it was brings
// samples, length and labels back exactly. Labels of tiers in use move with the samples, those of
// other tiers stay.
#pragma once

#include <string_view>

#include "mainview/sonadex_view.h"

namespace cantorix {

// The selection into the clipboard, which is emptied first and stays empty after a failure.
void CopySelection(CSonadexView& view);
void CutSelection(CSonadexView& view);
// The clipboard in the place of the selection or, without one, at the cursor; an empty document
// becomes the recording in the clipboard. Does nothing while the clipboard is empty.
void Paste(CSonadexView& view);
void ClearToReference(CSonadexView& view);
void ReferenceAndGain(CSonadexView& view);  // asks for the values first
void ApplyReferenceAndGain(CSonadexView& view, const GainSettings& gain);
// Channel 0 becomes its moving average of three samples.
void Smooth(CSonadexView& view);
// The reference level of every channel becomes the mean of its selection, or of what is visible.
void SetReferenceOfAllChannels(CSonadexView& view);
void Undo(CSonadexView& view);

// What is said when an edit goes on without undo.
inline constexpr std::string_view kUndoNotWritten =
    "Unable to save to a temp. file for Undo function.\nUndo is not available.";

// Saves the undo file for an edit that may change what `scope` says. Throws Abandoned when it
// cannot be created or the user cancels; when it was created and not written, says so and the edit
// goes on without undo.
void SaveUndoFile(CSonadexView& view, UndoScope scope = UndoScope::kSamples);

}  // namespace cantorix
