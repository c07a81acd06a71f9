// cursor_moves.cpp - where a key leads, and the stretch that follows.
#include "mainview/cursor_moves.h"

#include <algorithm>
#include <cmath>

#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/listening.h"
#include "mainview/time_axis.h"
#include "mainview/view_commands.h"
#include "mainview/view_edit.h"

namespace cantorix {
namespace {

constexpr double kManyPixels = 10.0;

TimePoint PointAtSample(const CChannel& channel, double samples) {
  const double inside = std::clamp(samples, 0.0, channel.totalLength);
  return {inside, std::min(inside * channel.msPerSample(), channel.totalDurationMs)};
}

double Stepped(const CSonadexView& view, double samples, CursorStep step, int direction) {
  const CChannel& channel = view.channel();
  if (step == CursorStep::kSample) {
    // From between two samples to the nearer one on that side.
    return direction > 0 ? std::floor(samples) + 1.0 : std::ceil(samples) - 1.0;
  }
  const std::int32_t width = std::max(view.layout.axisWidth(), 1);
  const double pixel = (channel.visibleEnd.samples - channel.visibleStart.samples) / width;
  return samples + direction * pixel * (step == CursorStep::kTenPixels ? kManyPixels : 1.0);
}

TimePoint PointOf(const CChannel& channel, CursorGoal goal) {
  switch (goal) {
    case CursorGoal::kStretchStart:
      return PointAtSample(channel, channel.visibleStart.samples);
    case CursorGoal::kStretchEnd:
      return PointAtSample(channel, channel.visibleEnd.samples);
    case CursorGoal::kStart:
      return {};
    case CursorGoal::kEnd:
      break;
  }
  return {channel.totalLength, channel.totalDurationMs};
}

bool IsEdge(double a, double b, double start, double end) {
  return std::min(a, b) == start && std::max(a, b) == end;
}

// Cursor and drag point are the two ends of the selection, the drag point the one that moves; a
// selection that was made otherwise is moved at its end.
void TakeHold(CSonadexView& view) {
  CChannel& channel = view.channel();
  if (!view.selectionShown()) {
    channel.dragPoint = channel.cursor;
  } else if (!IsEdge(channel.cursor.ms, channel.dragPoint.ms, channel.selectionStart.ms,
                     channel.selectionEnd.ms)) {
    channel.cursor = channel.selectionStart;
    channel.dragPoint = channel.selectionEnd;
  }
}

void ExtendTo(CSonadexView& view, const TimePoint& point) {
  ViewEdit edit(view, Playback::kGoesOn);
  CChannel& channel = view.channel();
  channel.dragPoint = point;
  UpdateSelection(channel);
  if (channel.selectionLength.samples > 0.0) {
    view.SetSelection();
  } else {
    view.SetMarker();
  }
  BringIntoSight(view, point.samples);
  edit.ByPointer({MousePhase::kRelease, channel.cursor.ms});
}

void GiveBack(CSonadexView& view) {
  ViewEdit edit(view, Playback::kGoesOn);
  const PressState press = view.press;
  CChannel& channel = view.channel();
  view.press = {};
  view.labelEntry.pressedLabel = -1;
  view.labelEntry.snapMs.reset();
  SetCursorAtPoint(view.document(), press.before.cursor);
  channel.dragPoint = press.before.dragPoint;
  SelectBetween(channel, press.before.selectionStart, press.before.selectionEnd);
  if (press.before.selectionShown) {
    view.SetSelection();
  } else if (press.before.markerSet) {
    view.SetMarker();
  } else {
    view.DropMarks();
  }
  edit.ByPointer({MousePhase::kRelease, channel.cursor.ms});
}

}  // namespace

void BringIntoSight(CSonadexView& view, double samples) {
  CChannel& channel = view.channel();
  const double length = channel.visibleEnd.samples - channel.visibleStart.samples;
  double start = channel.visibleStart.samples;
  if (samples > channel.visibleEnd.samples) start = samples - length;
  if (samples < channel.visibleStart.samples) start = samples;
  if (start == channel.visibleStart.samples) return;
  channel.visibleStart.samples = std::max(start, 0.0);
  channel.visibleEnd.samples = channel.visibleStart.samples + length;
  view.FollowStretch();
}

void PlaceMarkerInSight(CSonadexView& view, const TimePoint& point) {
  ViewEdit edit(view, Playback::kGoesOn);
  CChannel& channel = view.channel();
  SetCursorAtPoint(view.document(), point);
  channel.dragPoint = channel.cursor;
  view.pressedMs = channel.cursor.ms;
  view.labelEntry.selectedLabel = -1;
  view.SetMarker();
  BringIntoSight(view, point.samples);
  edit.ByPointer({MousePhase::kRelease, channel.cursor.ms});
}

void SelectInSight(CSonadexView& view, double startMs, double endMs) {
  ViewEdit edit(view, Playback::kGoesOn);
  SelectSpan(view, startMs, endMs);
  CChannel& channel = view.channel();
  BringIntoSight(view, channel.selectionEnd.samples);
  BringIntoSight(view, channel.selectionStart.samples);
  edit.ByPointer({MousePhase::kRelease, channel.cursor.ms});
}

void StepMarker(CSonadexView& view, CursorStep step, int direction) {
  const CChannel& channel = view.channel();
  const TimePoint& edge = direction > 0 ? channel.selectionEnd : channel.selectionStart;
  const double from = view.selectionShown() ? edge.samples : channel.cursor.samples;
  PlaceMarkerInSight(view, PointAtSample(channel, Stepped(view, from, step, direction)));
}

void MoveMarkerTo(CSonadexView& view, CursorGoal goal) {
  PlaceMarkerInSight(view, PointOf(view.channel(), goal));
}

void StepSelection(CSonadexView& view, CursorStep step, int direction) {
  TakeHold(view);
  const CChannel& channel = view.channel();
  const double to = Stepped(view, channel.dragPoint.samples, step, direction);
  ExtendTo(view, PointAtSample(channel, to));
}

void ExtendSelectionTo(CSonadexView& view, CursorGoal goal) {
  TakeHold(view);
  ExtendTo(view, PointOf(view.channel(), goal));
}

void StepBack(CSonadexView& view) {
  if (view.press.held) return GiveBack(view);
  if (StopSound(view)) return;
  if (view.labelEntry.enabled) return ToggleLabelEntry(view);
  if (view.selectionShown()) DropSelection(view);
}

}  // namespace cantorix
