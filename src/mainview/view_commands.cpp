// view_commands.cpp - each command as a few calls of the rules.
#include "mainview/view_commands.h"

#include <algorithm>

#include "mainview/option_commands.h"
#include "mainview/time_axis.h"
#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

// A stretch may have been scrolled or zoomed beyond the end of the recording.
TimePoint InsideRecording(const CChannel& channel, const TimePoint& point) {
  return {std::min(point.samples, channel.totalLength), InsideRecordingMs(channel, point.ms)};
}

void Select(CSonadexView& view, const TimePoint& start, const TimePoint& end) {
  SelectBetween(view.channel(), start, end);
  view.SetSelection();
}

}  // namespace

void ZoomView(CSonadexView& view, Zoom zoom) {
  view.StopPlayback();
  ApplyZoom(view.channel(), zoom, view.document().settings.zoomRangeMs);
  view.FollowStretch();
}

void ZoomViewToTime(CSonadexView& view, double ms) {
  view.StopPlayback();
  ZoomToTime(view.channel(), ms, view.document().settings.zoomRangeMs);
  view.FollowStretch();
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
  // However the bar was moved, that is the end of it: at either end the offset follows it.
  const VerticalScroll scrolled = ScrolledVertically(
      ScrolledVertically({view.vertical, view.tierOffset}, request, trackPosition),
      ScrollRequest::kEnd, 0);
  view.vertical = scrolled.bar;
  view.tierOffset = scrolled.offset;
  view.LayOut(view.layout.client);
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
  view.pressedMs = channel.cursor.ms;
  view.SetMarker();
}

void DropSelection(CSonadexView& view) {
  for (CChannel& channel : view.document().channels) ClearSelection(channel);
  view.DropMarks();
}

}  // namespace cantorix
