// time_axis.cpp - pixels to times and back in the stated order of doubles.
#include "mainview/time_axis.h"

#include <algorithm>
#include <span>

#include "platform/numbers.h"

namespace cantorix {
namespace {

// As the two comparisons, so that an end below 0 does not matter.
double ClampedTo(double end, double x) {
  if (x > end) return end;
  return x < 0.0 ? 0.0 : x;
}

TimePoint Distance(const TimePoint& from, const TimePoint& to) {
  return {to.samples - from.samples, to.ms - from.ms};
}

}  // namespace

double InsideRecordingMs(const CChannel& channel, double ms) {
  return std::min(ms, channel.totalDurationMs);
}

TimePoint PixelToTime(const CChannel& channel, std::int32_t width, double pixel) {
  const double start = channel.visibleStart.samples;
  const double offset = width > 0 ? (channel.visibleEnd.samples - start) / width * pixel : 0.0;
  const double samples = ClampedTo(channel.totalLength, offset + start);
  return {samples, ClampedTo(channel.totalDurationMs, samples * channel.msPerSample())};
}

double TimeToPixel(CChannel& channel, std::int32_t width, double ms) {
  channel.UpdateVisibleMs();
  const double startMs = channel.visibleStart.ms;
  const double spanMs = channel.visibleEnd.ms - startMs;
  return spanMs > 0.0 ? width / spanMs * (ms - startMs) : 0.0;
}

AxisScale TimeAxisOf(CChannel& channel, std::int32_t width) {
  channel.UpdateVisibleMs();
  return {channel.visibleStart.ms, channel.visibleEnd.ms, kLeftMargin, static_cast<double>(width)};
}

// The sample is read first: when the store cannot be read, the cursor stays where it was.
void SetCursorAtPoint(CSonadexDoc& document, const TimePoint& point) {
  std::int16_t sample = 0;
  document.Samples().Read(Truncate(point.samples), std::span(&sample, 1));
  CChannel& channel = document.channel();
  channel.cursor = point;
  channel.cursorValue = static_cast<double>(sample) - channel.referenceLevel;
  SelectBetween(channel, point, point);
}

void SetCursorAtTime(CSonadexDoc& document, double ms) {
  SetCursorAtPoint(document, document.channel().PointAtTime(ms));
}

void SelectBetween(CChannel& channel, const TimePoint& start, const TimePoint& end) {
  channel.selectionStart = start;
  channel.selectionEnd = end;
  channel.selectionLength = Distance(start, end);
}

void UpdateSelection(CChannel& channel) {
  const TimePoint& cursor = channel.cursor;
  const TimePoint& drag = channel.dragPoint;
  if (cursor.ms < drag.ms) return SelectBetween(channel, cursor, drag);
  if (cursor.ms > drag.ms) return SelectBetween(channel, drag, cursor);
  SelectBetween(channel, drag, drag);
}

void ClearSelection(CChannel& channel) { SelectBetween(channel, {}, {}); }

}  // namespace cantorix
