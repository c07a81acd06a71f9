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

TEST(Expected, EveryWordAndDigitIsGiven) {
  for (const char* const name :
       {"help.txt", "commands.tsv", "config.tsv", "info.txt", "labels.tsv", "pitch.tsv",
        "intensity.tsv", "spectrum.tsv", "spectrogram.tsv", "formants.tsv", "log.txt"}) {
    ExpectTranscript(name);
  }
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
