// amdf_block.cpp - 8-bit copy, moving average of 1 ms, and the turn from time to frames.
#include "analysis/amdf_block.h"

#include <algorithm>

#include "platform/clones.h"

namespace cantorix {
namespace {

std::ptrdiff_t ColumnsFor(std::ptrdiff_t samples) { return samples / kFrameStep + 1; }

// The upper byte of each sample around 128, rounded toward it.
CANTORIX_CLONES void ToBytes(const std::int16_t* samples, std::size_t count, std::uint8_t* bytes) {
  for (std::size_t i = 0; i < count; ++i) {
    bytes[i] = static_cast<std::uint8_t>(samples[i] / 256 + 128);
  }
}

// next[i] = sums[i] + sums[i + width]
CANTORIX_CLONES void DoubleWindows(const std::uint32_t* sums, std::size_t width, std::size_t count,
                                   std::uint32_t* next) {
  for (std::size_t i = 0; i < count; ++i) next[i] = sums[i] + sums[i + width];
}

CANTORIX_CLONES void Add(const std::uint32_t* sums, std::size_t count, std::uint32_t* total) {
  for (std::size_t i = 0; i < count; ++i) total[i] += sums[i];
}

CANTORIX_CLONES void Widen(const std::uint8_t* bytes, std::size_t count, std::uint32_t* sums) {
  for (std::size_t i = 0; i < count; ++i) sums[i] = bytes[i];
}

// quotients[i] = sums[i] / length, where sums are at most 255 x length. Up to a length of 256 the
// multiplication is exact: 2^24 / length + 1 is too large by at most 1 part of 2^24, which times
// the sum stays below the 1 / length between a quotient and the next integer, and the product
// fits 32 bits.
CANTORIX_CLONES void Divide(const std::uint32_t* sums, std::uint32_t length, std::size_t count,
                            std::uint8_t* quotients) {
  if (length > 256) {
    for (std::size_t i = 0; i < count; ++i) {
      quotients[i] = static_cast<std::uint8_t>(sums[i] / length);
    }
    return;
  }
  const std::uint32_t multiplier = (std::uint32_t{1} << 24) / length + 1;
  for (std::size_t i = 0; i < count; ++i) {
    quotients[i] = static_cast<std::uint8_t>(sums[i] * multiplier >> 24);
  }
}

// grid[row * columns + column] = signal[column * kFrameStep + row]
void TurnToFrames(const std::uint8_t* signal, std::ptrdiff_t columns, std::uint8_t* grid) {
  for (std::ptrdiff_t column = 0; column < columns; ++column) {
    for (std::ptrdiff_t row = 0; row < kFrameStep; ++row) {
      grid[row * columns + column] = signal[column * kFrameStep + row];
    }
  }
}

}  // namespace

AmdfBlock::AmdfBlock(const AmdfPlan& plan)
    : before_(plan.maxLag / 2 + kLagLanes),
      rowLength_(ColumnsFor(before_ + kFrameStep * (kBlockFrames - 1) + kFrameReach +
                            plan.maxLag / 2 + kLagLanes)),
      length_(rowLength_ * kFrameStep),
      averageLength_(plan.averageLength),
      bytes_(static_cast<std::size_t>(length_ + averageLength_ - 1)),
      windows_(bytes_.size()),
      nextWindows_(bytes_.size()),
      sums_(static_cast<std::size_t>(length_)),
      smoothed_(sums_.size()),
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

// Sums over windows of 1, 2, 4, ... samples, of which those in the binary digits of the length,
// laid end to end, make up the whole window.
void AmdfBlock::Smooth() {
  const auto length = static_cast<std::size_t>(averageLength_);
  std::fill(sums_.begin(), sums_.end(), 0u);
  Widen(bytes_.data(), bytes_.size(), windows_.data());
  std::size_t placed = 0;
  for (std::size_t width = 1; width <= length; width *= 2) {
    if ((length & width) != 0) {
      Add(windows_.data() + placed, sums_.size(), sums_.data());
      placed += width;
    }
    if (2 * width > length) break;
    DoubleWindows(windows_.data(), width, bytes_.size() - 2 * width + 1, nextWindows_.data());
    windows_.swap(nextWindows_);
  }
  Divide(sums_.data(), static_cast<std::uint32_t>(length), sums_.size(), smoothed_.data());
}

void AmdfBlock::Load(const SampleSource& samples, std::int64_t start, std::int64_t end,
                     std::int64_t firstFrame) {
  const std::int64_t first = start + kFrameStep * firstFrame - kFrameLead - before_;
  ReadBytes(samples, start, end, first - averageLength_ / 2);
  Smooth();
  TurnToFrames(smoothed_.data(), rowLength_, grid_.data());
}

}  // namespace cantorix
