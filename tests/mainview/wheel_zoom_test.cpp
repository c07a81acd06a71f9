// wheel_zoom_test.cpp - zooming at the pointer.
#include "mainview/wheel_zoom.h"

#include "mainview/time_axis.h"
#include "mainview/view_fixture.h"

namespace cantorix {
namespace {

constexpr std::int32_t kPointer = 300;

class WheelZoom : public testing::Test {
 protected:
  WheelZoom() : document(world.test.host) {
    Hold(document, Samples(16000), 8000.0);
    view.emplace(document, world.Services());
    view->Begin({845, 600});
  }
  double Under() {
    return PixelToTime(document.channel(), view->layout.axisWidth(), kPointer - kLeftMargin)
        .samples;
  }

  ViewWorld world;
  CSonadexDoc document;
  std::optional<CSonadexView> view;
};

TEST_F(WheelZoom, TheTimeUnderThePointerStaysThere) {
  const double before = Under();
  for (const int steps : {1, 2, -1, 3, -2}) {
    ZoomViewAround(*view, kPointer, steps);
    EXPECT_NEAR(Under(), before, 1e-6) << steps;
  }
  EXPECT_EQ(world.playback.stops, 5);
  EXPECT_TRUE(view->zoomed());
}

TEST_F(WheelZoom, StaysWithinTheRecordingAndAboveAFewSamples) {
  ZoomViewAround(*view, kPointer, 100);
  EXPECT_DOUBLE_EQ(document.channel().visibleLength.samples, kShortestZoomSamples);
  ZoomViewAround(*view, kPointer, -100);
  EXPECT_DOUBLE_EQ(document.channel().visibleStart.samples, 0.0);
  EXPECT_DOUBLE_EQ(document.channel().visibleEnd.samples, 16000.0);
  EXPECT_FALSE(view->zoomed());
  EXPECT_DOUBLE_EQ(document.channel().previousEnd - document.channel().previousStart,
                   kShortestZoomSamples);
}

TEST_F(WheelZoom, AnEmptyDocumentIsLeftAlone) {
  CSonadexDoc empty(world.test.host);
  CSonadexView other(empty, world.Services());
  other.Begin({845, 600});
  ZoomViewAround(other, kPointer, 1);
  EXPECT_EQ(empty.channel().visibleLength.samples, 0.0);
}

}  // namespace
}  // namespace cantorix
