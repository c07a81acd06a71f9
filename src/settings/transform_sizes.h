// transform_sizes.h - the sizes that a transform can have, as every list of them counts.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

namespace cantorix {

inline constexpr int kFftLpcSizes = 8;       // 32 to 4096 points
inline constexpr int kSpectrogramSizes = 9;  // 32 to 8192 points
inline constexpr std::int32_t kFewestPoints = 32;

// The points of entry `index`, which counts from 0.
constexpr std::int32_t PointsOfEntry(int index) { return kFewestPoints << index; }

// The last entry that has at most so many points; the first one for fewer than the list has.
constexpr int EntryOfPoints(std::int32_t points) {
  const auto lines = static_cast<std::uint32_t>(std::max(points / kFewestPoints, 1));
  return static_cast<int>(std::bit_width(lines)) - 1;
}

}  // namespace cantorix
