// amdf_search.cpp - the coarse search and the levels run across the frames of a block, the fine
// search across the lags of a frame; both are sums of byte differences that fit 16 bits.
#include "analysis/amdf_search.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "analysis/pitch_continuity.h"
#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr std::ptrdiff_t kLevelPlaces = 32;
constexpr std::ptrdiff_t kLevelSpacing = 10;
// Kept: one less than the places; voicing levels are set for this scale.
constexpr int kLevelDivisor = 31;
constexpr std::ptrdiff_t kCoarsePlaces = 11;
constexpr std::ptrdiff_t kCoarseSpacing = 30;
constexpr std::ptrdiff_t kFinePlaces = 25;
constexpr std::ptrdiff_t kFineSpacing = 12;

using AcrossFrames = std::array<std::uint16_t, kBlockFrames>;

// One term of the sums of all frames. Never inlined: the compiler vectorises this loop only as long
// as it cannot merge the ones of several terms.
[[gnu::noinline]] CANTORIX_CLONES void AddDifferences(const std::uint8_t* a, const std::uint8_t* b,
                                                      AcrossFrames& sums) {
  for (std::size_t i = 0; i < kBlockFrames; ++i) {
    sums[i] = static_cast<std::uint16_t>(sums[i] + std::abs(a[i] - b[i]));
  }
}

void FindLevels(const AmdfBlock& block, std::array<std::int16_t, kBlockFrames>& level) {
  std::array<std::uint8_t, kBlockFrames> silence;
  silence.fill(kSilence);
  AcrossFrames sums{};
  for (std::ptrdiff_t k = 0; k < kLevelPlaces; ++k) {
    AddDifferences(block.Across(kLevelSpacing * k), silence.data(), sums);
  }
  std::transform(sums.begin(), sums.end(), level.begin(), [](std::uint16_t sum) {
    return static_cast<std::int16_t>(10 * sum / kLevelDivisor);
  });
}

CANTORIX_CLONES void KeepLeast(const AcrossFrames& sums, std::uint16_t index, AcrossFrames& least,
                               AcrossFrames& bestIndex) {
  for (std::size_t i = 0; i < kBlockFrames; ++i) {
    bestIndex[i] = sums[i] < least[i] ? index : bestIndex[i];
    least[i] = sums[i] < least[i] ? sums[i] : least[i];
  }
}

// The index of each frame's best lag of the table, the first one on ties.
AcrossFrames FindCoarseLags(const AmdfBlock& block, const AmdfPlan& plan) {
  AcrossFrames bestIndex{};
  AcrossFrames least;
  least.fill(std::numeric_limits<std::uint16_t>::max());
  for (std::size_t t = 1; t + 1 < plan.lags.size(); ++t) {
    const std::int32_t lag = plan.lags[t];
    AcrossFrames sums{};
    for (std::ptrdiff_t k = 0; k < kCoarsePlaces; ++k) {
      const std::ptrdiff_t left = kCoarseSpacing * k - lag / 2;
      AddDifferences(block.Across(left), block.Across(left + lag), sums);
    }
    KeepLeast(sums, static_cast<std::uint16_t>(t), least, bestIndex);
  }
  return bestIndex;
}

// Fine differences of kLagLanes even lags and the odd lags that follow each of them.
struct LagSums {
  std::array<std::uint16_t, kLagLanes> even;  // lag 2 (half + i)
  std::array<std::uint16_t, kLagLanes> odd;   // lag 2 (half + i) + 1
};

CANTORIX_CLONES void FindFineDifferences(const std::uint8_t* frame, std::int32_t half,
                                         LagSums& out) {
  LagSums sums{};
// Unrolled, the short loops would no longer be taken for vectors.
#pragma GCC unroll 1
  for (std::ptrdiff_t k = 0; k < kFinePlaces; ++k) {
    const std::uint8_t* left = frame + kFineSpacing * k - half;
    const std::uint8_t* right = frame + kFineSpacing * k + half;
#pragma GCC unroll 1
    for (int i = 0; i < kLagLanes; ++i) {
      std::uint16_t& sum = sums.even[static_cast<std::size_t>(i)];
      sum = static_cast<std::uint16_t>(sum + std::abs(left[-i] - right[i]));
    }
#pragma GCC unroll 1
    for (int i = 0; i < kLagLanes; ++i) {
      std::uint16_t& sum = sums.odd[static_cast<std::size_t>(i)];
      sum = static_cast<std::uint16_t>(sum + std::abs(left[-i] - right[i + 1]));
    }
  }
  out = sums;
}

struct LagChoice {
  std::int32_t lag = 0;
  int difference = std::numeric_limits<std::uint16_t>::max();
};

// The best of the lags first ... last (1 <= first <= last), the first one on ties.
LagChoice FindFineLag(const std::uint8_t* frame, std::int32_t first, std::int32_t last) {
  LagChoice best{first};
  LagSums sums;
  for (std::int32_t half = first / 2; half <= last / 2; half += kLagLanes) {
    FindFineDifferences(frame, half, sums);
    const std::int32_t from = std::max(first, 2 * half);
    const std::int32_t to = std::min(last, 2 * (half + kLagLanes) - 1);
    for (std::int32_t lag = from; lag <= to; ++lag) {
      const auto lane = static_cast<std::size_t>(lag / 2 - half);
      const int difference = lag % 2 == 0 ? sums.even[lane] : sums.odd[lane];
      if (difference < best.difference) best = {lag, difference};
    }
  }
  return best;
}

int FineDifference(const std::uint8_t* frame, std::int32_t lag) {
  const std::uint8_t* left = frame - lag / 2;
  const std::uint8_t* right = left + lag;
  int sum = 0;
  for (std::ptrdiff_t k = 0; k < kFinePlaces; ++k) {
    sum += std::abs(left[kFineSpacing * k] - right[kFineSpacing * k]);
  }
  return sum;
}

// A half or a third of the lag when it lies in range and its difference stays below 3/2 of the
// least.
std::int32_t CheckOctaves(const std::uint8_t* frame, const LagChoice& found, std::int32_t minLag) {
  for (const std::int32_t part : {2, 3}) {
    if (found.lag / part < minLag) break;
    const std::int32_t lag = found.lag / part;
    if (2 * FineDifference(frame, lag) < 3 * found.difference) return lag;
  }
  return found.lag;
}

std::int16_t TenthsOfHz(const AmdfPlan& plan, std::int32_t lag) {
  if (lag == plan.minLag || lag == plan.maxLag) return kUnvoiced;
  const std::int64_t pitch = plan.tenthsOfRate / lag;
  // What 16 bits cannot hold, above 3276.7 Hz, is no pitch of speech.
  if (pitch > std::numeric_limits<std::int16_t>::max()) return kUnvoiced;
  return static_cast<std::int16_t>(pitch);
}

}  // namespace

void SearchBlock(const AmdfBlock& block, const AmdfPlan& plan, int count, FrameEstimates& out) {
  FindLevels(block, out.level);
  const AcrossFrames coarse = FindCoarseLags(block, plan);
  for (int i = 0; i < count; ++i) {
    const std::uint8_t* frame = block.Frame(i);
    const std::size_t best = coarse[static_cast<std::size_t>(i)];
    const LagChoice fine = FindFineLag(frame, plan.lags[best - 1] + 1, plan.lags[best + 1] - 1);
    const std::int32_t lag = CheckOctaves(frame, fine, plan.minLag);
    out.pitch[static_cast<std::size_t>(i)] = TenthsOfHz(plan, lag);
  }
}

}  // namespace cantorix
