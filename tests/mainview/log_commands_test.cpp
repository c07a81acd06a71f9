// log_commands_test.cpp - the six log commands as the rows that they enter.
#include "mainview/log_commands.h"

#include <gmock/gmock.h>

#include "document/label.h"
#include "label_fixture.h"
#include "mainview/view_commands.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Cells = std::vector<std::string>;

// Pitch 100, 0, 300 and 400 Hz from 0, 2500, 5000 and 7500 ms on; 60.25 dB everywhere.
class LogCommandsTest : public LabelTest {
 protected:
  RecordingLog& log = world.log;

  LogCommandsTest() {
    document.SetPathName("/speech/kim.qrv");
    view.pitch.PitchTrack = {100.0, 0.0, 300.0, 400.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    view.pitch.PitchFrameCount = 4.5;
    view.pitch.PitchValid = true;
    view.pitch.range = {0.0, 10'000.0};
    IntensityResult& intensity = channel.intensity;
    intensity.IntensityTrack = LevelTrack({60.25}, 10'000.0, 10'000.0, 10'000);
    intensity.IntensityValid = true;
    intensity.range = {0.0, 10'000.0};
    AddLabel(document, kBreaks, 2500.0, "b");
    AddLabel(document, 0, 2500.0, "hidden");
    tier(0).inUse = false;
    SelectSpan(view, 2500.0, 6000.0);
  }
  std::vector<Cells> Enter(LogCommand command) {
    log.entries.clear();
    EnterIntoLog(view, command, log);
    std::vector<Cells> rows;
    for (const LogEntry& entry : log.entries) rows.push_back(entry.columns);
    return rows;
  }
};

TEST_F(LogCommandsTest, EntersTheRowsOfEachCommand) {
  const struct {
    LogCommand command;
    const char* heading;
    std::vector<Cells> rows;
  } cases[] = {
      {LogCommand::kDuration,
       "Duration Entry: start, end, duration",
       {{"2500.0", "6000.0", "3500.0"}}},
      {LogCommand::kPitchAtMarker,
       "Pitch Marker Entry: time, pitch, intensity",
       {{"2500.0", "0.0", "60.2"}}},
      {LogCommand::kPitchSelection,
       "Pitch Selection Entry: time, pitch, intensity",
       {{"2500.0", "0.0", "60.2"}, {"5000.0", "300.0", "60.2"}}},
      {LogCommand::kPitchAll,
       "Pitch All Entry: time, pitch, intensity",
       {{"0.0", "100.0", "60.2"},
        {"2500.0", "0.0", "60.2"},
        {"5000.0", "300.0", "60.2"},
        {"7500.0", "400.0", "60.2"}}},
      {LogCommand::kLabelsSelection,
       "Labels Selection Entry: Tier, Label's Text, Time, pitch, Intensity",
       {{"words", "two", "6000.0", "300.0", "60.2"}, {"breaks", "b", "2500.0", "0.0", "60.2"}}},
      {LogCommand::kLabelsAll,
       "Labels All Entry: Tier, Label's Text, Time, pitch, Intensity",
       {{"words", "one", "2000.0", "100.0", "60.2"},
        {"words", "two", "6000.0", "300.0", "60.2"},
        {"breaks", "b", "2500.0", "0.0", "60.2"}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.heading);
    EXPECT_EQ(Enter(c.command), c.rows);
    for (const LogEntry& entry : log.entries) {
      EXPECT_EQ(entry.heading, c.heading);
      EXPECT_EQ(entry.source, "kim.qrv");
    }
  }
}

TEST_F(LogCommandsTest, SecondsHaveOneDecimalIsKept) {
  document.settings.display.timeBase = 1;
  SelectSpan(view, 1234.5, 3999.0);
  EXPECT_THAT(Enter(LogCommand::kDuration), ElementsAre(ElementsAre("1.2", "4.0", "2.8")));
  EXPECT_EQ(Enter(LogCommand::kPitchAtMarker)[0][0], "1.2");
  EXPECT_EQ(Enter(LogCommand::kLabelsAll)[1][2], "6.0");
}

TEST_F(LogCommandsTest, EmptySelectionAndAbsentTracksStillMakeRows) {
  SelectSpan(view, 2500.0, 2500.0);
  EXPECT_THAT(Enter(LogCommand::kDuration), ElementsAre(ElementsAre("2500.0", "2500.0", "0.0")));
  view.pitch = {};
  channel.intensity = {};
  EXPECT_THAT(Enter(LogCommand::kPitchAll), IsEmpty());
  EXPECT_THAT(Enter(LogCommand::kPitchSelection), IsEmpty());
  EXPECT_THAT(Enter(LogCommand::kPitchAtMarker), ElementsAre(ElementsAre("2500.0", "0.0", "0.0")));
  EXPECT_EQ(Enter(LogCommand::kLabelsAll).size(), 3U);
}

TEST_F(LogCommandsTest, CursorAndSelectionBeyondAShortenedRecordingCountAsItsEnd) {
  channel.totalLength = channel.totalDurationMs = 4000.0;
  EXPECT_THAT(Enter(LogCommand::kDuration), ElementsAre(ElementsAre("2500.0", "4000.0", "1500.0")));
  channel.cursor = {9000.0, 9000.0};
  EXPECT_EQ(Enter(LogCommand::kPitchAtMarker)[0][0], "4000.0");
}

TEST_F(LogCommandsTest, LongTextsAreCut) {
  document.SetPathName("/" + std::string(300, 't'));
  tier(kWords).name = std::string(300, 'n');
  const auto rows = Enter(LogCommand::kLabelsAll);
  EXPECT_EQ(rows[0][0].size(), 255U);
  EXPECT_EQ(log.entries[0].source.size(), 255U);
}

TEST_F(LogCommandsTest, StopsWhenTheLogOrTheUserWantsNoMore) {
  log.capacity = 2;
  EXPECT_EQ(Enter(LogCommand::kPitchAll).size(), 2U);
  EXPECT_EQ(Enter(LogCommand::kLabelsAll).size(), 2U);

  log = {};
  world.logOpen = true;
  EnterIntoOpenLog(view, LogCommand::kDuration);
  EnterIntoOpenLog(view, LogCommand::kPitchAll);
  EXPECT_EQ(log.entries.size(), 5U);
  EXPECT_THAT(world.test.progress.totals, ElementsAre(4.0));
  EXPECT_EQ(world.test.progress.endCount, 1);
  world.test.progress.CancelFromNow();
  EnterIntoOpenLog(view, LogCommand::kLabelsAll);
  EXPECT_EQ(log.entries.size(), 6U);
  EXPECT_EQ(world.test.progress.endCount, 2);
}

TEST_F(LogCommandsTest, WithoutAnOpenLogNothingIsEntered) {
  EnterIntoOpenLog(view, LogCommand::kPitchAll);
  EXPECT_THAT(log.entries, IsEmpty());
  EXPECT_THAT(world.test.progress.texts, IsEmpty());
}

}  // namespace
}  // namespace cantorix
