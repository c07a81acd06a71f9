// zoom_test.cpp - what each zoom shows, what it remembers and where it stops.
#include "mainview/zoom.h"

#include <gtest/gtest.h>

#include "mainview/time_axis_fixture.h"

namespace cantorix {
namespace {

constexpr double kRangeMs = 100.0;

// 1 s at 10 kHz, showing [2000, 6000], the selection [2500, 3500], the cursor 10 ms before the end.
void Prepare(CChannel& channel) {
  SetLength(channel, 10000, 10000);
  channel.previousStart = -5.0;
  channel.previousEnd = 10005.0;
  channel.selectionStart.samples = 2500;
  channel.selectionEnd.samples = 3500;
  channel.cursor.samples = 9900;
  Show(channel, 2000, 6000);
}

TEST(Zoom, EveryZoomShowsItsStretchAndRemembersTheLastOne) {
  struct Row {
    const char* name;
    Zoom zoom;
    double start, end;
    bool remembers = true;
  };
  for (const Row& row :
       {Row{"UnZoom", Zoom::kUnZoom, 0, 10000, false}, Row{"In", Zoom::kIn, 3000, 5000},
        Row{"Out", Zoom::kOut, 0, 8000}, Row{"Selection", Zoom::kSelection, 2500, 3500},
        Row{"Home", Zoom::kHome, 0, 10000}}) {
    CChannel channel;
    Prepare(channel);
    ApplyZoom(channel, row.zoom, kRangeMs);
    EXPECT_DOUBLE_EQ(channel.visibleStart.samples, row.start) << row.name;
    EXPECT_DOUBLE_EQ(channel.visibleEnd.samples, row.end) << row.name;
    EXPECT_DOUBLE_EQ(channel.visibleLength.samples, row.end - row.start) << row.name;
    EXPECT_DOUBLE_EQ(channel.visibleStart.ms, row.start * 0.1) << row.name;
    EXPECT_DOUBLE_EQ(channel.visibleLength.ms, (row.end - row.start) * 0.1) << row.name;
    EXPECT_EQ(channel.previousStart, row.remembers ? 2000 : -5) << row.name;
    EXPECT_EQ(channel.previousEnd, row.remembers ? 6000 : 10005) << row.name;
  }
}

TEST(Zoom, FromCursorShowsTheWholeDurationBeyondTheEndIsKept) {
  CChannel channel;
  Prepare(channel);
  ApplyZoom(channel, Zoom::kFromCursor, kRangeMs);
  EXPECT_EQ(channel.visibleStart.samples, 9900);
  EXPECT_DOUBLE_EQ(channel.visibleEnd.samples, 10900);
  EXPECT_EQ(channel.previousStart, 2000);
}

TEST(Zoom, UnZoomGoesBackOneLevelExactlyAndStaysThere) {
  CChannel channel;
  Prepare(channel);
  Show(channel, 1234.5678, 4321.9876);
  ApplyZoom(channel, Zoom::kIn, kRangeMs);
  for (int i = 0; i < 2; ++i) {
    ApplyZoom(channel, Zoom::kUnZoom, kRangeMs);
    EXPECT_EQ(channel.visibleStart.samples, 1234.5678);
    EXPECT_EQ(channel.visibleEnd.samples, 4321.9876);
  }
}

// A cut has left both ends of the previous stretch behind the recording.
TEST(Zoom, NeverBeginsBehindItsEnd) {
  for (const Zoom zoom : {Zoom::kUnZoom, Zoom::kIn, Zoom::kOut}) {
    CChannel channel;
    Prepare(channel);
    channel.previousStart = 12000;
    channel.previousEnd = 13000;
    Show(channel, 15000, 15400);
    ApplyZoom(channel, zoom, kRangeMs);
    EXPECT_EQ(channel.visibleStart.samples, 10000);
    EXPECT_EQ(channel.visibleEnd.samples, 10000);
  }
}

TEST(Zoom, SelectionLeftBeyondAShortenedRecordingEndsWithIt) {
  CChannel channel;
  Prepare(channel);
  channel.selectionEnd.samples = channel.cursor.samples = 12000;
  ApplyZoom(channel, Zoom::kSelection, kRangeMs);
  EXPECT_EQ(channel.visibleEnd.samples, 10000);
  ApplyZoom(channel, Zoom::kFromCursor, kRangeMs);
  EXPECT_EQ(channel.visibleStart.samples, 10000);
}

TEST(Zoom, ToATimeCentresTheRangeAndStopsAtTheRecording) {
  struct Row {
    double ms, start, end;
  };
  for (const Row& row : {Row{500, 4500, 5500}, Row{20, 0, 700}, Row{980, 9300, 10000},
                         Row{3000, 9500, 10000}, Row{-3000, 0, 500}}) {
    CChannel channel;
    Prepare(channel);
    ZoomToTime(channel, row.ms, kRangeMs);
    EXPECT_DOUBLE_EQ(channel.visibleStart.samples, row.start) << row.ms;
    EXPECT_DOUBLE_EQ(channel.visibleEnd.samples, row.end) << row.ms;
    EXPECT_DOUBLE_EQ(channel.visibleEnd.ms, row.end * 0.1) << row.ms;
    EXPECT_EQ(channel.previousStart, 2000) << row.ms;
    EXPECT_EQ(channel.previousEnd, 6000) << row.ms;
  }
}

}  // namespace
}  // namespace cantorix
