// mouse.h - the left button in the main view: a press places the cursor, a drag of more than
// kClickPixels selects, or moves the edge of the selection that it began on, a drag of a label in
// label entry mode moves that. What is typed is kept before a press. The same for the pointer of
// another window, by the time under it.
#pragma once

#include <cstdint>

#include "mainview/sonadex_view.h"

namespace cantorix {

// Client pixels. A press that ends a recording does nothing else. A press outside the client area
// or without a recording is ignored, and then so are the move and the release that follow it. Throw
// FileError when the store cannot be read and Abandoned when the user gives up an edit of a label.
void PressMouse(CSonadexView& view, std::int32_t x, std::int32_t y);
// With Shift: the nearer edge of the selection, or from the cursor on a new one, goes there and
// follows the pointer.
void PressToExtend(CSonadexView& view, std::int32_t x, std::int32_t y);
// A dragged label snaps (label_snap.h) or not.
enum class Snap { kOn, kOff };
void MoveMouse(CSonadexView& view, std::int32_t x, std::int32_t y, Snap snap = Snap::kOn);
void ReleaseMouse(CSonadexView& view, std::int32_t x, std::int32_t y, Snap snap = Snap::kOn);

// On behalf of another window; no label is touched.
void PressAtTime(CSonadexView& view, double ms);
void MoveAtTime(CSonadexView& view, double ms);  // or release there
// The pointer of a window that does not track: it leaves no more than a line at that time.
void ShowPointerAtTime(CSonadexView& view, double ms);

}  // namespace cantorix
