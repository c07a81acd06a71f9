// tables_test.cpp - the tables of recordings so simple that every digit is known beforehand.
// "dc.wav" holds 552 samples of 1000 at 11025 Hz: windows of 20 ms are 221 samples, which are also
// the divisor, so the level is 60 dB, and 3 of them fit, 10 ms apart. "still.wav" holds 1200 zeros
// at 10 kHz, without a pitch at any time.
#include <gtest/gtest.h>

#include <filesystem>

#include "batch/command.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

const std::string kPitch = "time_ms\tpitch_hz\n";
const std::string kLevels = "time_ms\tintensity_db\n";
const std::string kFormants = "time_ms\tF1\tF2\tF3\tF4\tF5\n";
const std::string kDcLevels = "0.0\t60.0\n10.0\t60.0\n20.0\t60.0\n";
const std::string kInfo =
    "file      @/dc.wav\nformat    WAV\nrate      11025.0 Hz\nlength    552 samples\n"
    "duration  50.1 ms\nstorage   ";

// `count` rows from `firstMs` on, `stepMs` apart, with `values` behind the time.
std::string Rows(int firstMs, int stepMs, int count, const std::string& values,
                 const std::string& before = "") {
  std::string rows;
  for (int i = 0; i < count; ++i) {
    rows += before + std::to_string(firstMs + i * stepMs) + ".0\t" + values + "\n";
  }
  return rows;
}

// The 13 entries of the track of "still.wav": the 120 ms shared out among them.
std::string StillTrack(const std::string& before = "") {
  std::string rows;
  for (const char* ms : {"0.0", "9.2", "18.5", "27.7", "36.9", "46.2", "55.4", "64.6", "73.8",
                         "83.1", "92.3", "101.5", "110.8"}) {
    rows += before + ms + "\t0.0\n";
  }
  return rows;
}

class TablesTest : public testing::Test {
 protected:
  TablesTest() {
    PutFile(folder_ / "dc.wav", Wave(std::vector<int>(552, 1000), 11025));
    PutFile(folder_ / "still.wav", Wave(std::vector<int>(1200, 0), 10000));
    std::vector<int> steps(552, 1000);
    std::fill(steps.begin() + 220, steps.end(), 100);
    PutFile(folder_ / "steps.wav", Wave(steps, 11025));
  }

  TemporaryFolder folder_;
};

TEST_F(TablesTest, HoldWhatWasWorkedOutByHand) {
  const std::string noFormants = "-\t-\t-\t-\t-";
  Check(folder_.path(),
        {
            {{"info", "@/dc.wav"}, 0, kInfo + "memory\n", ""},
            {{"info", "@/dc.wav", "--memory-minutes", "0"}, 0, kInfo + "disk store\n", ""},
            {{"info", "--json", "@/dc.wav"},
             0,
             "{\"file\": \"@/dc.wav\", \"format\": \"WAV\", \"rateHz\": 11025, "
             "\"lengthSamples\": 552, \"durationMs\": 50.06802721088435, \"storage\": \"memory\", "
             "\"foreignSource\": true, \"channel\": {\"channelName\": \"\", \"channelComment\": "
             "\"bits\", \"bitsPerSample\": 16, \"referenceLevel\": 0, \"displayLow\": 1, "
             "\"displayHigh\": 5512.5, \"channelValues\": [0, 0, 1, 0], \"channelTag\": 0, "
             "\"channelFlag\": 1, \"channelWord1\": 0, \"channelWord2\": 100, \"channelWord3\": 0, "
             "\"channelWord4\": 1, \"channelWord5\": 0, \"channelWord6\": 0, \"channelWord7\": 0, "
             "\"channelWord8\": 0}, \"tiers\": []}\n",
             ""},
            {{"intensity", "@/dc.wav"}, 0, kLevels + kDcLevels, ""},
            {{"intensity", "@/dc.wav", "--exact"}, 0, kLevels + "0\t60\n10\t60\n20\t60\n", ""},
            {{"intensity", "@/dc.wav", "--memory-minutes", "0"}, 0, kLevels + kDcLevels, ""},
            {{"intensity", "@/steps.wav", "--window", "10", "--step", "20"},
             0,
             kLevels + "0.0\t60.0\n20.0\t40.0\n",
             ""},
            {{"intensity", "@/steps.wav", "--window", "10", "--step", "20", "--relative"},
             0,
             kLevels + "0.0\t20.0\n20.0\t0.0\n",
             ""},
            {{"pitch", "@/still.wav"}, 0, kPitch + StillTrack(), ""},
            {{"pitch", "@/still.wav", "--method", "cepstral", "--from", "20", "--to", "100"},
             0,
             kPitch + Rows(20, 10, 8, "0.0"),
             ""},
            {{"pitch", "@/still.wav", "--from", "20", "--to", "100"},
             1,
             "",
             "cantorix-batch: @/still.wav: no pitch track: the stretch is too short or the "
             "settings do not fit it\n"},
            {{"formants", "@/still.wav", "--step", "25", "--from", "10"},
             0,
             kFormants + Rows(10, 25, 4, noFormants),
             ""},
            {{"formants", "@/still.wav", "--columns", "2"},
             0,
             kFormants + Rows(0, 60, 2, noFormants),
             ""},
            {{"labels", "@/still.wav"}, 0, "tier\ttext\ttime_ms\tpitch_hz\tintensity_db\n", ""},
            {{"intensity", "@/dc.wav", "--log"},
             1,
             "",
             "cantorix-batch: @/dc.wav: no pitch track: the stretch is too short or the settings "
             "do not fit it\n"},
        });
}

TEST_F(TablesTest, OfSeveralFilesKeepTheirOrderWhateverFails) {
  PutFile(folder_ / "broken.wav", "not a recording");
  const std::string rows = "file\t" + kPitch + StillTrack("@/still.wav\t");
  const std::string reports =
      "cantorix-batch: @/broken.wav: The requested file was not of any proper types recognized by "
      "the application.Would you like to read it as a generic type ? (--generic answers)\n"
      "cantorix-batch: @/absent.wav: could not be opened. No such file or directory.\n";
  const Words words{"pitch", "@/still.wav", "@/broken.wav", "@/still.wav", "@/absent.wav"};
  Check(folder_.path(),
        {{words, 1, rows + StillTrack("@/still.wav\t"), reports},
         {{"intensity", "@/dc.wav", "@/still.wav", "-o", "@/tables", "-j", "2"}, 0, "", ""},
         {{"pitch", "@/still.wav", "@/tables/../still.wav", "-o", "@/tables"},
          2,
          "",
          "cantorix-batch: two of the files would both be written to @/tables/still.pitch.tsv\n"},
         {{"pitch", "@/still.wav", "-o", "@/absent/still.tsv"},
          1,
          "",
          "cantorix-batch: @/absent/still.tsv could not be saved. No such file or directory.\n"}});
  EXPECT_EQ(FileText(folder_ / "tables/dc.intensity.tsv"), kLevels + kDcLevels);
  EXPECT_EQ(FileText(folder_ / "tables/still.intensity.tsv"), kLevels + Rows(0, 10, 9, "-inf"));
  Words parallel = words;
  parallel.insert(parallel.end(), {"-j", "4"});
  for (std::string& word : parallel) word = Filled(word, folder_.path());
  EXPECT_EQ(RunBatch(parallel).out, Filled(rows + StillTrack("@/still.wav\t"), folder_.path()));
}

TEST_F(TablesTest, OfManyMegabytesComeOutWhole) {
  // Windows of 20.5 samples hold 20 of them: 59.9 dB. More than is kept in memory.
  constexpr int kSamples = 400000;
  PutFile(folder_ / "long.wav", Wave(std::vector<int>(kSamples, 1000), 1000));
  const std::string expected = kLevels + Rows(0, 1, kSamples, "59.9");
  EXPECT_TRUE(RunBatch({"intensity", "--samples", folder_ / "long.wav"}).out == expected);
  const std::string table = folder_ / "long.tsv";
  RunBatch({"intensity", "--samples", folder_ / "long.wav", "-o", table});
  EXPECT_TRUE(FileText(table) == expected);
  EXPECT_EQ(
      RunBatch({"intensity", "--samples", folder_ / "long.wav"}, {.largestFile = 4000000}).err,
      Filled("cantorix-batch: @/long.wav: File too large.\n", folder_.path()));
}

TEST_F(TablesTest, HoldOneChannelOfTwelve) {
  PutFile(folder_ / "many.wav", Wave({100, 200, 300}, 1000, 12));
  const std::string which =
      "cantorix-batch: @/many.wav: This file has multiple data channels. Only one channel can be "
      "read at a time. Please select which channel you wish to read. (--channel 1 to 12 answers)\n";
  Check(folder_.path(),
        {{{"info", "@/many.wav"}, 1, "", which},
         {{"info", "@/many.wav", "--channel", "13"},
          1,
          "",
          "cantorix-batch: @/many.wav: There is no channel 13, the file has 12.\n"},
         {{"info", "@/many.wav", "--channel", "12"},
          0,
          "file      @/many.wav\nchannel   many.wav::Channel12\nformat    WAV\n"
          "rate      1000.0 Hz\nlength    3 samples\nduration  3.0 ms\nstorage   memory\n",
          ""},
         {{"convert", "@/many.wav", "@/twelfth.wav", "--channel", "12"}, 0, "", ""}});
  EXPECT_EQ(FileText(folder_ / "twelfth.wav"), Wave({111, 211, 311}, 1000));
}

}  // namespace
}  // namespace cantorix::batch
