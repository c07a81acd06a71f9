// zoom_test.cpp - what each zoom shows, what it remembers and where it stops, and zooming at the
// pointer.
#include "mainview/zoom.h"

#include <gtest/gtest.h>

#include "mainview/time_axis.h"
#include "mainview/time_axis_fixture.h"
#include "mainview/wheel_zoom.h"
#include "wide_view.h"

namespace cantorix {
namespace {

constexpr double kRangeMs = 100.0;

// 1 s at 10 kHz, showing [2000, 6000], the selection [2500, 3500], the cursor 10 ms before the end.
struct ZoomChannel : CChannel {
  ZoomChannel() {
    SetLength(*this, 10000, 10000);
    previousStart = -5.0;
    previousEnd = 10005.0;
    selectionStart.samples = 2500;
    selectionEnd.samples = 3500;
    cursor.samples = 9900;
    Show(*this, 2000, 6000);
  }
  std::string After(Zoom zoom) {
    ApplyZoom(*this, zoom, kRangeMs);
    return StretchText(*this);
  }
};

TEST(Zoom, EveryZoomShowsItsStretchAndRemembersTheLastOne) {
  const std::pair<Zoom, const char*> rows[] = {
      {Zoom::kUnZoom, "0 10000 10000 = 0 1000 1000 after -5 10005"},
      {Zoom::kIn, "3000 5000 2000 = 300 500 200 after 2000 6000"},
      {Zoom::kOut, "0 8000 8000 = 0 800 800 after 2000 6000"},
      {Zoom::kSelection, "2500 3500 1000 = 250 350 100 after 2000 6000"},
      {Zoom::kHome, "0 10000 10000 = 0 1000 1000 after 2000 6000"}};
  for (const auto& [zoom, shown] : rows) EXPECT_EQ(ZoomChannel().After(zoom), shown);
}

TEST(Zoom, FromCursorShowsTheWholeDurationBeyondTheEndIsKept) {
  EXPECT_EQ(ZoomChannel().After(Zoom::kFromCursor),
            "9900 10900 1000 = 990 1090 100 after 2000 6000");
}

TEST(Zoom, UnZoomGoesBackOneLevelExactlyAndStaysThere) {
  ZoomChannel channel;
  Show(channel, 1234.5678, 4321.9876);
  for (const Zoom zoom : {Zoom::kIn, Zoom::kUnZoom, Zoom::kUnZoom}) channel.After(zoom);
  EXPECT_EQ(channel.visibleStart.samples, 1234.5678);
  EXPECT_EQ(channel.visibleEnd.samples, 4321.9876);
}

// A cut has left stretches, selection and cursor behind the recording.
TEST(Zoom, NeverBeginsBehindItsEnd) {
  const std::pair<Zoom, const char*> rows[] = {{Zoom::kUnZoom, "10000 10000 "},
                                               {Zoom::kIn, "10000 10000 "},
                                               {Zoom::kOut, "10000 10000 "},
                                               {Zoom::kSelection, "2500 10000 "},
                                               {Zoom::kFromCursor, "10000 11000 "}};
  for (const auto& [zoom, shown] : rows) {
    ZoomChannel channel;
    channel.previousStart = channel.selectionEnd.samples = channel.cursor.samples = 12000;
    channel.previousEnd = 13000;
    Show(channel, 15000, 15400);
    EXPECT_EQ(channel.After(zoom).find(shown), 0U) << shown;
  }
}

TEST(Zoom, ToATimeCentresTheRangeAndStopsAtTheRecording) {
  const std::pair<double, const char*> rows[] = {
      {500.0, "4500 5500 1000 = 450 550 100 after 2000 6000"},
      {20.0, "0 700 700 = 0 70 70 after 2000 6000"},
      {980.0, "9300 10000 700 = 930 1000 70 after 2000 6000"},
      {3000.0, "9500 10000 500 = 950 1000 50 after 2000 6000"},
      {-3000.0, "0 500 500 = 0 50 50 after 2000 6000"}};
  for (const auto& [ms, shown] : rows) {
    ZoomChannel channel;
    ZoomToTime(channel, ms, kRangeMs);
    EXPECT_EQ(StretchText(channel), shown);
  }
}

constexpr std::int32_t kPointer = 300;

using WheelZoom = WideViewTest;

TEST_F(WheelZoom, TheTimeUnderThePointerStaysThere) {
  for (const int steps : {1, 2, -1, 3, -2}) {
    ZoomViewAround(view, kPointer, steps);
    EXPECT_NEAR(PixelToTime(channel, 1000, kPointer - kLeftMargin).ms, 2600.0, 1e-6) << steps;
  }
  EXPECT_EQ(playback.stops, 5);
  EXPECT_TRUE(view.zoomed());
}

TEST_F(WheelZoom, StaysWithinTheRecordingAndAboveAFewSamples) {
  ZoomViewAround(view, kPointer, 100);
  EXPECT_DOUBLE_EQ(channel.visibleLength.samples, kShortestZoomSamples);
  ZoomViewAround(view, kPointer, -100);
  EXPECT_EQ(StretchText(channel).find("0 10000 10000 = 0 10000 10000 after "), 0U);
  EXPECT_DOUBLE_EQ(channel.previousEnd - channel.previousStart, kShortestZoomSamples);
  EXPECT_FALSE(view.zoomed());
  ViewedRecording empty(world);
  ZoomViewAround(empty.view, kPointer, 1);
  EXPECT_EQ(empty.channel().visibleLength.samples, 0.0);
}

}  // namespace
}  // namespace cantorix
