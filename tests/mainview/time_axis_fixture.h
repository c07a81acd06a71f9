// time_axis_fixture.h - a channel with a length and a rate, without samples.
#pragma once

#include "document/channel.h"

namespace cantorix {

inline void SetLength(CChannel& channel, double length, double rateHz) {
  channel.sampleRateHz = rateHz;
  channel.totalLength = length;
  channel.totalDurationMs = length * 1000.0 / rateHz;
  channel.ShowWholeFile();
}

inline void Show(CChannel& channel, double start, double end) {
  channel.visibleStart.samples = start;
  channel.visibleEnd.samples = end;
  channel.visibleLength.samples = end - start;
  channel.UpdateVisibleMs();
}

}  // namespace cantorix
