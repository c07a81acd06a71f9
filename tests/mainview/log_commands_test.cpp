// log_commands_test.cpp - the six log commands as the rows that they enter.
#include "mainview/log_commands.h"

#include <gmock/gmock.h>

#include "document/label.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "settings/settings.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Rows = std::vector<std::string>;

// Pitch 100, 0, 300 and 400 Hz from 0, 2500, 5000 and 7500 ms on; 60.25 dB everywhere.
class LogCommandsTest : public LabelTest {
 protected:
  RecordingLog& log = world.log;

  LogCommandsTest() {
    document.SetPathName("/speech/kim.qrv");
    view.pitch = PitchOf({100.0, 0.0, 300.0, 400.0}, {0.0, 10'000.0});
    channel.intensity = IntensityOf({60.25}, {0.0, 10'000.0});
    AddLabel(document, kBreaks, 2500.0, "b");
    AddLabel(document, 0, 2500.0, "hidden");
    tier(0).inUse = false;
    SelectSpan(view, 2500.0, 6000.0);
  }
  Rows Enter(LogCommand command) {
    log.entries.clear();
    EnterIntoLog(view, command, log);
    Rows rows;
    for (const LogEntry& entry : log.entries) {
      rows.push_back(JoinedEach(entry.columns, [](const std::string& cell) { return cell; }));
    }
    return rows;
  }
};

TEST_F(LogCommandsTest, EntersTheRowsOfEachCommand) {
  std::string text;
  for (const LogCommand command :
       {LogCommand::kDuration, LogCommand::kPitchAtMarker, LogCommand::kPitchSelection,
        LogCommand::kPitchAll, LogCommand::kLabelsSelection, LogCommand::kLabelsAll}) {
    const Rows rows = Enter(command);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      text += log.entries[i].source + " | " + log.entries[i].heading + " | " + rows[i] + '\n';
    }
  }
  ExpectText("mainview/expected/LogRows.txt", text);
}

TEST_F(LogCommandsTest, SecondsHaveOneDecimalIsKept) {
  document.settings.display.timeBase = 1;
  SelectSpan(view, 1234.5, 3999.0);
  EXPECT_THAT(Enter(LogCommand::kDuration), ElementsAre("1.2 4.0 2.8"));
  EXPECT_THAT(Enter(LogCommand::kPitchAtMarker), ElementsAre("1.2 100.0 60.2"));
  EXPECT_EQ(Enter(LogCommand::kLabelsAll)[1], "words two 6.0 300.0 60.2");
}

TEST_F(LogCommandsTest, EmptySelectionAndAbsentTracksStillMakeRows) {
  SelectSpan(view, 2500.0, 2500.0);
  EXPECT_THAT(Enter(LogCommand::kDuration), ElementsAre("2500.0 2500.0 0.0"));
  view.pitch = {};
  channel.intensity = {};
  EXPECT_THAT(Enter(LogCommand::kPitchAll), IsEmpty());
  EXPECT_THAT(Enter(LogCommand::kPitchSelection), IsEmpty());
  EXPECT_THAT(Enter(LogCommand::kPitchAtMarker), ElementsAre("2500.0 0.0 0.0"));
  EXPECT_EQ(Enter(LogCommand::kLabelsAll).size(), 3U);
}

TEST_F(LogCommandsTest, CursorAndSelectionBeyondAShortenedRecordingCountAsItsEnd) {
  channel.totalLength = channel.totalDurationMs = 4000.0;
  EXPECT_THAT(Enter(LogCommand::kDuration), ElementsAre("2500.0 4000.0 1500.0"));
  channel.cursor = {9000.0, 9000.0};
  EXPECT_EQ(Enter(LogCommand::kPitchAtMarker)[0].substr(0, 7), "4000.0 ");
}

TEST_F(LogCommandsTest, LongTextsAreCut) {
  document.SetPathName("/" + std::string(300, 't'));
  tier(kWords).name = std::string(300, 'n');
  Enter(LogCommand::kLabelsAll);
  EXPECT_EQ(log.entries[0].columns[0], std::string(255, 'n'));
  EXPECT_EQ(log.entries[0].source, std::string(255, 't'));
}

TEST_F(LogCommandsTest, StopsWhenTheLogOrTheUserWantsNoMore) {
  EnterIntoOpenLog(view, LogCommand::kPitchAll);  // no log is open
  EXPECT_THAT(log.entries, IsEmpty());
  EXPECT_THAT(world.test.progress.texts, IsEmpty());
  log.capacity = 2;
  EXPECT_EQ(Enter(LogCommand::kPitchAll).size(), 2U);
  EXPECT_EQ(Enter(LogCommand::kLabelsAll).size(), 2U);

  log = {};
  world.logOpen = true;
  EnterIntoOpenLog(view, LogCommand::kDuration);
  EnterIntoOpenLog(view, LogCommand::kPitchAll);
  EXPECT_EQ(log.entries.size(), 5U);
  EnterIntoOpenLog(view, LogCommand::kLabelsAll);
  EXPECT_EQ(log.entries.size(), 8U);
  EXPECT_THAT(world.test.progress.totals, ElementsAre(4.0, 3.0));
  EXPECT_THAT(world.test.progress.done, ElementsAre(1.0, 2.0, 3.0, 4.0, 1.0, 2.0, 3.0));
  world.test.progress.CancelFromNow();
  EnterIntoOpenLog(view, LogCommand::kLabelsAll);
  EXPECT_EQ(log.entries.size(), 9U);
  EXPECT_EQ(world.test.progress.endCount, 3);
}

}  // namespace
}  // namespace cantorix
