// wheel_zoom.cpp - the stretch grown or shrunk around the pointer.
#include "mainview/wheel_zoom.h"

#include <algorithm>
#include <cmath>

#include "mainview/time_axis.h"

namespace cantorix {

void ZoomViewAround(CSonadexView& view, std::int32_t x, int steps) {
  view.StopPlayback();
  CChannel& channel = view.channel();
  const double start = channel.visibleStart.samples;
  const double length = channel.visibleEnd.samples - start;
  const double total = channel.totalLength;
  if (!view.document().loaded || steps == 0 || !(length > 0.0)) return;

  const double shortest = std::min({kShortestZoomSamples, length, total});
  const double newLength = std::clamp(std::ldexp(length, -steps), shortest, total);
  const double pointer = PixelToTime(channel, view.layout.axisWidth(), x - kLeftMargin).samples;
  const double newStart = std::clamp(pointer - (pointer - start) / length * newLength, 0.0,
                                     std::max(total - newLength, 0.0));
  channel.previousStart = start;
  channel.previousEnd = start + length;
  channel.visibleStart.samples = newStart;
  channel.visibleEnd.samples = newStart + newLength;
  channel.visibleLength.samples = newLength;
  view.FollowStretch();
}

}  // namespace cantorix
