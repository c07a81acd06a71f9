// time_axis_fixture.h - a channel with a length, a rate and a strip to be drawn in, without
// samples.
#pragma once

#include "document/channel.h"

namespace cantorix {

inline void LayOut(CChannel& channel, double length, double rateHz, std::int32_t width) {
  channel.sampleRateHz = rateHz;
  channel.totalLength = length;
  channel.totalDurationMs = length * 1000.0 / rateHz;
  channel.waveformRect = {.left = 40, .top = 0, .right = 40 + width, .bottom = 100};
  channel.ShowWholeFile();
}

inline void Show(CChannel& channel, double start, double end) {
  channel.visibleStart.samples = start;
  channel.visibleEnd.samples = end;
  channel.visibleLength.samples = end - start;
  channel.UpdateVisibleMs();
}

}  // namespace cantorix
