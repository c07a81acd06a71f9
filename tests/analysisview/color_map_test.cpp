// color_map_test.cpp - lightness and hue of the maps, and levels to their entries.
#include "analysisview/color_map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace cantorix {
namespace {

// CIE L* (0 ... 100) of a colour 0xAARRGGBB under D65.
double LightnessOf(std::uint32_t color) {
  const auto linear = [&](unsigned shift) {
    const double coded = static_cast<double>((color >> shift) & 0xffU) / 255.0;
    return coded <= 0.04045 ? coded / 12.92 : std::pow((coded + 0.055) / 1.055, 2.4);
  };
  const double y = 0.2126729 * linear(16) + 0.7151522 * linear(8) + 0.0721750 * linear(0);
  return y > 216.0 / 24389.0 ? 116.0 * std::cbrt(y) - 16.0 : y * 24389.0 / 27.0;
}

// The channels in falling order, or "grey".
std::string HueOf(std::uint32_t color) {
  const std::uint32_t r = color >> 16U & 0xffU, g = color >> 8U & 0xffU, b = color & 0xffU;
  if (r == g && g == b) return "grey";
  if (r >= g && r >= b) return g >= b ? "rgb" : "rbg";
  if (g >= r && g >= b) return b >= r ? "gbr" : "grb";
  return r >= g ? "brg" : "bgr";
}

TEST(ColorMap, LightnessRunsEvenlyOneWayThroughItsHues) {
  struct Row {
    const char* name;
    ColorMap map;
    double first, last;                   // L*
    std::string quarter, half, quarters;  // hues at 1/4, 1/2 and 3/4
  };
  const Row rows[] = {
      {"grey", ColorMap::kGrey, 100.0, 0.0, "grey", "grey", "grey"},
      {"inverse grey", ColorMap::kInverseGrey, 0.0, 100.0, "grey", "grey", "grey"},
      {"ember: violet, red, orange", ColorMap::kEmber, 4.0, 96.0, "rbg", "rbg", "rgb"},
      {"tide: blue, teal, green", ColorMap::kTide, 4.0, 96.0, "bgr", "bgr", "gbr"}};
  for (const Row& row : rows) {
    const ColorTable table = MakeColorTable(row.map);
    for (std::size_t i = 0; i < kColorCount; ++i) {
      const double even = row.first + (row.last - row.first) * static_cast<double>(i) / 255.0;
      // Half of a grey level of an 8-bit screen is up to 0.5 of L* in the dark.
      EXPECT_NEAR(LightnessOf(table[i]), even, 0.6) << row.name << ' ' << i;
      EXPECT_EQ(table[i] >> 24U, 0xffU) << row.name << ' ' << i;
    }
    EXPECT_EQ(HueOf(table[64]), row.quarter) << row.name;
    EXPECT_EQ(HueOf(table[128]), row.half) << row.name;
    EXPECT_EQ(HueOf(table[192]), row.quarters) << row.name;
  }
}

TEST(ColorMap, LevelsOutsideTheRangeTakeItsEnds) {
  struct Row {
    double level;
    int index;
  };
  for (const auto& [level, index] :
       {Row{0.0, 0}, Row{17.5, 128}, Row{34.93, 254}, Row{34.94, 255}, Row{35.0, 255}, Row{-1.0, 0},
        Row{1e9, 255}, Row{std::nan(""), 0}, Row{HUGE_VAL, 255}}) {
    EXPECT_EQ(ColorIndex(level, 35.0), index) << level;
  }
}

}  // namespace
}  // namespace cantorix
