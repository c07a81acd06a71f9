// amdf_block.h - the smoothed 8-bit signal of one block of frames, held twice: in time order for
// the search within a frame, and with the same place of all frames side by side for the search
// across frames, where each step of a plain loop serves another frame.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/amdf_plan.h"
#include "platform/sample_source.h"

namespace cantorix {

inline constexpr int kBlockFrames = 256;          // frames searched at a time
inline constexpr std::int32_t kLagLanes = 16;     // half lags that the fine search takes at once
inline constexpr std::uint8_t kSilence = 128;     // a sample of 0
inline constexpr std::int32_t kFrameReach = 311;  // samples from a frame's first term to its last

class AmdfBlock {
 public:
  // Takes its working memory; throws std::bad_alloc.
  explicit AmdfBlock(const AmdfPlan& plan);

  // Reads the frames [firstFrame, firstFrame + kBlockFrames) of the samples [start, end). What
  // lies outside the stretch or the recording reads as silence.
  void Load(const SampleSource& samples, std::int64_t start, std::int64_t end,
            std::int64_t firstFrame);

  // The signal in time order from the first term of frame i of the block. Readable from
  // -(maxLag / 2 + kLagLanes) to kFrameReach + maxLag / 2 + kLagLanes - 1.
  const std::uint8_t* Frame(int i) const {
    return smoothed_.data() + before_ + static_cast<std::ptrdiff_t>(kFrameStep) * i;
  }
  // kBlockFrames values: the signal `offset` samples after the first term of each frame. The
  // same bounds hold for `offset`.
  const std::uint8_t* Across(std::ptrdiff_t offset) const {
    const std::ptrdiff_t place = offset + before_;
    return grid_.data() + place % kFrameStep * rowLength_ + place / kFrameStep;
  }

 private:
  void ReadBytes(const SampleSource& samples, std::int64_t start, std::int64_t end,
                 std::int64_t from);
  void Smooth();

  std::ptrdiff_t before_;     // samples held before the first term of frame 0
  std::ptrdiff_t rowLength_;  // columns of the grid
  std::ptrdiff_t length_;     // samples held: whole columns
  std::int32_t averageLength_;
  std::vector<std::uint8_t> bytes_;  // length_ + averageLength_ - 1 unsmoothed
  std::vector<std::uint32_t> windows_, nextWindows_, sums_;  // of the moving average
  std::vector<std::uint8_t> smoothed_;                       // length_
  std::vector<std::uint8_t> grid_;                           // kFrameStep rows
  std::vector<std::int16_t> scratch_;
};

}  // namespace cantorix
