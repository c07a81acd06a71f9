// view_commands.h - what the commands of zoom, scroll and selection do to a view: the rules of the
// files beside it in their order, with the drawing made stale. Zooms and the wheel stop playback
// first; the scroll bars and selections leave it running.
#pragma once

#include <cstdint>

#include "mainview/sonadex_view.h"
#include "mainview/zoom.h"

namespace cantorix {

void ZoomView(CSonadexView& view, Zoom zoom);
// The stretch of the zoom option around a time.
void ZoomViewToTime(CSonadexView& view, double ms);
// Asks for the duration of "From Cursor for Duration" and keeps it in the configuration.
void SetZoomRange(CSonadexView& view);

void ScrollView(CSonadexView& view, ScrollRequest request, std::int32_t trackPosition = 0);
void ScrollViewVertically(CSonadexView& view, ScrollRequest request,
                          std::int32_t trackPosition = 0);
// One line right for a forward turn (positive), one line left for a backward one.
void TurnWheel(CSonadexView& view, std::int32_t delta);
// The visible stretch again from the scroll bar's position, after samples came or went.
void FollowScrollBar(CSonadexView& view);

void SelectWindow(CSonadexView& view);
void SelectAll(CSonadexView& view);
// Selects [startMs, endMs], ordered and clamped to the recording, as a drag over it does.
void SelectSpan(CSonadexView& view, double startMs, double endMs);
// Places the cursor and a marker, as a click there does. Throws FileError.
void PlaceMarker(CSonadexView& view, double ms);
// No selection in any channel, selection flags and `markerSet` false; the cursor stays.
void DropSelection(CSonadexView& view);

}  // namespace cantorix
