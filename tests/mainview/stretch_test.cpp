// stretch_test.cpp - the stretch that is shown: by scroll bars, their steps and how far they go,
// and by zooms, what each shows, remembers and where it stops.
#include <gtest/gtest.h>

#include "mainview/scroll_bar.h"
#include "mainview/time_axis.h"
#include "mainview/view_fixture.h"
#include "mainview/wheel_zoom.h"
#include "mainview/zoom.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

constexpr ScrollRequest kRequests[] = {ScrollRequest::kLineBack, ScrollRequest::kLineForward,
                                       ScrollRequest::kPageBack, ScrollRequest::kPageForward,
                                       ScrollRequest::kTrack,    ScrollRequest::kThumbReleased,
                                       ScrollRequest::kEnd};

// Position and page of the bar of a stretch of 10000 samples or another length.
std::string BarOf(double start, double end, double length = 10000) {
  CChannel channel;
  SetLength(channel, length, 10000);
  Show(channel, start, end);
  const ScrollBar bar = HorizontalBarOf(channel);
  return Joined(bar.position, bar.page, IsZoomed(bar));
}

TEST(ScrollBar, IsUnzoomedWheneverTheWholeRecordingShows) {
  for (int length = 0; length < 20000; ++length) ASSERT_EQ(BarOf(0, length, length), "0 30001 0");
}

TEST(ScrollBar, FollowsTheStretchAndStepsByTenthsOfAPageAsApproved) {
  std::string text = "start end: position page zoomed\n";
  for (const auto& [start, end] : {std::pair{2000.0, 6000.0},
                                   {1.2, 4.5},
                                   {5000, 5000.1},
                                   {9900, 10900},
                                   {5000, 25000},
                                   {5000, 15000},
                                   {0.5, 10000},
                                   {0, 10000.5}}) {
    text += Joined(start, end) + ": " + BarOf(start, end) + '\n';
  }
  text += "position page: after line back, on, page back, on, track to 777, released, end\n";
  for (const std::int32_t position : {0, 50, 500, 1500, 28990}) {
    for (const std::int32_t page : {0, 9, 1009, 29900, kUnzoomedPage, INT32_MAX}) {
      text += Joined(position, page) + ':';
      for (const ScrollRequest request : kRequests) {
        const ScrollBar bar = ScrolledHorizontally({position, page}, request, 777);
        EXPECT_EQ(bar.page, page);
        text += ' ' + std::to_string(bar.position);
      }
      text += '\n';
    }
  }
  CChannel channel;
  SetLength(channel, 60000, 10000);
  ShowScrolled(channel, {.position = 300, .page = 50});
  text += StretchText(channel) + '\n';
  Show(channel, 10, 11.5);
  ShowScrolled(channel, {.position = 300, .page = 0});
  ExpectText("mainview/expected/ScrollBar.txt", text + StretchText(channel) + '\n');
}

TEST(ScrollBar, UnzoomedStretchEndsOnePositionBeyondTheRecordingIsKept) {
  CChannel channel;
  SetLength(channel, 30000, 10000);
  ShowScrolled(channel, {});
  EXPECT_DOUBLE_EQ(channel.visibleEnd.samples, 30001);
  EXPECT_EQ(HorizontalBarOf(channel).page, kUnzoomedPage);
}

// A line for each position and offset, with a page of 300 of 1000; lines and pages downward test
// differently.
TEST(VerticalScroll, DownwardTestsDifferForLinesAndPagesIsKept) {
  std::string text;
  for (const auto& [position, offset] : {std::pair{100, -100},
                                         {670, -670},
                                         {701, -970},
                                         {20, -20},
                                         {300, -300},
                                         {0, -20},
                                         {100, -90}}) {
    text += Joined(position, offset) + ':';
    for (const ScrollRequest request : kRequests) {
      const VerticalScroll after =
          ScrolledVertically({{position, 300, 1000}, offset}, request, 250);
      text += Joined("", after.bar.position, after.offset) + ',';
    }
    text += '\n';
  }
  // A resize fits the bar to the laid-out height: an end that came nearer takes the view along.
  for (const auto& [laidOut, client] : {std::pair{600, 600}, {599, 600}, {600, 20}}) {
    const auto [bar, offset] = FittedVertically({{400, 300, 1000}, -400}, laidOut, client);
    text += Joined(laidOut, client, ":", bar.position, bar.page, bar.range, offset) + '\n';
  }
  ExpectText("mainview/expected/VerticalScroll.txt", text);
}

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

// Each zoom, and the same where a cut has left stretches, selection and cursor behind the
// recording.
TEST(Zoom, ShowsItsStretchAndNeverBeginsBehindItsEndAsApproved) {
  std::string text;
  for (const Zoom zoom :
       {Zoom::kUnZoom, Zoom::kIn, Zoom::kOut, Zoom::kSelection, Zoom::kFromCursor, Zoom::kHome}) {
    ZoomChannel behind;
    behind.previousStart = behind.selectionEnd.samples = behind.cursor.samples = 12000;
    behind.previousEnd = 13000;
    Show(behind, 15000, 15400);
    text += ZoomChannel().After(zoom) + '\n' + behind.After(zoom) + '\n';
  }
  for (const double ms : {500.0, 20.0, 980.0, 3000.0, -3000.0}) {
    ZoomChannel channel;
    ZoomToTime(channel, ms, kRangeMs);
    text += "to " + Joined(ms, StretchText(channel)) + '\n';
  }
  ExpectText("mainview/expected/Zoom.txt", text);
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
