// window_layout_test.cpp - the parts of an analysis window at every size.
#include "analysisview/window_layout.h"

#include <gtest/gtest.h>

#include "support/expected_text.h"
#include "support/joined.h"

namespace cantorix {
namespace {

std::string RectText(const PixelRect& rect) {
  return Joined(rect.left, rect.top, rect.right, rect.bottom);
}

// Labels, audio, intensity, plot, axis and readouts, for every choice of parts and for clients of
// any size; parts without room are empty.
TEST(WindowLayout, PartsFollowEachOtherAndFillTheClientArea) {
  std::string text;
  for (const WindowParts& parts : {WindowParts{},
                                   {.labelsHeight = 40},
                                   {.audio = true},
                                   {.labelsHeight = 40, .audio = true, .intensity = true},
                                   {.labelsHeight = 4000, .audio = true, .readoutLines = 3}}) {
    for (const PixelSize client : {PixelSize{1000, 600}, {300, 200}, {500, 40}, {30, 30}, {0, 0}}) {
      const WindowLayout layout = LayOutWindow(client, parts);
      text += Joined(client.width, client.height) + ": ";
      for (const PixelRect& part : {layout.labels, layout.audio, layout.intensity, layout.plot,
                                    layout.bottomAxis, layout.readouts}) {
        text += RectText(part) + ", ";
      }
      text += '\n';
    }
  }
  ExpectText("analysisview/expected/Layout.txt", text);
}

TEST(WindowLayout, TheAxisRunsOverThePlot) {
  const WindowLayout layout = LayOutWindow({1000, 600}, {});
  const AxisScale axis = layout.HorizontalAxis(100.0, 300.0);
  EXPECT_EQ(axis.ValueAt(layout.plot.left), 100.0);
  EXPECT_EQ(axis.ValueAt(layout.plot.right), 300.0);
}

}  // namespace
}  // namespace cantorix
