// mouse.cpp - press, move and release in their order of rules.
#include "mainview/mouse.h"

#include <algorithm>
#include <cstdlib>

#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_typing.h"
#include "mainview/selection_edges.h"
#include "mainview/time_axis.h"
#include "mainview/view_edit.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr double kFarPixels = 100'000'000.0;  // beyond any window, safe to subtract

bool InsideClient(const CSonadexView& view, std::int32_t x, std::int32_t y) {
  const PixelSize& client = view.layout.client;
  return x >= 0 && y >= 0 && x < client.width && y < client.height;
}

bool MovedFar(std::int32_t from, std::int32_t to) { return std::abs(to - from) > kClickPixels; }

// The point under a client pixel column.
TimePoint PointUnder(const CSonadexView& view, std::int32_t x) {
  return PixelToTime(view.channel(), view.layout.axisWidth(), x - kLeftMargin);
}

// The pixel column of a time as if the pointer were there.
std::int32_t PointerAt(CSonadexView& view, double ms) {
  const double pixel = TimeToPixel(view.channel(), view.layout.axisWidth(), ms);
  return TruncateToInt32(std::clamp(pixel, -kFarPixels, kFarPixels)) + kLeftMargin;
}

void TakeDragPoint(CChannel& channel, const TimePoint& point, std::int32_t x, std::int32_t y) {
  channel.dragPoint = point;
  channel.dragX = x;
  channel.dragY = y;
  UpdateSelection(channel);
}

Marks MarksOf(const CSonadexView& view) {
  const CChannel& channel = view.channel();
  return {channel.cursor,       channel.dragPoint, channel.selectionStart,
          channel.selectionEnd, view.markerSet(),  view.selectionShown()};
}

// After the cursor was placed. A press on a view that shows a selection only removes it; the next
// one places a marker.
void BeginPress(CSonadexView& view, const PressState& press) {
  CChannel& channel = view.channel();
  view.press = press;
  view.otherPointerMs.reset();
  channel.dragPoint = channel.cursor;
  view.pressedMs = channel.cursor.ms;
  if (view.selectionShown()) return view.DropMarks();
  view.SetMarker();
}

// After the drag point was set: more than a few pixels away the press becomes a selection for good.
void Drag(CSonadexView& view, std::int32_t x) {
  if (MovedFar(view.press.x, x)) view.press.moved = true;
  if (view.press.moved) view.SetSelection();
  view.Changed(DocumentChange::kCursor);
}

// A label is dragged up and down as well: its place in the tier counts.
void DragPressedLabel(CSonadexView& view, std::int32_t x, std::int32_t y) {
  PressState& press = view.press;
  if (MovedFar(press.x, x) || MovedFar(press.y, y)) press.moved = true;
  if (press.moved) DragLabel(view, x, y);
  view.Changed(DocumentChange::kCursor);
}

// Whether a press is one at all; what ends with any press ends.
bool BeginsPress(CSonadexView& view, std::int32_t x, std::int32_t y) {
  view.press = {};
  if (view.services().sound.EndRecording()) return false;
  return view.document().loaded && InsideClient(view, x, y) && KeepTyping(view);
}

void PressPlainly(CSonadexView& view, std::int32_t x, std::int32_t y) {
  ViewEdit edit(view, Playback::kStops);
  const Marks before = MarksOf(view);
  // The cursor first: where its sample cannot be read, the press leaves everything as it was.
  SetCursorAtPoint(view.document(), PointUnder(view, x));
  HitTestLabels(view, x, y);
  const bool onLabel = view.labelEntry.enabled && view.labelEntry.pressedLabel >= 0;
  BeginPress(view, {.held = true, .x = x, .y = y, .draggedLabel = onLabel, .before = before});
  edit.ByPointer({MousePhase::kPress, view.pressedMs});
}

// The drag is one of the edge for good.
void PullEdge(CSonadexView& view) {
  HoldEdge(view, *view.press.edge);
  view.press.edge.reset();
  view.press.moved = true;
  view.pressedMs = view.channel().cursor.ms;
}

void FollowPointer(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (view.press.draggedLabel) return DragPressedLabel(view, x, y);
  TakeDragPoint(view.channel(), PointUnder(view, x), x, y);
  Drag(view, x);
}

}  // namespace

void PressMouse(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (!BeginsPress(view, x, y)) return;
  const auto edge = EdgeUnder(view, x, y);
  if (!edge) return PressPlainly(view, x, y);
  const ViewEdit edit(view, Playback::kStops);
  view.press = {.held = true, .x = x, .y = y, .before = MarksOf(view), .edge = edge};
}

void PressToExtend(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (!BeginsPress(view, x, y)) return;
  if (!view.selectionShown() && !view.markerSet()) return PressPlainly(view, x, y);
  const TimePoint point = PointUnder(view, x);
  const ViewEdit edit(view, Playback::kStops);
  const Marks before = MarksOf(view);
  if (view.selectionShown()) HoldEdge(view, NearerEdge(view, point.ms));
  view.press = {.held = true, .x = x, .y = y, .moved = true, .before = before};
  view.pressedMs = view.channel().cursor.ms;
  MoveMouse(view, x, y);
}

void MoveMouse(CSonadexView& view, std::int32_t x, std::int32_t y, Snap snap) {
  if (!view.press.held) return;
  view.press.snaps = snap == Snap::kOn;
  if (view.press.edge && !MovedFar(view.press.x, x)) return;
  ViewEdit edit(view, Playback::kGoesOn);
  if (view.press.edge) PullEdge(view);
  FollowPointer(view, x, y);
  edit.ByPointer({MousePhase::kMove, view.pressedMs});
}

void ReleaseMouse(CSonadexView& view, std::int32_t x, std::int32_t y, Snap snap) {
  if (!view.press.held) return;
  view.press.snaps = snap == Snap::kOn;
  if (view.press.edge) MoveMouse(view, x, y);
  // The edge was clicked, not pulled.
  if (view.press.edge) PressPlainly(view, view.press.x, view.press.y);
  int dropped = -1;
  {
    ViewEdit edit(view, Playback::kGoesOn);
    FollowPointer(view, x, y);
    view.press.held = false;
    edit.ByPointer({MousePhase::kRelease, view.pressedMs});
    dropped = DropDraggedLabel(view);
    if (view.labelEntry.enabled) view.Say(TypingHint(view));
  }
  // A change of labels leaves none selected; what was dropped is, when it is drawn.
  if (dropped >= 0) view.labelEntry.selectedLabel = dropped;
  // The window is up to date before a dialog opens.
  FinishLabelClick(view, x, y);
}

void PressAtTime(CSonadexView& view, double ms) {
  if (view.services().sound.EndRecording()) return;
  if (!view.document().loaded) return;
  const ViewEdit edit(view, Playback::kStops);
  SetCursorAtTime(view.document(), ms);
  view.labelEntry.selectedLabel = -1;
  BeginPress(view, {.x = PointerAt(view, ms)});
}

// The drag point takes the time itself: by way of whole pixels the selection would differ from the
// one in the other window.
void MoveAtTime(CSonadexView& view, double ms) {
  if (!view.document().loaded) return;
  const ViewEdit edit(view, Playback::kGoesOn);
  CChannel& channel = view.channel();
  const std::int32_t x = PointerAt(view, ms);
  TakeDragPoint(channel, channel.PointAtTime(ms), x, 0);
  Drag(view, x);
}

void ShowPointerAtTime(CSonadexView& view, double ms) {
  view.otherPointerMs = ms;
  view.Redraw();
}

}  // namespace cantorix
