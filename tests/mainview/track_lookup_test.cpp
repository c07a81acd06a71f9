// track_lookup_test.cpp - which entry a time reads, and the mean that weighs later entries more.
#include "mainview/track_lookup.h"

#include <gtest/gtest.h>

#include "mainview/time_axis_fixture.h"

namespace cantorix {
namespace {

// Entries over [100, 200] ms of a channel with a sample every 0.1 ms.
PitchResult Track(std::vector<double> entries) {
  PitchResult pitch;
  pitch.PitchFrameCount = static_cast<double>(entries.size()) + 0.7;
  entries.resize(entries.size() + 5);
  pitch.PitchTrack = std::move(entries);
  pitch.PitchValid = true;
  pitch.range = {1000, 2000};
  return pitch;
}

class TrackLookup : public ::testing::Test {
 protected:
  TrackLookup() { SetLength(channel, 10000, 10000); }
  CChannel channel;
};

TEST_F(TrackLookup, ReadsTheEntryATimeFallsIntoAndNothingOutside) {
  PitchResult pitch = Track({110, 120, 130, 140});
  channel.intensity.IntensityTrack = LevelTrack({50, 60}, 500, 500, 1000);
  channel.intensity.IntensityValid = true;
  channel.intensity.range = {1000, 2000};
  struct Row {
    double ms, pitchHz, intensityDb;
  };
  for (const Row& row : {Row{100, 110, 50}, Row{124, 110, 50}, Row{126, 120, 50}, Row{160, 130, 60},
                         Row{199, 140, 60}, Row{200, 0, 0}, Row{700, 0, 0}, Row{70, 0, 0}}) {
    EXPECT_EQ(PitchAt(pitch, channel, row.ms), row.pitchHz) << row.ms;
    EXPECT_EQ(IntensityAt(channel.intensity, channel, row.ms), row.intensityDb) << row.ms;
  }
  pitch.PitchValid = channel.intensity.IntensityValid = false;
  EXPECT_EQ(PitchAt(pitch, channel, 100), 0.0);
  EXPECT_EQ(IntensityAt(channel.intensity, channel, 100), 0.0);
  EXPECT_EQ(AveragePitch(pitch, channel, 0, 1000), 0.0);
}

TEST_F(TrackLookup, TimesJustBeforeTheTrackReadItsFirstEntryIsKept) {
  EXPECT_EQ(PitchAt(Track({110, 120, 130, 140}), channel, 80), 110.0);
}

TEST_F(TrackLookup, EmptyChannelReadsNothing) {
  EXPECT_EQ(PitchAt(Track({110}), CChannel(), 0.0), 0.0);
}

TEST_F(TrackLookup, LaterEntriesWeighMoreInTheMeanIsKept) {
  const PitchResult pitch = Track({100, 0, 200, 120});  // at 100, 125, 150 and 175 ms
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

}  // namespace
}  // namespace cantorix
