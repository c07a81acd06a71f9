// intensity_track.cpp - from a sample back to the frame that it takes its level from.
#include "analysis/intensity_track.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "analysis/frame_span.h"
#include "platform/numbers.h"

namespace cantorix {

LevelTrack::LevelTrack(std::vector<double> levels, double stepSamples, double windowSamples,
                       std::int64_t length)
    : levels_(std::move(levels)), step_(stepSamples), window_(windowSamples), length_(length) {}

const TrackSummary& LevelTrack::Summary() const {
  constexpr double kNoFloor = -std::numeric_limits<double>::infinity();
  if (!summary_) summary_ = std::make_shared<const TrackSummary>(levels_, kNoFloor);
  return *summary_;
}

double LevelTrack::operator[](std::int64_t k) const {
  const auto count = static_cast<std::int64_t>(levels_.size());
  if (count == 0) return 0.0;

  // The last frame that starts at or before k; the quotient is off by a frame or two at most.
  const double quotient = (static_cast<double>(k) + 1.0) / step_;
  std::int64_t i =
      static_cast<std::int64_t>(std::min(static_cast<double>(count - 1), quotient + 1.0));
  while (i > 0 && Truncate(static_cast<double>(i) * step_) > k) --i;

  // Starts and ends never fall, so the first frame that has ended by k rules out the earlier ones.
  for (std::int64_t frame = i; frame >= 0; --frame) {
    const FrameSpan span = SpanOfFrame(static_cast<double>(frame) * step_, window_);
    if (k >= span.end) return frame == count - 1 ? levels_.back() : 0.0;
    if (span.Holds(k)) return levels_[static_cast<std::size_t>(frame)];
  }
  return 0.0;
}

}  // namespace cantorix
