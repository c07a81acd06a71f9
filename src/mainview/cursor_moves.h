// cursor_moves.h - cursor and selection moved from the keyboard and by typed times. What is moved
// comes into sight: the visible stretch keeps its length and is shifted as little as that takes.
// Everything here leaves a playback running and tells the other windows as a release of the mouse
// does. Throw FileError, with the cursor where it was, when the disk store cannot be read.
#pragma once

#include "mainview/sonadex_view.h"

namespace cantorix {

// One step: some pixels of the visible stretch, or the next whole sample.
enum class CursorStep { kPixel, kTenPixels, kSample };
enum class CursorGoal { kStretchStart, kStretchEnd, kStart, kEnd };

// The marker moves and a selection goes; `direction` -1 to the left, 1 to the right. From a
// selection the marker starts at the edge on that side.
void StepMarker(CSonadexView& view, CursorStep step, int direction);
void MoveMarkerTo(CSonadexView& view, CursorGoal goal);
// The edge that was moved last moves; without a selection one begins at the cursor. One that
// shrinks to nothing is a marker again.
void StepSelection(CSonadexView& view, CursorStep step, int direction);
void ExtendSelectionTo(CSonadexView& view, CursorGoal goal);

// The marker at a point of the recording, in sight. No label is selected any more.
void PlaceMarkerInSight(CSonadexView& view, const TimePoint& point);
// Selects [startMs, endMs], ordered and clamped to the recording, with its start in sight.
void SelectInSight(CSonadexView& view, double startMs, double endMs);
// Shifts the visible stretch until it shows the sample; nothing when it does.
void BringIntoSight(CSonadexView& view, double samples);

// Esc: the first that applies. A drag gives back the cursor and selection of before its press, a
// held label its place; then what sounds ends, then label entry mode, then the selection goes.
void StepBack(CSonadexView& view);

}  // namespace cantorix
