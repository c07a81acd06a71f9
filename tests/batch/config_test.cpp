// config_test.cpp - the settings of a run: where they come from, and how they are listed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "batch/command.h"
#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

using testing::HasSubstr;

double DoubleAt(const std::string& bytes, std::size_t offset) {
  double value = 0.0;
  std::memcpy(&value, bytes.data() + offset, sizeof value);
  return value;
}

TEST(BatchConfig, ComesFromTheRecordThenFromSetThenFromTheVerb) {
  const TemporaryFolder folder;
  const std::string still = folder / "still.wav";
  const std::string record = folder / "my.cfg";
  PutFile(still, Wave(std::vector<int>(2000, 0), 1000));
  ASSERT_EQ(RunBatch({"config", "default", record, "--set", "intensity.stepMs=200"}).exitCode, 0);
  const std::string bytes = FileText(record);
  ASSERT_EQ(bytes.size(), 1152U);
  EXPECT_EQ(DoubleAt(bytes, 104), 11025.0);
  EXPECT_EQ(bytes[932], static_cast<char>(200));
  EXPECT_EQ(RunBatch({"config", "default", "--set", "intensity.stepMs=200"}).out, bytes);
  // (2000 - 20.5) / step frames.
  const auto rows = [&](Words words) {
    words.insert(words.begin(), {"intensity", still});
    const std::string out = RunBatch(words).out;
    return std::count(out.begin(), out.end(), '\n') - 1;
  };
  EXPECT_EQ(rows({}), 197);
  EXPECT_EQ(rows({"--config", record}), 9);
  EXPECT_EQ(rows({"--config", record, "--set", "intensity.stepMs=100"}), 19);
  EXPECT_EQ(rows({"--step", "20", "--config", record, "--set", "intensity.stepMs=100"}), 98);
  PutFile(folder / "CantorixConf.cfg", bytes);
  EXPECT_EQ(rows({"--program-dir", folder.path()}), 9);
  PutFile(record, "short");
  const CommandResult broken = RunBatch({"config", "show", record});
  EXPECT_EQ(broken.exitCode, 1);
  EXPECT_EQ(broken.err,
            "cantorix-batch: " + record + ": Error in reading the configuration file.\n");
}

TEST(BatchConfig, IsListedWithoutWhatBreaksATable) {
  const std::string name = "tiers.name3=one\x1b\ttwo";
  EXPECT_THAT(
      OutOf({"config", "show", "--set", name}),
      HasSubstr("\ntiers.name3\t336\ttext\tone\\x1b two\t\tname of tier 3 in new documents\n"));
  EXPECT_THAT(OutOf({"config", "show", "--json", "--set", name}),
              HasSubstr("\"tiers.name3\": \"one\\u001b\\u0009two\""));
}

TEST(BatchCommands, AreThoseOfThePageThatIsShipped) {
  const std::string page = FileText(SamplesDirectory() + "/../docs/manual/commands.html");
  EXPECT_EQ(RunBatch({"commands", "--html"}).out, page)
      << "run cantorix-batch commands --html -o docs/manual/commands.html";
}

}  // namespace
}  // namespace cantorix::batch
