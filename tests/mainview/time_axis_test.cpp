// time_axis_test.cpp - pixels to times and back, the cursor's sample, selections either way.
#include "mainview/time_axis.h"
#include "mainview/view_fixture.h"

#include <gtest/gtest.h>

namespace cantorix {
namespace {

TEST(TimeAxis, PixelsReachTheStretchAndStopAtTheRecording) {
  const struct {
    double start, end, pixel;
    const char* point;  // samples and ms
  } rows[] = {{2000, 6000, 0, "2000 200"},      {2000, 6000, 250, "3000 300"},
              {2000, 6000, 1000, "6000 600"},   {2000, 6000, -100, "1600 160"},
              {2000, 6000, -900, "0 0"},        {0, 10000, 1001, "10000 1000"},
              {9000, 13000, 500, "10000 1000"}, {3000, 3000, 400, "3000 300"}};
  CChannel channel;
  SetLength(channel, 10000, 10000);
  for (const auto& row : rows) {
    Show(channel, row.start, row.end);
    const TimePoint point = PixelToTime(channel, 1000, row.pixel);
    EXPECT_EQ(Joined(point.samples, point.ms), row.point) << row.start << " at " << row.pixel;
  }
  EXPECT_EQ(PixelToTime(channel, 0, 7).samples, 3000.0) << "before the first layout";
}

TEST(TimeAxis, TimesFindTheirPixelOutsideTheStripToo) {
  CChannel channel;
  SetLength(channel, 10000, 10000);
  Show(channel, 2000, 6000);
  channel.visibleStart.ms = channel.visibleEnd.ms = -1.0;  // stale
  for (const auto& [ms, pixel] : {std::pair{300, 250}, {100, -250}, {1000, 2000}}) {
    EXPECT_DOUBLE_EQ(TimeToPixel(channel, 1000, ms), pixel);
  }
  Show(channel, 2000, 2000);
  EXPECT_EQ(TimeToPixel(channel, 1000, 300), 0.0);
}

TEST(TimeAxis, CursorTakesTheSampleUnderItAndTheSelectionToo) {
  ViewWorld world;
  for (const Place place : {Place::kMemory, Place::kDisk}) {
    CSonadexDoc document(world.test.host);
    CChannel& channel = document.channel();
    Hold(document, Samples{10, -20, 30, -40}, 500.0, place);
    channel.referenceLevel = 5.0;
    const std::pair<double, const char*> rows[] = {
        {3.98, "1.99 3.98 -25"},  // samples, ms and value
        {7.0, "3.5 7 -45"},
        {99.0, "4 8 -5"},  // the sample at the end reads 0
        {-1.0, "0 0 5"}};
    for (const auto& [ms, expected] : rows) {
      channel.selectionLength = {3, 3};
      SetCursorAtTime(document, ms);
      EXPECT_EQ(Joined(channel.cursor.samples, channel.cursor.ms, channel.cursorValue), expected);
      EXPECT_EQ(Joined(channel.selectionStart.samples, channel.selectionEnd.ms,
                       channel.selectionLength.samples, channel.selectionLength.ms),
                Joined(channel.cursor.samples, channel.cursor.ms, 0, 0));
    }
  }
}

TEST(TimeAxis, SelectionIsTheSameWhicheverWayItIsDragged) {
  CChannel channel;
  SetLength(channel, 1000, 500);
  const auto selection = [&channel] {
    UpdateSelection(channel);
    return Joined(channel.selectionStart.samples, channel.selectionStart.ms,
                  channel.selectionEnd.samples, channel.selectionEnd.ms,
                  channel.selectionLength.samples, channel.selectionLength.ms);
  };
  for (const auto& [from, to] : {std::pair{100, 350}, {350, 100}}) {
    channel.cursor = PixelToTime(channel, 500, from);
    channel.dragPoint = PixelToTime(channel, 500, to);
    EXPECT_EQ(selection(), "200 400 700 1400 500 1000");
  }
  channel.dragPoint = channel.cursor;
  EXPECT_EQ(selection(), "700 1400 700 1400 0 0") << "back at the cursor";
  ClearSelection(channel);
  EXPECT_EQ(Joined(channel.selectionEnd.samples, channel.cursor.samples), "0 700");
}

}  // namespace
}  // namespace cantorix
