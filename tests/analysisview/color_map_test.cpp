// color_map_test.cpp - the colours of the maps, and levels to their entries.
#include "analysisview/color_map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "support/expected_text.h"

namespace cantorix {
namespace {

// Every colour as AARRGGBB. They were worked out apart from the program, from their paths through
// CIELAB, on which the lightness runs evenly one way.
TEST(ColorMap, ColoursAreAsWorkedOut) {
  std::ostringstream text;
  text << std::hex;
  for (const ColorMap map :
       {ColorMap::kGrey, ColorMap::kInverseGrey, ColorMap::kEmber, ColorMap::kTide}) {
    const ColorTable table = MakeColorTable(map);
    for (std::size_t i = 0; i < kColorCount; ++i) text << table[i] << (i % 8 == 7 ? '\n' : ' ');
  }
  ExpectText("analysisview/expected/Colours.txt", text.str());
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
