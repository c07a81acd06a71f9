// mouse.cpp
#include "mainview/mouse.h"

#include <algorithm>
#include <cstdlib>

#include "mainview/label_commands.h"
#include "mainview/time_axis.h"
#include "mainview/view_readouts.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr double kFarPixels = 100'000'000.0;  // beyond any window, safe to subtract

bool InsideClient(const CSonadexView& view, std::int32_t x, std::int32_t y) {
  const PixelSize& client = view.layout.client;
  return x >= 0 && y >= 0 && x < client.width && y < client.height;
}

bool MovedFar(std::int32_t from, std::int32_t to) { return std::abs(to - from) > kClickPixels; }

// The pixel column of a time as if the pointer were there.
std::int32_t PointerAt(CSonadexView& view, double ms) {
  const double pixel = TimeToPixel(view.channel(), ms);
  return TruncateToInt32(std::clamp(pixel, -kFarPixels, kFarPixels)) + kLeftMargin;
}

// After the cursor was placed. A press on a view that shows a selection only removes it; the next
// one places a marker.
void BeginPress(CSonadexView& view, const PressState& press) {
  CChannel& channel = view.channel();
  view.press = press;
  view.markerSet = !view.selectionShown;
  view.selectionShown = false;
  view.document().hasSelection = false;
  channel.dragPoint = channel.cursor;
  UpdateSelection(channel);
  view.pressedMs = channel.cursor.ms;
  view.Changed(DocumentChange::kCursor);
}

// After the drag point was set: more than a few pixels away the press becomes a selection for good.
void Drag(CSonadexView& view, std::int32_t x) {
  UpdateSelection(view.channel());
  if (MovedFar(view.press.x, x)) view.press.moved = true;
  if (!view.press.moved) return;
  view.selectionShown = true;
  view.document().hasSelection = true;
  view.markerSet = false;
}

// A label is dragged up and down as well: its place in the tier counts.
void DragPressedLabel(CSonadexView& view, std::int32_t x, std::int32_t y) {
  PressState& press = view.press;
  if (MovedFar(press.x, x) || MovedFar(press.y, y)) press.moved = true;
  if (press.moved) DragLabel(view, x, y);
}

void FollowPointer(CSonadexView& view, std::int32_t x, std::int32_t y) {
  view.PlaceLayout();
  if (view.press.draggedLabel) return DragPressedLabel(view, x, y);
  SetDragPoint(view.channel(), x - kLeftMargin, x, y);
  Drag(view, x);
}

// The drag point takes the time itself: by way of whole pixels the selection would differ from the
// one in the other window.
void FollowTime(CSonadexView& view, double ms) {
  view.PlaceLayout();
  CChannel& channel = view.channel();
  const std::int32_t x = PointerAt(view, ms);
  channel.dragPoint = channel.PointAtTime(ms);
  channel.dragX = x;
  channel.dragY = 0;
  Drag(view, x);
}

void FinishRelease(CSonadexView& view) {
  ReadSelection(view);
  view.Changed(DocumentChange::kCursor);
}

}  // namespace

void PressMouse(CSonadexView& view, std::int32_t x, std::int32_t y) {
  view.press = {};
  if (!view.document().loaded || !InsideClient(view, x, y)) return;
  view.StopPlayback();
  view.PlaceLayout();
  // The cursor first: where its sample cannot be read, the press leaves everything as it was.
  SetCursorAtPixel(view.document(), x - kLeftMargin);
  HitTestLabels(view, x, y);
  const bool onLabel = view.labelEntry.enabled && view.labelEntry.pressedLabel >= 0;
  BeginPress(view, {.held = true, .x = x, .y = y, .draggedLabel = onLabel});
  view.services().listener.CursorMoved(MousePhase::kPress, view.pressedMs);
}

void MoveMouse(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (!view.press.held) return;
  FollowPointer(view, x, y);
  view.Changed(DocumentChange::kCursor);
  view.services().listener.CursorMoved(MousePhase::kMove, view.pressedMs);
}

void ReleaseMouse(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (!view.press.held) return;
  FollowPointer(view, x, y);
  view.press.held = false;
  FinishRelease(view);
  view.services().listener.CursorMoved(MousePhase::kRelease, view.pressedMs);
  if (view.labelEntry.enabled && !view.selectionShown) FinishLabelPress(view, x, y);
}

void PressAtTime(CSonadexView& view, double ms) {
  if (!view.document().loaded) return;
  view.StopPlayback();
  view.PlaceLayout();
  SetCursorAtTime(view.document(), ms);
  BeginPress(view, {.x = PointerAt(view, ms)});
}

void MoveAtTime(CSonadexView& view, double ms) {
  if (!view.document().loaded) return;
  FollowTime(view, ms);
  view.Changed(DocumentChange::kCursor);
}

void ReleaseAtTime(CSonadexView& view, double ms) {
  if (!view.document().loaded) return;
  FollowTime(view, ms);
  FinishRelease(view);
}

}  // namespace cantorix
