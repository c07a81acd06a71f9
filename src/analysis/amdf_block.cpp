// amdf_block.cpp - 8-bit copy, moving average of 1 ms, and the turn from time to frames.
#include "analysis/amdf_block.h"

#include <algorithm>

#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr std::uint8_t kSilence = 128;

// The upper byte of each sample around 128, rounded toward it.
CANTORIX_CLONES void ToBytes(const std::int16_t* samples, std::size_t count, std::uint8_t* bytes) {
  for (std::size_t i = 0; i < count; ++i) {
    bytes[i] = static_cast<std::uint8_t>(samples[i] / 256 + 128);
  }
}

// smoothed[i] = (bytes[i] + ... + bytes[i + length - 1]) / length
void MovingAverage(const std::uint8_t* bytes, std::int32_t length, std::ptrdiff_t count,
                   std::uint8_t* smoothed) {
  const auto divisor = static_cast<std::uint32_t>(length);
  std::uint32_t sum = 0;
  for (std::int32_t i = 0; i < length - 1; ++i) sum += bytes[i];
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    sum += bytes[i + length - 1];
    smoothed[i] = static_cast<std::uint8_t>(sum / divisor);
    sum -= bytes[i];
  }
}

}  // namespace

AmdfBlock::AmdfBlock(const AmdfPlan& plan)
    : before_(plan.maxLag / 2 + kLagLanes),
      length_(before_ + kFrameStep * (kBlockFrames - 1) + kFrameReach + plan.maxLag / 2 +
              kLagLanes),
      rowLength_(length_ / kFrameStep + 1),
      averageLength_(plan.averageLength),
      bytes_(static_cast<std::size_t>(length_ + averageLength_ - 1)),
      smoothed_(static_cast<std::size_t>(length_)),
      grid_(static_cast<std::size_t>(rowLength_ * kFrameStep)) {}

void AmdfBlock::ReadBytes(const SampleSource& samples, std::int64_t start, std::int64_t end,
                          std::int64_t from) {
  const std::int64_t to = from + static_cast<std::int64_t>(bytes_.size());
  const std::int64_t first = std::max({from, start, std::int64_t{0}});
  const std::int64_t last = std::max(first, std::min({to, end, samples.length()}));
  std::fill(bytes_.begin(), bytes_.end(), kSilence);
  if (first == last) return;
  const auto view = samples.View(first, last - first, scratch_);
  ToBytes(view.data(), view.size(), bytes_.data() + (first - from));
}

void AmdfBlock::Load(const SampleSource& samples, std::int64_t start, std::int64_t end,
                     std::int64_t firstFrame) {
  const std::int64_t first = start + kFrameStep * firstFrame - kFrameLead - before_;
  ReadBytes(samples, start, end, first - averageLength_ / 2);
  MovingAverage(bytes_.data(), averageLength_, length_, smoothed_.data());
  for (std::ptrdiff_t i = 0; i < length_; ++i) {
    grid_[static_cast<std::size_t>(i % kFrameStep * rowLength_ + i / kFrameStep)] =
        smoothed_[static_cast<std::size_t>(i)];
  }
}

}  // namespace cantorix
