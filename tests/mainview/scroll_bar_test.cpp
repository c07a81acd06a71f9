// scroll_bar_test.cpp - bars of a stretch, stretches of a bar, steps and how far they go.
#include "mainview/scroll_bar.h"

#include <gtest/gtest.h>

#include <limits>

#include "mainview/time_axis_fixture.h"

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

}  // namespace
}  // namespace cantorix
