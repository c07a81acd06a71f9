// listening.h - what a view's user hears: the stretches behind commands, keys and labels. Each is
// played from the beginning; the one that plays already is stopped instead.
#pragma once

#include "mainview/analysis_commands.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

// Records into the view's document.
void BeginRecording(CSonadexView& view);

// All of the recording, its selection or the visible stretch.
void PlayStretch(CSonadexView& view, Stretch stretch);
void PlaySamples(CSonadexView& view, const SampleRange& range);

// Ends what the view's document records or plays; with nothing to end, plays the selection when one
// is shown, else the visible stretch.
void PlayOrStop(CSonadexView& view);
// False when there was nothing to end.
bool StopSound(CSonadexView& view);

// From a label to the next one of its tier, or to the end of the recording behind the last. A label
// that the tier does not have plays nothing.
void PlayLabel(CSonadexView& view, int tier, int index);
// The label under the last press; nothing in label entry mode, where a click edits it.
void PlayPressedLabel(CSonadexView& view);

}  // namespace cantorix
