// time_axis_fixture.h - a channel with a length and a rate, without samples, and tracks over it.
#pragma once

#include <utility>
#include <vector>

#include "analysis/pitch.h"
#include "document/channel.h"
#include "support/joined.h"

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

// Start, end and length of what is shown, "=" the same in ms, "after" what was shown before.
inline std::string StretchText(const CChannel& channel) {
  const TimePoint& start = channel.visibleStart;
  const TimePoint& end = channel.visibleEnd;
  const TimePoint& length = channel.visibleLength;
  return Joined(start.samples, end.samples, length.samples, "=", start.ms, end.ms, length.ms,
                "after", channel.previousStart, channel.previousEnd);
}

inline PitchResult PitchOf(std::vector<double> entries, const SampleRange& range) {
  PitchResult pitch;
  pitch.PitchFrameCount = static_cast<double>(entries.size()) + 0.7;
  pitch.PitchTrack = std::move(entries);
  pitch.PitchTrack.resize(pitch.PitchTrack.size() + 5);
  pitch.PitchValid = true;
  pitch.range = range;
  return pitch;
}

// As many samples to each level.
inline IntensityResult IntensityOf(const std::vector<double>& levels, const SampleRange& range) {
  const double each = (range.end - range.start) / static_cast<double>(levels.size());
  IntensityResult intensity;
  intensity.IntensityTrack =
      LevelTrack(levels, each, each, static_cast<std::int64_t>(range.end - range.start));
  intensity.IntensityValid = true;
  intensity.range = range;
  return intensity;
}

}  // namespace cantorix
