// color_map_test.cpp
#include "analysisview/color_map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace cantorix {
namespace {

TEST(ColorMap, LightnessRunsEvenlyOneWay) {
  struct Row {
    const char* name;
    ColorMap map;
    double first, last;  // L*
  };
  const Row rows[] = {{"grey", ColorMap::kGrey, 100.0, 0.0},
                      {"inverse grey", ColorMap::kInverseGrey, 0.0, 100.0},
                      {"ember", ColorMap::kEmber, 4.0, 96.0},
                      {"tide", ColorMap::kTide, 4.0, 96.0}};
  for (const Row& row : rows) {
    const ColorTable table = MakeColorTable(row.map);
    const double step = (row.last - row.first) / 255.0;
    for (std::size_t i = 0; i < kColorCount; ++i) {
      const double even = row.first + step * static_cast<double>(i);
      // Half of a grey level of an 8-bit screen is up to 0.5 of L* in the dark.
      EXPECT_NEAR(LightnessOf(table[i]), even, 0.6) << row.name << ' ' << i;
      EXPECT_EQ(table[i] >> 24U, 0xffU) << row.name << ' ' << i;
    }
    EXPECT_GT((LightnessOf(table[255]) - LightnessOf(table[0])) * step, 0.0) << row.name;
  }
}

TEST(ColorMap, NeighboursDifferAndLightnessNeverTurns) {
  for (const ColorMap map : {ColorMap::kEmber, ColorMap::kTide}) {
    const ColorTable table = MakeColorTable(map);
    for (std::size_t i = 3; i < kColorCount; ++i) {
      EXPECT_GT(LightnessOf(table[i]), LightnessOf(table[i - 3])) << i;
    }
  }
}

TEST(ColorMap, LevelsOutsideTheRangeTakeItsEnds) {
  EXPECT_EQ(ColorIndex(0.0, 35.0), 0);
  EXPECT_EQ(ColorIndex(35.0, 35.0), 255);
  EXPECT_EQ(ColorIndex(17.5, 35.0), 128);
  EXPECT_EQ(ColorIndex(-1.0, 35.0), 0);
  EXPECT_EQ(ColorIndex(1e9, 35.0), 255);
  EXPECT_EQ(ColorIndex(std::numeric_limits<double>::quiet_NaN(), 35.0), 0);
  EXPECT_EQ(ColorIndex(HUGE_VAL, 35.0), 255);
}

}  // namespace
}  // namespace cantorix
