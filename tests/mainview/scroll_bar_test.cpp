// scroll_bar_test.cpp - bars of a stretch, stretches of a bar, steps and how far they go.
#include "mainview/scroll_bar.h"

#include <gtest/gtest.h>

#include <limits>

#include "mainview/time_axis_fixture.h"

namespace cantorix {
namespace {

using enum ScrollRequest;

CChannel& Showing(CChannel& channel, double length, double start, double end) {
  SetLength(channel, length, 10000);
  Show(channel, start, end);
  return channel;
}

TEST(ScrollBar, IsUnzoomedWheneverTheWholeRecordingShows) {
  CChannel channel;
  for (int length = 1; length < 20000; ++length) {
    const ScrollBar bar = HorizontalBarOf(Showing(channel, length, 0, length));
    ASSERT_EQ(bar.page, kUnzoomedPage) << length;
    ASSERT_FALSE(IsZoomed(bar)) << length;
  }
  EXPECT_FALSE(IsZoomed(HorizontalBarOf(Showing(channel, 0, 0, 0))));
}

TEST(ScrollBar, FollowsTheStretch) {
  struct Row {
    const char* name;
    double start, end;
    std::int32_t position, page;
  };
  CChannel channel;
  for (const Row& row : {Row{"inside", 2000, 6000, 6000, 12000}, Row{"truncated", 1.2, 4.5, 3, 9},
                         Row{"shorter than a position", 5000, 5000.1, 15000, 0},
                         Row{"ends beyond", 9900, 10900, 27001, 3000},
                         Row{"longer than the recording", 5000, 25000, 0, 60000},
                         Row{"as long, shifted", 5000, 15000, 0, 30001},
                         Row{"scrolled unzoomed", 0, 10000.5, 0, 30001}}) {
    const ScrollBar bar = HorizontalBarOf(Showing(channel, 10000, row.start, row.end));
    EXPECT_EQ(bar.position, row.position) << row.name;
    EXPECT_EQ(bar.page, row.page) << row.name;
  }
}

TEST(ScrollBar, StepsByTenthsOfAPageAndStopsAtTheEnds) {
  struct Row {
    const char* name;
    std::int32_t position, page;
    ScrollRequest request;
    std::int32_t track, expected;
  };
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  for (const Row& row :
       {Row{"line right", 500, 1009, kLineForward, 0, 600},
        Row{"line left", 500, 1009, kLineBack, 0, 400},
        Row{"page right", 500, 1009, kPageForward, 0, 1509},
        Row{"page left", 1500, 1009, kPageBack, 0, 491},
        Row{"at the start", 50, 1000, kLineBack, 0, 0},
        Row{"at the end", 28990, 1000, kLineForward, 0, 29001},
        Row{"track", 500, 1000, kTrack, 777, 777},
        Row{"track beyond", 500, 1000, kTrack, kMost, 29001},
        Row{"released", 500, 1000, kThumbReleased, 777, 500}, Row{"end", 500, 1000, kEnd, 777, 500},
        Row{"short page", 500, 9, kLineForward, 0, 500},
        Row{"no page, line", 500, 0, kLineForward, 0, 501},
        Row{"no page, page", 500, 0, kPageBack, 0, 499},
        Row{"unzoomed", 0, kUnzoomedPage, kPageForward, 0, 0},
        Row{"longest page", 0, kMost, kPageForward, 0, 0}}) {
    const ScrollBar bar = ScrolledHorizontally({row.position, row.page}, row.request, row.track);
    EXPECT_EQ(bar.position, row.expected) << row.name;
    EXPECT_EQ(bar.page, row.page) << row.name;
  }
}

TEST(ScrollBar, ShowsTheStretchOfItsPosition) {
  CChannel channel;
  ShowScrolled(Showing(channel, 60000, 0, 100), {.position = 300, .page = 50});
  EXPECT_DOUBLE_EQ(channel.visibleStart.samples, 600);
  EXPECT_DOUBLE_EQ(channel.visibleEnd.samples, 700);
  EXPECT_DOUBLE_EQ(channel.visibleLength.samples, 100);
  EXPECT_DOUBLE_EQ(channel.visibleStart.ms, 60);

  ShowScrolled(Showing(channel, 60000, 10, 11.5), {.position = 300, .page = 0});
  EXPECT_DOUBLE_EQ(channel.visibleEnd.samples, 601.5);
  EXPECT_EQ(channel.visibleLength.samples, 1.5);
}

TEST(ScrollBar, UnzoomedStretchEndsOnePositionBeyondTheRecordingIsKept) {
  CChannel channel;
  ShowScrolled(Showing(channel, 30000, 0, 30000), {});
  EXPECT_DOUBLE_EQ(channel.visibleEnd.samples, 30001);
  EXPECT_EQ(HorizontalBarOf(channel).page, kUnzoomedPage);
}

TEST(VerticalScroll, DownwardTestsDifferForLinesAndPagesIsKept) {
  struct Row {
    const char* name;
    std::int32_t position, offset;
    ScrollRequest request;
    std::int32_t newPosition, newOffset;
  };
  for (const Row& row :
       {Row{"line down", 100, -100, kLineForward, 130, -130},
        Row{"line down at the last page", 670, -670, kLineForward, 700, -670},
        Row{"page down at the last page", 670, -670, kPageForward, 701, -970},
        Row{"page down beyond", 701, -970, kPageForward, 701, -970},
        Row{"line up", 100, -100, kLineBack, 70, -70},
        Row{"line up at the start", 20, -20, kLineBack, 0, -20},
        Row{"page up", 300, -300, kPageBack, 0, 0}, Row{"track", 100, -100, kTrack, 250, -250},
        Row{"released", 250, -100, kThumbReleased, 250, -250},
        Row{"end at the start", 0, -20, kEnd, 0, 0},
        Row{"end at the last page", 701, -970, kEnd, 701, -701},
        Row{"end in between", 100, -90, kEnd, 100, -90}}) {
    const VerticalScroll before{{row.position, 300, 1000}, row.offset};
    const VerticalScroll after = ScrolledVertically(before, row.request, 250);
    EXPECT_EQ(after.bar.position, row.newPosition) << row.name;
    EXPECT_EQ(after.offset, row.newOffset) << row.name;
  }
}

TEST(VerticalScroll, AResizeFitsTheBarToTheLaidOutHeight) {
  const VerticalScroll scrolled{{400, 300, 1000}, -400};
  const VerticalScroll higher = FittedVertically(scrolled, 600, 600);
  EXPECT_EQ(higher.bar.range, 600);
  EXPECT_EQ(higher.bar.page, 550);
  EXPECT_EQ(higher.bar.position, 51);
  EXPECT_EQ(higher.offset, -51) << "an end that came nearer takes the view along";

  const VerticalScroll lower = FittedVertically(scrolled, 599, 600);
  EXPECT_EQ(lower.bar.range, 600);
  EXPECT_EQ(lower.bar.page, 601);
  EXPECT_EQ(lower.bar.position, 0);
  EXPECT_EQ(lower.offset, 0);

  EXPECT_EQ(FittedVertically(scrolled, 600, 20).bar.page, 0) << "a sliver of a window";
}

}  // namespace
}  // namespace cantorix
