// wheel_zoom.cpp - the stretch grown or shrunk around the pointer.
#include "mainview/wheel_zoom.h"

#include <algorithm>
#include <cmath>

#include "mainview/time_axis.h"

namespace cantorix {

void ZoomViewAround(CSonadexView& view, std::int32_t x, int steps) {
  const TimePoint pointer = PixelToTime(view.channel(), view.layout.axisWidth(), x - kLeftMargin);
  ZoomViewAroundSample(view, pointer.samples, steps);
}

void ZoomViewAroundSample(CSonadexView& view, double pointer, int steps) {
  view.StopPlayback();
  CChannel& channel = view.channel();
  const SampleRange before{channel.visibleStart.samples, channel.visibleEnd.samples};
  if (!view.document().loaded || steps == 0 || !(before.length() > 0.0)) return;

  const auto [start, length] = ZoomedAround(before, channel.totalLength, pointer, steps);
  channel.previousStart = before.start;
  channel.previousEnd = before.start + before.length();
  channel.visibleStart.samples = start;
  channel.visibleEnd.samples = start + length;
  channel.visibleLength.samples = length;
  view.FollowStretch();
}

ZoomedStretch ZoomedAround(const SampleRange& range, double total, double pointer, int steps) {
  const double length = range.length();
  const double shortest = std::min({kShortestZoomSamples, length, total});
  const double newLength = std::clamp(std::ldexp(length, -steps), shortest, total);
  const double newStart = std::clamp(pointer - (pointer - range.start) / length * newLength, 0.0,
                                     std::max(total - newLength, 0.0));
  return {newStart, newLength};
}

}  // namespace cantorix
