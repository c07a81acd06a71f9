// view_commands.cpp
#include "mainview/view_commands.h"

#include <algorithm>

#include "mainview/option_commands.h"
#include "mainview/time_axis.h"
#include "mainview/view_readouts.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

// A stretch may have been scrolled or zoomed beyond the end of the recording.
TimePoint InsideRecording(const CChannel& channel, const TimePoint& point) {
  return {std::min(point.samples, channel.totalLength), InsideRecordingMs(channel, point.ms)};
}

void Select(CSonadexView& view, const TimePoint& start, const TimePoint& end) {
  CChannel& channel = view.channel();
  channel.selectionStart = start;
  channel.selectionEnd = end;
  channel.selectionLength = {end.samples - start.samples, end.ms - start.ms};
  view.selectionShown = true;
  view.document().hasSelection = true;
  view.markerSet = false;
  ReadSelection(view);
  view.Changed(DocumentChange::kCursor);
}

void ShowStretch(CSonadexView& view) {
  view.FollowStretch();
  view.Changed(DocumentChange::kStretch);
}

}  // namespace

void ZoomView(CSonadexView& view, Zoom zoom) {
  view.StopPlayback();
  ApplyZoom(view.channel(), zoom, view.document().settings.zoomRangeMs);
  ShowStretch(view);
}

void ZoomViewToTime(CSonadexView& view, double ms) {
  view.StopPlayback();
  ZoomToTime(view.channel(), ms, view.document().settings.zoomRangeMs);
  ShowStretch(view);
}

void SetZoomRange(CSonadexView& view) {
  DocumentSettings& settings = view.document().settings;
  const auto rangeMs = view.services().dialogs.AskZoomRange(TruncateToInt32(settings.zoomRangeMs));
  if (!rangeMs) return;
  settings.zoomRangeMs = *rangeMs;
  KeepOptions(view, SettingsDialog::kZoom);
}

void ScrollView(CSonadexView& view, ScrollRequest request, std::int32_t trackPosition) {
  view.horizontal = ScrolledHorizontally(view.horizontal, request, trackPosition);
  FollowScrollBar(view);
}

void FollowScrollBar(CSonadexView& view) {
  ShowScrolled(view.channel(), view.horizontal);
  view.Changed(DocumentChange::kStretch);
}

void ScrollViewVertically(CSonadexView& view, ScrollRequest request, std::int32_t trackPosition) {
  const VerticalScroll scrolled =
      ScrolledVertically({view.vertical, view.tierOffset}, request, trackPosition);
  view.vertical = scrolled.bar;
  view.tierOffset = scrolled.offset;
  view.layout = LayOutView(view.document(), view.layout.client, view.tierOffset);
  view.Redraw();
}

void TurnWheel(CSonadexView& view, std::int32_t delta) {
  view.StopPlayback();
  if (delta == 0) return;
  ScrollView(view, delta > 0 ? ScrollRequest::kLineForward : ScrollRequest::kLineBack);
}

void SelectWindow(CSonadexView& view) {
  const CChannel& channel = view.channel();
  Select(view, InsideRecording(channel, channel.visibleStart),
         InsideRecording(channel, channel.visibleEnd));
}

void SelectAll(CSonadexView& view) {
  const CChannel& channel = view.channel();
  Select(view, {}, {channel.totalLength, channel.totalDurationMs});
}

void SelectSpan(CSonadexView& view, double startMs, double endMs) {
  CChannel& channel = view.channel();
  SetCursorAtTime(view.document(), startMs);
  channel.dragPoint = channel.PointAtTime(endMs);
  UpdateSelection(channel);
  Select(view, channel.selectionStart, channel.selectionEnd);
}

void PlaceMarker(CSonadexView& view, double ms) {
  CChannel& channel = view.channel();
  SetCursorAtTime(view.document(), ms);
  channel.dragPoint = channel.cursor;
  view.markerSet = true;
  view.selectionShown = false;
  view.document().hasSelection = false;
  view.pressedMs = channel.cursor.ms;
  ReadSelection(view);
  view.Changed(DocumentChange::kCursor);
}

void DropSelection(CSonadexView& view) {
  for (CChannel& channel : view.document().channels) ClearSelection(channel);
  view.selectionShown = false;
  view.markerSet = false;
  view.document().hasSelection = false;
  ReadSelection(view);
  view.Changed(DocumentChange::kCursor);
}

}  // namespace cantorix
