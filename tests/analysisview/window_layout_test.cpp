// window_layout_test.cpp - the parts of an analysis window at every size.
#include "analysisview/window_layout.h"

#include <gtest/gtest.h>

namespace cantorix {
namespace {

std::int32_t Height(const PixelRect& rect) { return rect.bottom - rect.top; }

TEST(WindowLayout, PartsFollowEachOtherAndFillTheClientArea) {
  const WindowParts rows[] = {{},
                              {.labelsHeight = 40},
                              {.audio = true},
                              {.labelsHeight = 40, .audio = true, .intensity = true},
                              {.labelsHeight = 4000, .audio = true, .readoutLines = 3}};
  for (const WindowParts& parts : rows) {
    for (const PixelSize client : {PixelSize{1000, 600}, PixelSize{300, 200}}) {
      const WindowLayout layout = LayOutWindow(client, parts);
      std::int32_t below = 0;
      for (const PixelRect& part : {layout.labels, layout.audio, layout.intensity, layout.plot,
                                    layout.bottomAxis, layout.readouts}) {
        if (Height(part) == 0) continue;
        EXPECT_GE(part.top, below) << client.width;
        EXPECT_GT(Height(part), 0);
        below = part.bottom;
      }
      EXPECT_EQ(below, client.height);
      EXPECT_EQ(Height(layout.audio) > 0, parts.audio);
      EXPECT_EQ(Height(layout.intensity), parts.intensity ? Height(layout.audio) : 0);
      EXPECT_EQ(Height(layout.labels) > 0, parts.labelsHeight > 0);
      EXPECT_EQ(Height(layout.readouts), 18 * parts.readoutLines);
      EXPECT_EQ(Height(layout.bottomAxis), 24);
      EXPECT_EQ(Height(layout.intensity) > 0, parts.intensity);
      EXPECT_GE(Height(layout.plot), Height(layout.audio)) << "the plot is the largest part";
    }
  }
}

TEST(WindowLayout, AWindowWithoutRoomHasEmptyParts) {
  for (const PixelSize client : {PixelSize{0, 0}, PixelSize{30, 30}, PixelSize{500, 40}}) {
    const WindowLayout layout =
        LayOutWindow(client, {.labelsHeight = 20, .audio = true, .intensity = true});
    for (const PixelRect& part : {layout.labels, layout.audio, layout.intensity, layout.plot}) {
      EXPECT_GE(part.right, part.left);
      EXPECT_EQ(Height(part), 0);
    }
  }
}

TEST(WindowLayout, TheAxisRunsOverThePlot) {
  const WindowLayout layout = LayOutWindow({1000, 600}, {});
  EXPECT_EQ(layout.plot.left, 40);
  EXPECT_EQ(layout.plot.right, 995);
  const AxisScale axis = layout.HorizontalAxis(100.0, 300.0);
  EXPECT_EQ(axis.ValueAt(layout.plot.left), 100.0);
  EXPECT_EQ(axis.ValueAt(layout.plot.right), 300.0);
}

}  // namespace
}  // namespace cantorix
