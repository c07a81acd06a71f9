// amdf_search.h - the lag of least average magnitude difference of each frame of a block, and the
// level of each frame.
// With s the smoothed signal and p the first term of a frame, the difference at a lag is the sum
// of |s[c - lag/2] - s[c - lag/2 + lag]| over places c = p, p + spacing, ...: 11 places 30 samples
// apart for the coarse search, 25 places 12 apart for the fine one.
#pragma once

#include <array>
#include <cstdint>

#include "analysis/amdf_block.h"
#include "analysis/amdf_plan.h"

namespace cantorix {

struct FrameEstimates {
  std::array<std::int16_t, kBlockFrames> level;  // 10/31 of the summed magnitude at 32 places
  std::array<std::int16_t, kBlockFrames> pitch;  // tenths of Hz, kUnvoiced
};

// Estimates the first `count` frames of the block; the other entries are left undefined.
void SearchBlock(const AmdfBlock& block, const AmdfPlan& plan, int count, FrameEstimates& out);

}  // namespace cantorix
