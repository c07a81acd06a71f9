// mouse.cpp
#include "mainview/mouse.h"

#include <cstdlib>

#include "mainview/label_commands.h"
#include "mainview/time_axis.h"
#include "mainview/track_lookup.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

bool InsideClient(const CSonadexView& view, std::int32_t x, std::int32_t y) {
  const PixelSize& client = view.layout.client;
  return x >= 0 && y >= 0 && x < client.width && y < client.height;
}

// The pixel of a time as if the pointer were there.
std::int32_t PointerAt(CSonadexView& view, double ms) {
  return TruncateToInt32(TimeToPixel(view.channel(), ms)) + kLeftMargin;
}

void WriteDurationAndCursor(CSonadexView& view) {
  view.readouts.durationMs = view.channel().selectionLength.ms;
  view.readouts.cursorMs = view.channel().cursor.ms;
}

// What every press does before the cursor is placed. A press on a view that shows a selection only
// removes it; the next one places a marker.
void BeginPress(CSonadexView& view, std::int32_t x) {
  view.StopPlayback();
  view.press.x = x;
  view.press.moved = false;
  view.press.draggedLabel = false;
  view.markerSet = !view.selectionShown;
  view.selectionShown = false;
  view.document().hasSelection = false;
}

// After the cursor was placed.
void FinishPress(CSonadexView& view) {
  CChannel& channel = view.channel();
  channel.dragPoint = channel.cursor;
  UpdateSelection(channel);
  view.pressedMs = channel.cursor.ms;
  WriteDurationAndCursor(view);
  view.Changed(DocumentChange::kCursor);
}

// After the drag point was set: more than a few pixels away the press becomes a selection for good.
void Drag(CSonadexView& view, std::int32_t x) {
  UpdateSelection(view.channel());
  if (std::abs(x - view.press.x) > kClickPixels) view.press.moved = true;
  if (view.press.moved) {
    view.selectionShown = true;
    view.document().hasSelection = true;
    view.markerSet = false;
  }
  WriteDurationAndCursor(view);
}

void FinishRelease(CSonadexView& view) {
  const CChannel& channel = view.channel();
  const double cursorMs = channel.cursor.ms;
  if (view.markerSet) {
    view.readouts.pitchHz = PitchAt(view.pitch, channel, cursorMs);
    view.readouts.intensityDb = IntensityAt(channel.intensity, channel, cursorMs);
    view.readouts.durationMs = 0.0;
  }
  view.readouts.averagePitchHz =
      AveragePitch(view.pitch, channel, channel.selectionStart.ms, channel.selectionEnd.ms);
  view.Changed(DocumentChange::kCursor);
}

void SetDragPointAt(CSonadexView& view, std::int32_t x, std::int32_t y) {
  SetDragPoint(view.channel(), x - kLeftMargin, x, y);
}

}  // namespace

void PressMouse(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (!view.document().loaded || !InsideClient(view, x, y)) return;
  BeginPress(view, x);
  view.press.held = true;
  HitTestLabels(view, x, y);
  view.press.draggedLabel = view.labelEntry.enabled && view.labelEntry.pressedLabel >= 0;
  SetCursorAtPixel(view.document(), x - kLeftMargin);
  FinishPress(view);
  view.services().listener.CursorMoved(MousePhase::kPress, view.pressedMs);
}

void MoveMouse(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (!view.press.held) return;
  if (view.press.draggedLabel) {
    if (std::abs(x - view.press.x) > kClickPixels) view.press.moved = true;
    DragLabel(view, x, y);
    return view.Redraw();
  }
  SetDragPointAt(view, x, y);
  Drag(view, x);
  view.Changed(DocumentChange::kCursor);
  view.services().listener.CursorMoved(MousePhase::kMove, view.pressedMs);
}

void ReleaseMouse(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (!view.press.held) return;
  view.press.held = false;
  if (!view.press.draggedLabel) {
    SetDragPointAt(view, x, y);
    Drag(view, x);
  }
  FinishRelease(view);
  view.services().listener.CursorMoved(MousePhase::kRelease, view.pressedMs);
  if (view.labelEntry.enabled && !view.selectionShown) FinishLabelPress(view, x, y);
}

void PressAtTime(CSonadexView& view, double ms) {
  if (!view.document().loaded) return;
  BeginPress(view, PointerAt(view, ms));
  SetCursorAtTime(view.document(), ms);
  FinishPress(view);
}

void MoveAtTime(CSonadexView& view, double ms) {
  if (!view.document().loaded) return;
  const std::int32_t x = PointerAt(view, ms);
  SetDragPointAt(view, x, 0);
  Drag(view, x);
  view.Changed(DocumentChange::kCursor);
}

void ReleaseAtTime(CSonadexView& view, double ms) {
  if (!view.document().loaded) return;
  const std::int32_t x = PointerAt(view, ms);
  SetDragPointAt(view, x, 0);
  Drag(view, x);
  FinishRelease(view);
}

}  // namespace cantorix
