// color_map.h - colours for levels. All maps run monotonically in lightness (CIE L*), and the
// coloured ones in even steps of it, so that equal differences of level look equal and a grey print
// reads the same. Source: CIE 15:2004, Colorimetry (L*a*b*); IEC 61966-2-1 (sRGB).
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace cantorix {

enum class ColorMap {
  kGrey,         // loud is black
  kInverseGrey,  // loud is white
  kEmber,        // dark violet over red to light yellow
  kTide,         // dark blue over teal to light green
};

inline constexpr std::size_t kColorCount = 256;
// 0xAARRGGBB, opaque; from silence to the loudest level.
using ColorTable = std::array<std::uint32_t, kColorCount>;

ColorTable MakeColorTable(ColorMap map);

// The entry for a level of 0 ... range; what lies outside, and NaN, takes the nearest end.
inline std::uint8_t ColorIndex(double level, double range) {
  const double scaled = level / range * 255.0 + 0.5;
  if (!(scaled > 0.0)) return 0;
  return scaled < 255.0 ? static_cast<std::uint8_t>(scaled) : std::uint8_t{255};
}

}  // namespace cantorix
