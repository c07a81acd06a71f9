// expected_test.cpp - what the program says of itself and of the sample recording, letter for
// letter and digit for digit. The files in the folder "expected" hold it; a change there is a
// change that users see. That the digits are right is shown by other tests, against what the sample
// is made of.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "batch/command.h"
#include "support/samples.h"

namespace cantorix::batch {
namespace {

const std::string kVowels = SamplesDirectory() + "/vowels.qrv";

// What the commands say, one after the other; "VOWELS" in their words stands for the recording.
std::string SaidBy(const std::vector<Words>& commands) {
  std::string said;
  for (Words words : commands) {
    std::replace(words.begin(), words.end(), std::string("VOWELS"), kVowels);
    const CommandResult result = RunBatch(words);
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(words);
    said += result.out + result.err;
  }
  for (std::size_t at; (at = said.find(kVowels)) != std::string::npos;) {
    said.replace(at, kVowels.size(), "VOWELS");
  }
  return said;
}

TEST(Expected, EveryWordAndDigitIsGiven) {
  struct Row {
    const char* file;
    std::vector<Words> commands;
  };
  std::vector<Words> help{
      {"--version"}, {"--help"}, {"config", "show", "--help"}, {"config", "default", "--help"}};
  for (const char* verb : {"info", "pitch", "intensity", "spectrum", "spectrogram", "formants",
                           "labels", "convert", "import-labels", "edit", "config", "commands"}) {
    help.push_back({verb, "--help"});
  }
  const Row rows[] = {
      {"help.txt", help},
      {"config.tsv", {{"config", "show"}}},
      {"info.txt", {{"info", "VOWELS"}, {"info", "VOWELS", "VOWELS", "--json"}}},
      {"labels.tsv", {{"labels", "VOWELS"}, {"labels", "VOWELS", "--log"}}},
      {"pitch.tsv",
       {{"pitch", "VOWELS"}, {"pitch", "VOWELS", "--method", "cepstral", "--step", "20", "--log"}}},
      {"intensity.tsv",
       {{"intensity", "VOWELS", "--window", "40", "--step", "33.3"},
        {"intensity", "VOWELS", "--step", "100", "--relative"}}},
      {"spectrum.tsv",
       {{"spectrum", "VOWELS", "--at", "410", "--display", "100"},
        {"spectrum", "VOWELS", "--from", "1600", "--to", "1900", "--display", "50"}}},
      {"spectrogram.tsv",
       {{"spectrogram", "VOWELS", "--columns", "25", "--rows", "20", "--formants"},
        {"spectrogram", "VOWELS", "--columns", "3", "--rows", "4", "--fmax", "4000", "--dynamic",
         "50"}}},
      {"formants.tsv", {{"formants", "VOWELS", "--step", "50"}}},
  };
  for (const Row& row : rows) ExpectSaid(row.file, SaidBy(row.commands));
}

// The table of the sample's truth has a row for every 10 ms.
TEST(Expected, PitchIsThatWhichTheVowelsWereMadeWith) {
  const Table truth = TableOf(FileText(SamplesDirectory() + "/vowels.truth.tsv"));
  for (const auto& [method, least] : {std::pair("cepstral", 0.95), {"autocorrelation", 0.75}}) {
    int voiced = 0, found = 0, invented = 0;
    const Table track = TableOf(OutOf({"pitch", kVowels, "--method", method}));
    for (std::size_t i = 1; i < track.size(); ++i) {
      const auto at = static_cast<std::size_t>(std::lround(std::stod(track[i][0]) / 10.0)) + 1;
      if (at >= truth.size()) continue;
      const double made = std::stod(truth[at][1]);
      const double hz = std::stod(track[i][1]);
      voiced += made > 0.0 ? 1 : 0;
      found += made > 0.0 && std::abs(hz - made) < 0.03 * made ? 1 : 0;
      invented += made == 0.0 && hz > 0.0 ? 1 : 0;
    }
    EXPECT_GT(voiced, 300) << method;
    EXPECT_GT(found, least * voiced) << method;
    EXPECT_LT(invented, 10) << method;
  }
}

}  // namespace
}  // namespace cantorix::batch
