// amdf_plan.h - what the difference search fixes before it sees a sample: the frames that can be
// analysed, the length of the moving average and the table of lags.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/autocorrelation_pitch.h"

namespace cantorix {

inline constexpr std::int64_t kFrameStep = 100;  // samples between frame centres
inline constexpr std::int64_t kFrameLead = 150;  // samples from a frame's first term to its centre

struct AmdfPlan {
  std::int64_t tenthsOfRate = 0;   // 10 x sampling rate: divided by a lag, tenths of Hz
  std::int32_t averageLength = 0;  // samples of the moving average: 1 ms, at least 1
  std::int32_t minLag = 0;         // samples, 1 <= minLag < maxLag
  std::int32_t maxLag = 0;
  std::int64_t firstFrame = 0;  // frames firstFrame ... lastFrame have all their terms inside
  std::int64_t lastFrame = 0;
  // minLag - 1, minLag, then 5 % a step up to maxLag, maxLag + 1. The two outer entries only bound
  // the fine search around their neighbours.
  std::vector<std::int32_t> lags;

  std::int64_t frameCount() const { return lastFrame - firstFrame + 1; }
};

// The plan for `length` samples, or nothing when no frame can be voiced: a rate below 1000 Hz, a
// range of frequencies that leaves no lag between its ends or asks for one above 2^24 samples, or a
// stretch that is too short.
std::optional<AmdfPlan> MakeAmdfPlan(const AutoCorrelationOptions& options, std::int64_t length);

}  // namespace cantorix
