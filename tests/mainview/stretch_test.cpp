// stretch_test.cpp - the stretch that is shown: by scroll bars, their steps and how far they go,
// and by zooms, what each shows, remembers and where it stops.
#include <gtest/gtest.h>

#include <limits>

#include "mainview/scroll_bar.h"
#include "mainview/time_axis.h"
#include "mainview/view_fixture.h"
#include "mainview/wheel_zoom.h"
#include "mainview/zoom.h"

namespace cantorix {
namespace {

using enum ScrollRequest;

ScrollBar BarOf(double length, double start, double end) {
  CChannel channel;
  SetLength(channel, length, 10000);
  Show(channel, start, end);
  return HorizontalBarOf(channel);
}

TEST(ScrollBar, IsUnzoomedWheneverTheWholeRecordingShows) {
  for (int length = 1; length < 20000; ++length) {
    const ScrollBar bar = BarOf(length, 0, length);
    ASSERT_EQ(bar.page, kUnzoomedPage) << length;
    ASSERT_FALSE(IsZoomed(bar)) << length;
  }
  EXPECT_FALSE(IsZoomed(BarOf(0, 0, 0)));
}

TEST(ScrollBar, FollowsTheStretch) {
  const struct {
    const char* name;
    double start, end;
    const char* bar;  // position and page
  } rows[] = {{"inside", 2000, 6000, "6000 12000"},
              {"truncated", 1.2, 4.5, "3 9"},
              {"shorter than a position", 5000, 5000.1, "15000 0"},
              {"ends beyond", 9900, 10900, "27001 3000"},
              {"longer than the recording", 5000, 25000, "0 60000"},
              {"as long, shifted", 5000, 15000, "0 30001"},
              {"scrolled unzoomed", 0, 10000.5, "0 30001"}};
  for (const auto& row : rows) {
    const ScrollBar bar = BarOf(10000, row.start, row.end);
    EXPECT_EQ(Joined(bar.position, bar.page), row.bar) << row.name;
  }
}

TEST(ScrollBar, StepsByTenthsOfAPageAndStopsAtTheEnds) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  const struct {
    std::int32_t position, page;
    ScrollRequest request;
    std::int32_t expected;
  } rows[] = {{500, 1009, kLineForward, 600},
              {500, 1009, kLineBack, 400},
              {500, 1009, kPageForward, 1509},
              {1500, 1009, kPageBack, 491},
              {50, 1000, kLineBack, 0},
              {28990, 1000, kLineForward, 29001},
              {500, 1000, kTrack, 777},
              {500, 29900, kTrack, 101},
              {500, 1000, kThumbReleased, 500},
              {500, 1000, kEnd, 500},
              {500, 9, kLineForward, 500},
              {500, 0, kLineForward, 501},  // where a page is shorter than a position
              {500, 0, kPageBack, 499},
              {0, kUnzoomedPage, kPageForward, 0},
              {0, kMost, kPageForward, 0}};
  for (const auto& row : rows) {
    const ScrollBar bar = ScrolledHorizontally({row.position, row.page}, row.request, 777);
    EXPECT_EQ(Joined(bar.position, bar.page), Joined(row.expected, row.page))
        << row.position << ' ' << static_cast<int>(row.request);
  }
}

TEST(ScrollBar, ShowsTheStretchOfItsPosition) {
  CChannel channel;
  SetLength(channel, 60000, 10000);
  ShowScrolled(channel, {.position = 300, .page = 50});
  EXPECT_EQ(StretchText(channel), "600 700 100 = 60 70 10 after 0 60000");
  Show(channel, 10, 11.5);
  ShowScrolled(channel, {.position = 300, .page = 0});
  EXPECT_EQ(StretchText(channel), "600 601.5 1.5 = 60 60.15 0.15 after 0 60000");
}

TEST(ScrollBar, UnzoomedStretchEndsOnePositionBeyondTheRecordingIsKept) {
  CChannel channel;
  SetLength(channel, 30000, 10000);
  ShowScrolled(channel, {});
  EXPECT_DOUBLE_EQ(channel.visibleEnd.samples, 30001);
  EXPECT_EQ(HorizontalBarOf(channel).page, kUnzoomedPage);
}

TEST(VerticalScroll, DownwardTestsDifferForLinesAndPagesIsKept) {
  const struct {
    const char* name;
    std::int32_t position, offset;
    ScrollRequest request;
    const char* after;  // position and offset
  } rows[] = {{"line down", 100, -100, kLineForward, "130 -130"},
              {"line down at the last page", 670, -670, kLineForward, "700 -670"},
              {"page down at the last page", 670, -670, kPageForward, "701 -970"},
              {"page down beyond", 701, -970, kPageForward, "701 -970"},
              {"line up", 100, -100, kLineBack, "70 -70"},
              {"line up at the start", 20, -20, kLineBack, "0 -20"},
              {"page up", 300, -300, kPageBack, "0 0"},
              {"track", 100, -100, kTrack, "250 -250"},
              {"released", 250, -100, kThumbReleased, "250 -250"},
              {"end at the start", 0, -20, kEnd, "0 0"},
              {"end at the last page", 701, -970, kEnd, "701 -701"},
              {"end in between", 100, -90, kEnd, "100 -90"}};
  for (const auto& row : rows) {
    const VerticalScroll after =
        ScrolledVertically({{row.position, 300, 1000}, row.offset}, row.request, 250);
    EXPECT_EQ(Joined(after.bar.position, after.offset), row.after) << row.name;
  }
}

TEST(VerticalScroll, AResizeFitsTheBarToTheLaidOutHeight) {
  const struct {
    std::int32_t laidOut, client;
    const char* fitted;                      // position, page, range and offset
  } rows[] = {{600, 600, "51 550 600 -51"},  // an end that came nearer takes the view along
              {599, 600, "0 601 600 0"},
              {600, 20, "400 0 600 -400"}};  // a sliver of a window
  for (const auto& row : rows) {
    const auto [bar, offset] = FittedVertically({{400, 300, 1000}, -400}, row.laidOut, row.client);
    EXPECT_EQ(Joined(bar.position, bar.page, bar.range, offset), row.fitted) << row.client;
  }
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
