// intensity_track.h - the level contour of a stretch: to its readers one dB value per sample, in
// memory one level per frame and the rule that says which frame a sample takes its level from.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "analysis/sample_range.h"
#include "analysis/track_summary.h"

namespace cantorix {

class LevelTrack {
 public:
  LevelTrack() = default;
  // `levels` of frames that start every `stepSamples` and last `windowSamples` (both fractional)
  // over `length` samples. No levels: every sample reads 0.
  LevelTrack(std::vector<double> levels, double stepSamples, double windowSamples,
             std::int64_t length);

  std::int64_t size() const { return length_; }
  // Level of sample k, 0 <= k < size(): that of the last frame that covers it; 0 for a sample that
  // no frame covers; after the last frame's end, the last frame's level.
  double operator[](std::int64_t k) const;

  const std::vector<double>& levels() const { return levels_; }
  double stepSamples() const { return step_; }
  // Of the levels, made when it is first asked for; silent frames count as none.
  const TrackSummary& Summary() const;

 private:
  std::vector<double> levels_;
  double step_ = 0.0;
  double window_ = 0.0;
  std::int64_t length_ = 0;
  mutable std::shared_ptr<const TrackSummary> summary_;
};

struct IntensityResult {
  LevelTrack IntensityTrack;
  double IntensityLength = 0.0;  // samples of the analysed stretch
  double IntensityMax = 0.0;     // largest frame level, dB
  double IntensityMin = 0.0;     // smallest; 0 in relative mode
  bool IntensityValid = false;
  SampleRange range;  // the stretch that was analysed
};

}  // namespace cantorix
