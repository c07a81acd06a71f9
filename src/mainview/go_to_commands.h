// go_to_commands.h - the commands that put cursor and selection at typed times or at a crossing of
// zero. What they cannot do they say.
#pragma once

#include "mainview/sonadex_view.h"

namespace cantorix {

// "Go to": asks for a time and places the marker there. A text that is no time, or one beyond the
// recording, is answered with a message, and the question stays.
void GoToTypedTime(CSonadexView& view);
// "Select": the same with two times, or a time and a length.
void SelectTypedTimes(CSonadexView& view);

// The cursor, or both edges of the selection, to the nearest crossing of the reference level; where
// it leads or why it does not is said. Throws FileError, and Abandoned when the user cancels.
void MoveToZeroCrossing(CSonadexView& view);

}  // namespace cantorix
