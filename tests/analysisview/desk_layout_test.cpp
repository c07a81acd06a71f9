// desk_layout_test.cpp - heights and widths of a recording's windows in areas of two screens.
#include "analysisview/desk_layout.h"

#include <gtest/gtest.h>

namespace cantorix {
namespace {

TEST(DeskLayout, SharesTheAreaByWhatThereIsToShow) {
  struct Case {
    PixelSize area;
    DeskContents contents;
    // Right edge of the main view; lower edges of main view, spectrogram and pitch track, 0: none.
    std::int32_t width, main, spectrogram, pitch;
    bool isShared;
  };
  constexpr PixelSize kLarge{1920, 982};
  constexpr PixelSize kSmall{1280, 702};
  const Case cases[] = {{kLarge, {true, true, false, 0, 2}, 1920, 412, 743, 982, false},
                        {kLarge, {true, true, false, 200, 2}, 1920, 492, 776, 982, false},
                        {kLarge, {true, true, true, 0, 2}, 1360, 412, 743, 982, false},
                        {kSmall, {true, true, false, 0, 2}, 1280, 267, 506, 702, false},
                        {kSmall, {true, true, false, 200, 2}, 1280, 412, 702, 702, true},
                        {kSmall, {true, false, true, 0, 2}, 840, 295, 702, 0, false},
                        {kSmall, {false, true, false, 300, 3}, 1280, 492, 0, 702, false},
                        {kSmall, {false, false, true, 0, 2}, 840, 702, 0, 0, false},
                        {{1599, 150}, {true, false, true, 0, 1}, 1159, 0, 150, 0, false},
                        {{1600, 460}, {true, true, true, 0, 0}, 1040, 175, 460, 460, true}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.area.width << " x " << c.area.height << ", tiers "
                                    << c.contents.tiersHeight << ", line " << &c - cases);
    const DeskLayout layout = LayOutDesk(c.area, c.contents);
    EXPECT_EQ(layout.main.bottom, c.main);
    EXPECT_EQ(layout.spectrogram.bottom, c.spectrogram);
    EXPECT_EQ(layout.pitch.bottom, c.pitch);
    EXPECT_EQ(layout.isPlaceShared, c.isShared);
    EXPECT_EQ(layout.main.right, c.width);
    if (c.contents.spectrogram) {
      EXPECT_EQ(layout.spectrogram.top, c.main);
      EXPECT_EQ(layout.spectrogram.right, c.width);
    }
    if (c.contents.pitch) {
      EXPECT_EQ(layout.pitch.top, c.isShared || c.spectrogram == 0 ? c.main : c.spectrogram);
      EXPECT_EQ(layout.pitch.right, c.width);
    }
    EXPECT_EQ(layout.spectrum.left, c.contents.spectrum ? c.width : 0);
    EXPECT_EQ(layout.spectrum.right, c.contents.spectrum ? c.area.width : 0);
  }
}

}  // namespace
}  // namespace cantorix
