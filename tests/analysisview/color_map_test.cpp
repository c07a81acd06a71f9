// color_map_test.cpp - lightness and hue of the maps, and levels to their entries.
#include "analysisview/color_map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
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

// Every 51st colour as AARRGGBB.
std::string ColoursOf(const ColorTable& table) {
  std::ostringstream text;
  for (std::size_t i = 0; i < kColorCount; i += 51) text << std::hex << table[i] << ' ';
  return text.str();
}

// The colours were worked out apart from the program, from their paths through CIELAB.
TEST(ColorMap, LightnessRunsEvenlyOneWayThroughItsHues) {
  const struct {
    const char* name;
    ColorMap map;
    double first, last;  // L*
    const char* colours;
  } rows[] = {{"grey", ColorMap::kGrey, 100.0, 0.0,
               "ffffffff ffc6c6c6 ff919191 ff5e5e5e ff303030 ff000000 "},
              {"inverse grey", ColorMap::kInverseGrey, 0.0, 100.0,
               "ff000000 ff303030 ff5e5e5e ff919191 ffc6c6c6 ffffffff "},
              {"ember: violet, red, orange", ColorMap::kEmber, 4.0, 96.0,
               "ff0c0c1e ff581961 ffbc0266 fff75850 fff9b06e fff9f4dd "},
              {"tide: blue, teal, green", ColorMap::kTide, 4.0, 96.0,
               "ff090d1f ff033a52 ff066a79 ff02a094 ff89cfa1 fff0f6df "}};
  for (const auto& row : rows) {
    const ColorTable table = MakeColorTable(row.map);
    for (std::size_t i = 0; i < kColorCount; ++i) {
      const double even = row.first + (row.last - row.first) * static_cast<double>(i) / 255.0;
      // Half of a grey level of an 8-bit screen is up to 0.5 of L* in the dark.
      EXPECT_NEAR(LightnessOf(table[i]), even, 0.6) << row.name << ' ' << i;
    }
    EXPECT_EQ(ColoursOf(table), row.colours) << row.name;
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
