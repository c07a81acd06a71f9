// zoom.cpp - each zoom as a new stretch inside the recording.
#include "mainview/zoom.h"

#include <algorithm>

namespace cantorix {
namespace {

struct SampleStretch {
  double start = 0.0;
  double end = 0.0;
};

void SavePrevious(CChannel& channel) {
  channel.previousStart = channel.visibleStart.samples;
  channel.previousEnd = channel.visibleEnd.samples;
}

void Show(CChannel& channel, const SampleStretch& stretch) {
  channel.visibleStart.samples = stretch.start;
  channel.visibleEnd.samples = stretch.end;
  channel.visibleLength.samples = stretch.end - stretch.start;
  channel.UpdateVisibleMs();
}

// A cut may have left both ends behind the recording: a stretch never begins behind its end.
SampleStretch InsideRecording(const CChannel& channel, const SampleStretch& stretch) {
  const double total = std::max(channel.totalLength, 0.0);
  return {std::clamp(stretch.start, 0.0, total), std::clamp(stretch.end, 0.0, total)};
}

SampleStretch StretchAfter(const CChannel& channel, Zoom zoom, double rangeMs) {
  const double start = channel.visibleStart.samples;
  const double end = channel.visibleEnd.samples;
  const double total = channel.totalLength;
  switch (zoom) {
    case Zoom::kUnZoom:
      return InsideRecording(channel, {channel.previousStart, channel.previousEnd});
    case Zoom::kIn:
      return InsideRecording(channel, {start + (end - start) * 0.25, end - (end - start) * 0.25});
    case Zoom::kOut:
      return InsideRecording(channel, {start - (end - start) * 0.5, end + (end - start) * 0.5});
    case Zoom::kSelection:
      return {std::min(channel.selectionStart.samples, total),
              std::min(channel.selectionEnd.samples, total)};
    case Zoom::kFromCursor: {
      // Kept: the end may lie beyond the recording, so that the duration shown is the one asked
      // for.
      const double cursor = std::min(channel.cursor.samples, total);
      return {cursor, cursor + channel.sampleRateHz * rangeMs * 0.001};
    }
    case Zoom::kHome:
      break;
  }
  return {0.0, total};
}

}  // namespace

void ApplyZoom(CChannel& channel, Zoom zoom, double rangeMs) {
  const SampleStretch stretch = StretchAfter(channel, zoom, rangeMs);
  if (zoom != Zoom::kUnZoom) SavePrevious(channel);
  Show(channel, stretch);
}

void ZoomToTime(CChannel& channel, double ms, double rangeMs) {
  SavePrevious(channel);
  const double centre = channel.PointAtTime(ms).samples;
  const double half = channel.sampleRateHz * rangeMs * 0.001 * 0.5;
  Show(channel, InsideRecording(channel, {centre - half, centre + half}));
}

}  // namespace cantorix
