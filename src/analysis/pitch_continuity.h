// pitch_continuity.h - what turns single estimates into a contour: runs of frames that hang
// together, short gaps between them bridged, the rest dropped.
// Values are 16-bit; a negative one stands for a frame without a value.
//
//   |P[j] - P[j+1]| <= c P[j] / 100                              neighbours of a run
//   |P[i] - P[i+d]| <= K[d] (P[i] + P[i+d]) c / 2000             ends of a gap that is bridged
//   P'[i] = (3 P[i] + 2 P[i+-1] + P[i+-2]) / 6                   the smoother, backward and forward
//
// with the contour P in tenths of Hz, the tolerance c in percent and K = 14, 17, 20, 22, 24, 26 for
// gaps of d - 1 = 1 ... 6 frames.
#pragma once

#include <cstdint>
#include <span>

namespace cantorix {

inline constexpr std::int16_t kUnvoiced = -1;  // 0xFFFF
inline constexpr std::int16_t kRejected = -2;  // 0xFFFE: voiced, but in a run that was too short

inline constexpr std::size_t kMinRunFrames = 5;
inline constexpr std::size_t kMaxGapFrames = 7;  // from the frame before a gap to the one after it

// Cuts the voiced stretches where a value differs from its neighbours by more than
// `tolerancePercent` of itself (a single outlier is replaced by the mean of its neighbours) and
// rejects the runs of fewer than kMinRunFrames.
void KeepContinuousRuns(std::span<std::int16_t> values, std::int32_t tolerancePercent);

// Fills the rejected frames between two runs by a straight line when the gap is short and its ends
// are close enough for its length; makes them unvoiced otherwise. A rejected last frame that no
// voiced one leads up to stays rejected.
void BridgeGaps(std::span<std::int16_t> values, std::int32_t tolerancePercent);

// One pass of the weighted smoother: a backward sweep with weights 3, 2, 1 over each value and the
// two before it, then a forward sweep over each value and the two after it. Weighting stops at the
// first frame without a value.
void SmoothWeighted(std::span<std::int16_t> values);

}  // namespace cantorix
