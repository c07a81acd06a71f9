// pitch_continuity.cpp - integer divisions toward zero, 64 bits wide, as tolerances are free.
#include "analysis/pitch_continuity.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace cantorix {
namespace {

bool Near(std::int16_t a, std::int16_t b, std::int64_t tolerance) {
  return std::abs(a - b) <= tolerance;
}

std::int16_t Mean(std::int16_t a, std::int16_t b) { return static_cast<std::int16_t>((a + b) / 2); }

// Follows the run that starts at `first`, mending single outliers; returns its last frame.
std::size_t LastOfRun(std::span<std::int16_t> q, std::size_t first, std::int32_t tolerancePercent) {
  std::size_t j = first;
  for (; j + 1 < q.size() && q[j + 1] >= 0; ++j) {
    const std::int64_t tolerance = std::int64_t{q[j]} * tolerancePercent / 100;
    if (Near(q[j], q[j + 1], tolerance)) continue;
    if (j + 2 < q.size() && q[j + 2] >= 0 && Near(q[j], q[j + 2], tolerance)) {
      q[j + 1] = Mean(q[j], q[j + 2]);
    } else if (j > first && Near(q[j + 1], q[j - 1], tolerance)) {
      q[j] = Mean(q[j - 1], q[j + 1]);
    } else {
      break;
    }
  }
  return j;
}

// Largest relative step over a gap of d frames, in units of tolerance x mean / 1000.
constexpr std::array<std::int64_t, kMaxGapFrames + 1> kGapFactor{0, 0, 14, 17, 20, 22, 24, 26};

bool CanBridge(std::int16_t a, std::int16_t b, std::size_t distance,
               std::int32_t tolerancePercent) {
  if (distance > kMaxGapFrames || b < 0) return false;
  return std::abs(a - b) <= kGapFactor[distance] * (a + b) * tolerancePercent / 2000;
}

std::int16_t WeightedMean(int value, int near, int far) {
  // Alone, (3 v + 1) / 3 is v itself.
  const int two = (3 * value + 2 * near + 2) / 5;
  const int three = (3 * value + 2 * near + far + 3) / 6;
  const int mean = near < 0 ? value : far < 0 ? two : three;
  return static_cast<std::int16_t>(value < 0 ? value : mean);
}

}  // namespace

void KeepContinuousRuns(std::span<std::int16_t> values, std::int32_t tolerancePercent) {
  std::size_t keptEnd = values.size();  // one past the last frame of the latest run that was kept
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i] < 0) continue;
    const std::size_t first = i;
    i = LastOfRun(values, first, tolerancePercent);
    if (i - first + 1 < kMinRunFrames) {
      std::fill(values.begin() + static_cast<std::ptrdiff_t>(first),
                values.begin() + static_cast<std::ptrdiff_t>(i) + 1, kRejected);
      continue;
    }
    // Two kept runs that touch are parted: the first one loses its last frame.
    if (keptEnd == first) values[first - 1] = kUnvoiced;
    keptEnd = i + 1;
  }
}

void BridgeGaps(std::span<std::int16_t> values, std::int32_t tolerancePercent) {
  for (std::size_t i = 0; i + 1 < values.size(); ++i) {
    if (values[i] == kRejected) values[i] = kUnvoiced;
    if (values[i] < 0 || values[i + 1] != kRejected) continue;
    std::size_t j = i + 1;
    while (j < values.size() && values[j] == kRejected) ++j;
    const std::int16_t after = j < values.size() ? values[j] : kUnvoiced;
    const bool bridged = CanBridge(values[i], after, j - i, tolerancePercent);
    const int distance = static_cast<int>(j - i);
    for (int k = 1; k < distance; ++k) {
      values[i + static_cast<std::size_t>(k)] =
          bridged ? static_cast<std::int16_t>(values[i] + (after - values[i]) * k / distance)
                  : kUnvoiced;
    }
  }
}

void SmoothWeighted(std::span<std::int16_t> values) {
  const std::size_t n = values.size();
  std::int16_t* v = values.data();
  for (std::size_t i = n; i-- > 0;) {
    v[i] = WeightedMean(v[i], i >= 1 ? v[i - 1] : kUnvoiced, i >= 2 ? v[i - 2] : kUnvoiced);
  }
  for (std::size_t i = 0; i < n; ++i) {
    v[i] = WeightedMean(v[i], i + 1 < n ? v[i + 1] : kUnvoiced, i + 2 < n ? v[i + 2] : kUnvoiced);
  }
}

}  // namespace cantorix
