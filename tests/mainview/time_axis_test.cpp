// time_axis_test.cpp - pixels to times and back, the cursor's sample, selections either way, and
// what stands at a time: entries of tracks, their mean that weighs later ones more, and the entries
// and extents under a column of pixels.
#include "mainview/time_axis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "mainview/track_columns.h"
#include "mainview/track_lookup.h"
#include "mainview/view_fixture.h"

namespace cantorix {
namespace {

TEST(TimeAxis, PixelsReachTheStretchAndStopAtTheRecordingAndTimesFindThem) {
  const struct {
    double start, end, pixel;
    const char* point;  // samples and ms
  } rows[] = {{2000, 6000, 0, "2000 200"},      {2000, 6000, 250, "3000 300"},
              {2000, 6000, -100, "1600 160"},   {2000, 6000, -900, "0 0"},
              {9000, 13000, 500, "10000 1000"}, {3000, 3000, 400, "3000 300"}};
  CChannel channel;
  SetLength(channel, 10000, 10000);
  for (const auto& row : rows) {
    Show(channel, row.start, row.end);
    const TimePoint point = PixelToTime(channel, 1000, row.pixel);
    EXPECT_EQ(Joined(point.samples, point.ms), row.point) << row.start << " at " << row.pixel;
  }
  EXPECT_EQ(PixelToTime(channel, 0, 7).samples, 3000.0) << "before the first layout";
  EXPECT_EQ(TimeToPixel(channel, 1000, 300), 0.0);
  Show(channel, 2000, 6000);
  channel.visibleStart.ms = channel.visibleEnd.ms = -1.0;  // stale
  for (const auto& [ms, pixel] : {std::pair{300, 250}, {100, -250}, {1000, 2000}}) {
    EXPECT_DOUBLE_EQ(TimeToPixel(channel, 1000, ms), pixel);
  }
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

// A sample every 0.1 ms; tracks run from 100 to 200 ms.
class TrackLookup : public ::testing::Test {
 protected:
  TrackLookup() {
    SetLength(channel, 10000, 10000);
    channel.intensity = IntensityOf({50, 60}, {1000, 2000});
  }
  CChannel channel;
  PitchResult pitch = PitchOf({110, 120, 130, 140}, {1000, 2000});
};

TEST_F(TrackLookup, ReadsTheEntryATimeFallsIntoAndNothingOutside) {
  const std::pair<double, const char*> rows[] = {{100, "110 50"}, {124, "110 50"}, {126, "120 50"},
                                                 {160, "130 60"}, {199, "140 60"}, {200, "0 0"},
                                                 {700, "0 0"},    {70, "0 0"}};
  const auto read = [this](double ms) {
    return Joined(PitchAt(pitch, channel, ms), IntensityAt(channel.intensity, channel, ms));
  };
  for (const auto& [ms, expected] : rows) EXPECT_EQ(read(ms), expected) << ms;
  pitch.PitchValid = channel.intensity.IntensityValid = false;
  EXPECT_EQ(read(100), "0 0");
  EXPECT_EQ(AveragePitch(pitch, channel, 0, 1000), 0.0);
  EXPECT_EQ(PitchAt(PitchOf({110}, {1000, 2000}), CChannel(), 0.0), 0.0) << "an empty channel";
}

TEST_F(TrackLookup, TimesJustBeforeTheTrackReadItsFirstEntryIsKept) {
  EXPECT_EQ(PitchAt(pitch, channel, 80), 110.0);
}

TEST_F(TrackLookup, LaterEntriesWeighMoreInTheMeanIsKept) {
  pitch = PitchOf({100, 0, 200, 120}, {1000, 2000});  // at 100, 125, 150 and 175 ms
  struct Row {
    const char* name;
    double startMs, endMs, meanHz;
  };
  for (const Row& row : {Row{"all", 0, 1000, 135}, Row{"ends included", 100, 150, 150},
                         Row{"first voiced as it is", 110, 160, 200},
                         Row{"unvoiced only", 120, 130, 0}, Row{"between entries", 151, 174, 0}}) {
    EXPECT_EQ(AveragePitch(pitch, channel, row.startMs, row.endMs), row.meanHz) << row.name;
  }
}

// Against sorting each column's values.
TEST(TrackColumns, TellHowTheEntriesThatStandInThemAreSpread) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  std::vector<double> values(9000);
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = i % 7 == 0 || i % 900 < 40 ? 0.0
                : i % 11 == 0              ? nan
                                           : 100.0 + 50.0 * std::sin(double(i * i));
  }
  const TrackSummary summary(values, 0.0);
  for (const TrackPlace place :
       {TrackPlace{0.0, 0.01}, TrackPlace{-40.3, 0.037}, TrackPlace{12.0, 0.0005},
        TrackPlace{0.0, 3.0}, TrackPlace{0.0, 3.0}, TrackPlace{5000.0, 1.0}}) {
    const auto columns = TrackColumns(summary, place, 90);
    for (std::size_t c = 0; c < columns.size(); ++c) {
      std::vector<double> inside;
      for (std::size_t i = 0; i < values.size(); ++i) {
        const double x = place.X(static_cast<double>(i));
        if (std::floor(x) == static_cast<double>(c) && values[i] > 0.0) inside.push_back(values[i]);
      }
      std::ranges::sort(inside);
      ASSERT_EQ(columns[c].count, static_cast<std::int64_t>(inside.size()))
          << place.step << ' ' << c;
      if (inside.empty()) continue;
      const auto expected = [&](double part) {
        return inside[static_cast<std::size_t>(
            std::llround(part * static_cast<double>(inside.size() - 1)))];
      };
      const double near = summary.binWidth() * 1.001;
      EXPECT_NEAR(columns[c].low, expected(0.1), near) << place.step << ' ' << c;
      EXPECT_NEAR(columns[c].middle, expected(0.5), near) << place.step << ' ' << c;
      EXPECT_NEAR(columns[c].high, expected(0.9), near) << place.step << ' ' << c;
      EXPECT_NEAR(columns[c].most, inside.back(), near) << place.step << ' ' << c;
    }
  }
}

TEST(TrackColumns, ALineRunsOnToTheEdges) {
  struct Row {
    double from, to;
    const char* entries;
  };
  for (const Row& row : {Row{25.0, 55.0, "2 7"}, Row{-5.0, 5.0, "0 2"}, Row{85.0, 500.0, "8 10"},
                         Row{1000.0, 2000.0, "9 10"}, Row{-50.0, -20.0, "0 1"}}) {
    const EntryRange range = EntriesAround(10, {0.0, 10.0}, row.from, row.to);
    EXPECT_EQ(Joined(range.first, range.last), row.entries) << row.from;
  }
}

}  // namespace
}  // namespace cantorix
