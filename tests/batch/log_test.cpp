// log_test.cpp - the rows of the measurement log against the tables of the same verbs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "app/log_file.h"
#include "batch/command.h"
#include "support/samples.h"

namespace cantorix::batch {
namespace {

using testing::ElementsAre;

using Row = std::vector<std::string>;

const std::string kSample = SamplesDirectory() + "/vowels.qrv";

// The log that the desktop would read from the output.
LogTable LogOf(const Words& words) {
  LogTable log;
  EXPECT_EQ(ReadLogText(OutOf(words), log), LogReading::kRead);
  return log;
}

// The values of a log row, which must be of the sample and bear `heading`.
Row ValuesOf(const LogTable& log, std::size_t row, const std::string& heading, std::size_t count) {
  const LogTable::Row& cells = log.rows().at(row);
  EXPECT_EQ(cells.at(0), "vowels.qrv");
  EXPECT_EQ(cells.at(1), heading);
  return {cells.begin() + 2, cells.begin() + 2 + static_cast<std::ptrdiff_t>(count)};
}

struct LogCase {
  Words words;
  std::string heading;
  std::size_t values;
  std::size_t compared;  // values that the table holds, too
};

TEST(BatchLog, HoldsTheRowsOfTheTables) {
  const std::string pitch = "Pitch All Entry: time, pitch, intensity";
  const std::string labels = ": Tier, Label's Text, Time, pitch, Intensity";
  const LogCase cases[] = {
      {{"pitch", kSample}, pitch, 3, 1},
      {{"pitch", kSample, "--from", "301.7", "--to", "1702.3"}, pitch, 3, 1},
      {{"labels", kSample}, "Labels All Entry" + labels, 5, 5},
      {{"labels", kSample, "--to", "2000"}, "Labels Selection Entry" + labels, 5, 5},
      {{"formants", kSample, "--step", "25"},
       "Spec. Formants All Entry: time, F1, F2, F3, F4, F5",
       6,
       6},
  };
  for (const LogCase& row : cases) {
    const std::string name = testing::PrintToString(row.words);
    const Table table = TableOf(OutOf(row.words));
    const LogTable log = LogOf(row.words + Words{"--log"});
    ASSERT_GT(table.size(), 5U) << name;
    ASSERT_EQ(log.rows().size(), table.size() - 1) << name;
    for (std::size_t i = 0; i < log.rows().size(); ++i) {
      Row values = ValuesOf(log, i, row.heading, row.values);
      values.resize(row.compared);
      Row expected = table[i + 1];
      expected.resize(row.compared);
      ASSERT_EQ(values, expected) << name << ", row " << i;
    }
  }
}

TEST(BatchLog, HoldsPitchAndIntensityTogether) {
  const Table levels = TableOf(OutOf({"intensity", kSample, "--samples"}));
  const LogTable log = LogOf({"intensity", kSample, "--log"});
  const Row values = ValuesOf(log, 40, "Pitch All Entry: time, pitch, intensity", 3);
  // Sample k has the level that the track has at its time.
  const auto sample = static_cast<std::size_t>(std::lround(std::stod(values[0]) * 11.025));
  EXPECT_EQ(values[2], levels.at(sample + 1).at(1));
  EXPECT_EQ(LogOf({"pitch", kSample, "--log"}).rows(), log.rows());
}

TEST(BatchLog, HoldsASpectrumAndItsFormants) {
  const Words words{"spectrum", kSample, "--at", "1890", "--display", "5000"};
  const Table table = TableOf(OutOf(words));
  const LogTable log = LogOf(words + Words{"--log", "--set", "log.stepHz=100"});
  const Row formants =
      ValuesOf(log, 0, "FFT/LPC Formants Entry: F1, F2, F3, F4, F5, BW1, BW2, BW3, BW4, BW5", 10);
  for (std::size_t i = 0; i < 5; ++i) {
    const Row& row = table.at(table.size() - 5 + i);
    EXPECT_THAT(row, ElementsAre("F" + std::to_string(i + 1), formants[i], formants[i + 5]));
  }
  ASSERT_EQ(log.rows().size(), 1U + 50U);
  for (std::size_t i = 0; i < 50; ++i) {
    // One display point per Hz.
    EXPECT_EQ(ValuesOf(log, i + 1, "FFT/LPC Entire Frame Entry: freq., FFT_dB, LPC_dB", 3),
              table.at(1 + i * 100));
  }
}

TEST(BatchLog, HoldsEveryColumnOfASpectrogram) {
  const Words words{"spectrogram", kSample, "--columns", "37", "--rows", "9", "--formants"};
  const Table table = TableOf(OutOf(words));
  const LogTable log = LogOf(words + Words{"--log"});
  ASSERT_EQ(log.rows().size(), 37U * 9U + 37U);
  for (std::size_t column = 0; column < 37; ++column) {
    for (std::size_t row = 0; row < 9; ++row) {
      EXPECT_THAT(ValuesOf(log, column * 9 + row, "Spec. Entire Frame Entry: frequency, dB", 2),
                  ElementsAre(table[0].at(row + 1), table.at(column + 1).at(row + 1)));
    }
  }
}

TEST(BatchLog, OfSeveralFilesHasItsCaptionsOnce) {
  const LogTable log = LogOf({"labels", kSample, kSample, "--log"});
  EXPECT_EQ(log.rows().size(), 2 * LogOf({"labels", kSample, "--log"}).rows().size());
  EXPECT_THAT(log.captions(), ElementsAre("Source", "Entry Type", "Entry 1", "Entry 2", "Entry 3",
                                          "Entry 4", "Entry 5"));
}

}  // namespace
}  // namespace cantorix::batch
