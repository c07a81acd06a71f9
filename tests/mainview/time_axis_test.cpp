// time_axis_test.cpp - pixels to times and back, the cursor's sample, selections either way.
#include "mainview/time_axis.h"

#include <gtest/gtest.h>

#include "analysisview/window_fixture.h"
#include "mainview/time_axis_fixture.h"

namespace cantorix {
namespace {

TEST(TimeAxis, PixelsReachTheStretchAndStopAtTheRecording) {
  struct Row {
    const char* name;
    double start, end, pixel, samples, ms;
  };
  CChannel channel;
  for (const Row& row :
       {Row{"left margin", 2000, 6000, 0, 2000, 200}, Row{"inside", 2000, 6000, 250, 3000, 300},
        Row{"right edge", 2000, 6000, 1000, 6000, 600},
        Row{"left of the margin", 2000, 6000, -100, 1600, 160},
        Row{"before the recording", 2000, 6000, -900, 0, 0},
        Row{"beyond the right edge", 0, 10000, 1001, 10000, 1000},
        Row{"stretch beyond the recording", 9000, 13000, 500, 10000, 1000},
        Row{"empty stretch", 3000, 3000, 400, 3000, 300}}) {
    SetLength(channel, 10000, 10000);
    Show(channel, row.start, row.end);
    const TimePoint point = PixelToTime(channel, 1000, row.pixel);
    EXPECT_DOUBLE_EQ(point.samples, row.samples) << row.name;
    EXPECT_DOUBLE_EQ(point.ms, row.ms) << row.name;
  }
  SetLength(channel, 10000, 10000);
  EXPECT_EQ(PixelToTime(channel, 0, 7).samples, 0.0) << "before the first layout";
}

TEST(TimeAxis, TimesFindTheirPixelOutsideTheStripToo) {
  CChannel channel;
  SetLength(channel, 10000, 10000);
  Show(channel, 2000, 6000);
  channel.visibleStart.ms = channel.visibleEnd.ms = -1.0;  // stale
  EXPECT_DOUBLE_EQ(TimeToPixel(channel, 1000, 300), 250);
  EXPECT_DOUBLE_EQ(TimeToPixel(channel, 1000, 100), -250);
  EXPECT_DOUBLE_EQ(TimeToPixel(channel, 1000, 1000), 2000);
  Show(channel, 2000, 2000);
  EXPECT_EQ(TimeToPixel(channel, 1000, 300), 0.0);
}

TEST(TimeAxis, CursorTakesTheSampleUnderItAndTheSelectionToo) {
  RecordingFixture recording({10, -20, 30, -40}, 1000.0);
  for (CSonadexDoc* document : {&recording.inMemory, &recording.onDisk}) {
    CChannel& channel = document->channel();
    SetLength(channel, 4, 1000);
    channel.referenceLevel = 5.0;
    channel.selectionLength = {3, 3};

    SetCursorAtPoint(*document, {1.99, 1.99});
    EXPECT_DOUBLE_EQ(channel.cursor.samples, 1.99);
    EXPECT_EQ(channel.cursorValue, -25.0);
    EXPECT_EQ(channel.selectionStart.samples, channel.cursor.samples);
    EXPECT_EQ(channel.selectionEnd.ms, channel.cursor.ms);
    EXPECT_EQ(channel.selectionLength.samples, 0.0);
    EXPECT_EQ(channel.selectionLength.ms, 0.0);

    SetCursorAtTime(*document, 3.5);
    EXPECT_EQ(channel.cursorValue, -45.0);
    SetCursorAtTime(*document, 99.0);
    EXPECT_EQ(channel.cursor.samples, 4.0);
    EXPECT_EQ(channel.cursor.ms, 4.0);
    EXPECT_EQ(channel.cursorValue, -5.0) << "the sample at the end reads 0";
    SetCursorAtTime(*document, -1.0);
    EXPECT_EQ(channel.cursorValue, 5.0);
  }
}

TEST(TimeAxis, SelectionIsTheSameWhicheverWayItIsDragged) {
  RecordingFixture recording(testing::Samples(1000, 0), 1000.0);
  CSonadexDoc& document = recording.inMemory;
  CChannel& channel = document.channel();
  SetLength(channel, 1000, 1000);
  for (const auto& [from, to] : {std::pair{100, 350}, std::pair{350, 100}}) {
    SetCursorAtPoint(document, PixelToTime(channel, 500, from));
    channel.dragPoint = PixelToTime(channel, 500, to);
    UpdateSelection(channel);
    EXPECT_DOUBLE_EQ(channel.selectionStart.samples, 200) << from;
    EXPECT_DOUBLE_EQ(channel.selectionStart.ms, 200) << from;
    EXPECT_DOUBLE_EQ(channel.selectionEnd.samples, 700) << from;
    EXPECT_DOUBLE_EQ(channel.selectionEnd.ms, 700) << from;
    EXPECT_DOUBLE_EQ(channel.selectionLength.samples, 500) << from;
    EXPECT_DOUBLE_EQ(channel.selectionLength.ms, 500) << from;
  }
  channel.dragPoint = channel.cursor;
  UpdateSelection(channel);
  EXPECT_DOUBLE_EQ(channel.selectionStart.samples, 700);
  EXPECT_EQ(channel.selectionLength.samples, 0.0) << "back at the cursor";

  ClearSelection(channel);
  EXPECT_EQ(channel.selectionEnd.samples, 0.0);
  EXPECT_DOUBLE_EQ(channel.cursor.samples, 700);
}

}  // namespace
}  // namespace cantorix
