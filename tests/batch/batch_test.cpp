// batch_test.cpp - the batch program as a lab runs it: exit codes, whole outputs, error lines.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <sstream>

#include "batch/command.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

void AppendLittle(std::string& bytes, std::uint32_t value, int width) {
  for (int i = 0; i < width; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

// A 16-bit WAV of a harmonic tone of 150 Hz, every channel with the same samples.
void WriteTone(const std::string& path, int rateHz, int count, int channels = 1) {
  const auto rate = static_cast<std::uint32_t>(rateHz);
  const auto frame = static_cast<std::uint32_t>(2 * channels);
  const auto bytes = static_cast<std::uint32_t>(count) * frame;
  std::string file = "RIFF";
  AppendLittle(file, bytes + 36, 4);
  file += "WAVEfmt ";
  AppendLittle(file, 16, 4);
  AppendLittle(file, 1, 2);
  AppendLittle(file, static_cast<std::uint32_t>(channels), 2);
  AppendLittle(file, rate, 4);
  AppendLittle(file, rate * frame, 4);
  AppendLittle(file, frame, 2);
  AppendLittle(file, 16, 2);
  file += "data";
  AppendLittle(file, bytes, 4);
  for (int n = 0; n < count; ++n) {
    double x = 0.0;
    for (int h = 1; h <= 8; ++h) {
      x += std::sin(2.0 * std::numbers::pi * 150.0 * h * n / rateHz) * 2500.0 / h;
    }
    for (int c = 0; c < channels; ++c) {
      AppendLittle(file, static_cast<std::uint32_t>(static_cast<std::int16_t>(x)), 2);
    }
  }
  std::ofstream(path, std::ios::binary) << file;
}

class BatchTest : public testing::Test {
 protected:
  BatchTest() { WriteTone(tone_, 11025, 22050); }

  TemporaryFolder folder_;
  std::string tone_ = folder_ / "tone.wav";
};

TEST_F(BatchTest, RefusesWrongUsageInOneLineWithExitCode2) {
  const std::vector<std::vector<std::string>> rows = {
      {},
      {"sing"},
      {"pitch"},
      {"pitch", tone_, "--method", "guess"},
      {"pitch", tone_, "--window", "-5"},
      {"pitch", tone_, "--set", "pitch.highHz"},
      {"pitch", tone_, "--set", "pitch.noSuchField=1"},
      {"pitch", tone_, "--set", "pitch.highHz=loud"},
      {"pitch", tone_, "-j", "0"},
      {"info", tone_, "--generic", "0,8000,12,low,binary"},
      {"convert", tone_, folder_ / "tone.mp3"},
      {"config", "show", "--set", "fftlpc.points=1e99"},
  };
  for (const auto& row : rows) {
    const CommandResult result = RunBatch(row);
    const std::string name = testing::PrintToString(row);
    EXPECT_EQ(result.exitCode, 2) << name;
    EXPECT_EQ(result.out, "") << name;
    EXPECT_THAT(result.err, MatchesRegex("cantorix-batch: [^\n]+\n")) << name;
  }
}

TEST_F(BatchTest, HelpNamesEveryVerbAndTheExitCodes) {
  const CommandResult result = RunBatch({"--help"});
  EXPECT_EQ(result.exitCode, 0);
  for (const char* word : {"info", "pitch", "intensity", "convert", "config", "Exit status"}) {
    EXPECT_THAT(result.out, HasSubstr(word));
  }
}

TEST_F(BatchTest, MeasuresTheSameDigitsFromMemoryAndFromTheDiskStore) {
  for (const std::vector<std::string>& verb :
       {std::vector<std::string>{"pitch", "--method", "cepstral"},
        {"pitch", "--method", "autocorrelation"},
        {"pitch", "--from", "301.7", "--to", "1702.3"},
        {"intensity"},
        {"intensity", "--relative", "--from", "100.1"}}) {
    std::vector<std::string> words = verb;
    words.insert(words.end(), {tone_, "--exact"});
    const CommandResult memory = RunBatch(words);
    words.insert(words.end(), {"--memory-minutes", "0"});
    const CommandResult store = RunBatch(words);
    EXPECT_EQ(memory.exitCode, 0) << memory.err;
    EXPECT_GT(memory.out.size(), 1000U);
    EXPECT_EQ(memory.out, store.out) << verb.front();
  }
}

TEST_F(BatchTest, FindsThePitchOfATone) {
  // Not with the autocorrelation method: 2 periods of exactly this tone are 147 samples, 1 is 73.5.
  const CommandResult result = RunBatch({"pitch", tone_, "--method", "cepstral"});
  EXPECT_THAT(result.out, StartsWith("time_ms\tpitch_hz\n0.0\t0.0\n"));
  EXPECT_THAT(result.out, HasSubstr("\n1000.0\t150."));
}

TEST_F(BatchTest, WritesOneRowPerSampleOnDemand) {
  const CommandResult result = RunBatch({"intensity", "--samples", "--to", "500", tone_});
  EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 1 + 5512);
}

TEST_F(BatchTest, GoesOnAfterAFileThatFailsAndKeepsTheOrder) {
  const std::string second = folder_ / "second.wav";
  const std::string broken = folder_ / "broken.wav";
  WriteTone(second, 16000, 8000);
  std::ofstream(broken) << "not a recording";
  const std::vector<std::string> words = {"pitch", second, broken, tone_, folder_ / "absent.wav"};
  const CommandResult one = RunBatch(words);
  EXPECT_EQ(one.exitCode, 1);
  EXPECT_THAT(one.out, StartsWith("file\ttime_ms\tpitch_hz\n" + second + "\t0.0\t"));
  EXPECT_LT(one.out.find(second), one.out.find(tone_));
  std::istringstream lines(one.err);
  std::string line;
  std::getline(lines, line);
  EXPECT_THAT(line, StartsWith("cantorix-batch: " + broken + ": The requested file was not"));
  std::getline(lines, line);
  EXPECT_THAT(line, StartsWith("cantorix-batch: " + folder_.path() +
                               "/absent.wav: could not be opened. No such file"));
  EXPECT_FALSE(std::getline(lines, line)) << line;

  std::vector<std::string> parallel = words;
  parallel.insert(parallel.end(), {"-j", "4"});
  EXPECT_EQ(RunBatch(parallel).out, one.out);
}

TEST_F(BatchTest, WritesATableForEachFileIntoAFolder) {
  const std::string second = folder_ / "second.wav";
  WriteTone(second, 16000, 8000);
  const std::string out = folder_ / "tables";
  EXPECT_EQ(RunBatch({"intensity", tone_, second, "-o", out, "-j", "2"}).exitCode, 0);
  EXPECT_EQ(FileText(out + "/tone.intensity.tsv"), RunBatch({"intensity", tone_}).out);
  EXPECT_EQ(FileText(out + "/second.intensity.tsv"), RunBatch({"intensity", second}).out);
}

TEST_F(BatchTest, RefusesTwoFilesThatWouldShareATable) {
  std::filesystem::create_directory(folder_ / "other");
  const std::string other = folder_ / "other/tone.wav";
  WriteTone(other, 11025, 2000);
  const CommandResult result = RunBatch({"pitch", tone_, other, "-o", folder_ / "tables"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.err, HasSubstr("tone.pitch.tsv"));
}

TEST_F(BatchTest, SaysWhenATableCannotBeWritten) {
  const CommandResult result = RunBatch({"pitch", tone_, "-o", folder_ / "absent/tone.tsv"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("absent/tone.tsv could not be saved. "));
}

TEST_F(BatchTest, AnswersTheChannelDialogFromItsOption) {
  const std::string stereo = folder_ / "stereo.wav";
  WriteTone(stereo, 8000, 4000, 2);
  struct Row {
    const char* channel;
    int exitCode;
    const char* said;
  };
  for (const Row& row :
       {Row{nullptr, 1, "(--channel 1 to 2 answers)"}, Row{"3", 1, "There is no channel 3"},
        Row{"2", 0, "stereo.wav::Channel2"}}) {
    std::vector<std::string> words{"info", stereo};
    if (row.channel) words.insert(words.end(), {"--channel", row.channel});
    const CommandResult result = RunBatch(words);
    EXPECT_EQ(result.exitCode, row.exitCode) << row.said;
    EXPECT_THAT(result.out + result.err, HasSubstr(row.said));
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), row.exitCode) << row.said;
  }
}

TEST_F(BatchTest, ConvertsToTheNativeFormatAndBack) {
  const std::string native = folder_ / "tone.qrv";
  const std::string again = folder_ / "again.qrv";
  const std::string back = folder_ / "back.wav";
  ASSERT_EQ(RunBatch({"convert", tone_, native}).exitCode, 0);
  ASSERT_EQ(RunBatch({"convert", native, again, "--memory-minutes", "0"}).exitCode, 0);
  EXPECT_EQ(FileText(native), FileText(again));
  ASSERT_EQ(RunBatch({"convert", native, back}).exitCode, 0);
  EXPECT_EQ(FileText(back).substr(44), FileText(tone_).substr(44));

  const std::string part = folder_ / "part.wav";
  ASSERT_EQ(RunBatch({"convert", native, part, "--from", "1000", "--to", "1500"}).exitCode, 0);
  EXPECT_EQ(FileText(part).substr(44), FileText(tone_).substr(44 + 22050, 11024));
}

TEST_F(BatchTest, DescribesARecordingAsJson) {
  const CommandResult result = RunBatch({"info", "--json", tone_});
  EXPECT_THAT(result.out, StartsWith("{\"file\": \"" + tone_ + "\", \"format\": \"WAV\""));
  for (const char* member :
       {"\"rateHz\": 11025", "\"lengthSamples\": 22050", "\"durationMs\": 2000",
        "\"storage\": \"memory\"", "\"channelWord2\": 100", "\"channelComment\": \"bits\"",
        "\"tiers\": []"}) {
    EXPECT_THAT(result.out, HasSubstr(member));
  }
}

TEST_F(BatchTest, SettingsComeFromTheRecordThenFromSetThenFromTheVerb) {
  const std::string record = folder_ / "my.cfg";
  ASSERT_EQ(
      RunBatch({"config", "default", record, "--set", "pitch.method=0", "--set", "pitch.stepMs=20"})
          .exitCode,
      0);
  EXPECT_EQ(std::filesystem::file_size(record), 1152U);
  const auto rows = [&](std::vector<std::string> words) {
    words.insert(words.begin(), {"pitch", tone_, "--config", record});
    const std::string out = RunBatch(words).out;
    return std::count(out.begin(), out.end(), '\n') - 1;
  };
  EXPECT_EQ(rows({}), 100);
  EXPECT_EQ(rows({"--set", "pitch.stepMs=40"}), 50);
  EXPECT_EQ(rows({"--set", "pitch.stepMs=40", "--step", "10"}), 200);
  std::ofstream(record, std::ios::trunc) << "short";
  const CommandResult broken = RunBatch({"pitch", tone_, "--config", record});
  EXPECT_EQ(broken.exitCode, 1);
  EXPECT_THAT(broken.err, HasSubstr("Error in reading the configuration file."));
}

}  // namespace
}  // namespace cantorix::batch
