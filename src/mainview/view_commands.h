// view_commands.h - what the commands of zoom, scroll, mouse and analysis do to a view: the rules
// of the files beside it in their order, with playback stopped first and the drawing made stale.
#pragma once

#include <cstdint>

#include "mainview/sonadex_view.h"
#include "mainview/zoom.h"

namespace cantorix {

void ZoomView(CSonadexView& view, Zoom zoom);
void ZoomViewToTime(CSonadexView& view, double ms);
void ScrollView(CSonadexView& view, ScrollRequest request, std::int32_t trackPosition);
void ScrollViewVertically(CSonadexView& view, ScrollRequest request, std::int32_t trackPosition);
// One line right for a forward turn (positive), one line left for a backward one.
void TurnWheel(CSonadexView& view, std::int32_t delta);

// Brings scroll bar, `zoomed` and the visible ms in step with the channel's stretch, as after a
// zoom, and makes the drawing stale. For every change of the recording's length or stretch.
void FollowStretch(CSonadexView& view);
// The visible stretch again from the scroll bar's position, after samples came or went.
void FollowScrollBar(CSonadexView& view);

// The left button in client pixels.
void PressMouse(CSonadexView& view, std::int32_t x, std::int32_t y);
void MoveMouse(CSonadexView& view, std::int32_t x, std::int32_t y);
void ReleaseMouse(CSonadexView& view, std::int32_t x, std::int32_t y);
// The same on behalf of another window, at the time under its pointer.
void PressAtTime(CSonadexView& view, double ms);
void MoveAtTime(CSonadexView& view, double ms);
void ReleaseAtTime(CSonadexView& view, double ms);

void SelectWindow(CSonadexView& view);
void SelectAll(CSonadexView& view);
// Selection of every channel and of the flags to none.
void DropSelection(CSonadexView& view);

// Pitch of a stretch into view.pitch, intensity of it into the channel.
enum class Stretch { kAll, kSelection, kWindow };
void AnalysePitch(CSonadexView& view, Stretch stretch);
void AnalyseIntensity(CSonadexView& view, Stretch stretch);
// "Pitch All" when the automatic-pitch setting is on; else drops the tracks, which no longer fit.
void AnalyseAfterEdit(CSonadexView& view);

}  // namespace cantorix
