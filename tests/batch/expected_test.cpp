// expected_test.cpp - what the program says of itself and of the sample recording, letter for
// letter and digit for digit. The files in the folder "expected" hold it; a change there is a
// change that users see. That the digits are right is shown by other tests, against what the sample
// is made of.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "batch/command.h"
#include "support/samples.h"

namespace cantorix::batch {
namespace {

const std::string kVowels = SamplesDirectory() + "/vowels.qrv";

TEST(Expected, EveryWordAndDigitIsGiven) {
  for (const char* const name : {"help.txt", "commands.tsv", "config.tsv", "info.txt", "labels.tsv",
                                 "pitch.tsv", "intensity.tsv", "spectrum.tsv", "spectrogram.tsv",
                                 "formants.tsv", "measure.tsv", "log.txt"}) {
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

// A vowel at a time, against the rows of the track in its middle and the formants that it was made
// with, but for the one that glides.
TEST(Expected, MeasuresAreThoseOfTheRowsInTheStretch) {
  const Table truth = TableOf(FileText(SamplesDirectory() + "/vowels.formants.tsv"));
  const Table track = TableOf(OutOf({"pitch", kVowels, "--exact"}));
  for (const std::size_t vowel : {1U, 2U, 3U, 4U, 5U, 7U}) {
    const double from = std::stod(truth.at(vowel)[3]) - 150.0;
    const double to = from + 300.0;
    const Table measures = TableOf(OutOf({"measure", kVowels, "--from", std::to_string(from),
                                          "--to", std::to_string(to), "--exact"}));
    std::vector<double> hertz;
    double entries = 0.0, sum = 0.0, squares = 0.0;
    for (std::size_t i = 1; i < track.size(); ++i) {
      const double ms = std::stod(track[i][0]);
      const double hz = std::stod(track[i][1]);
      entries += ms >= from && ms <= to ? 1.0 : 0.0;
      if (ms < from || ms > to || hz == 0.0) continue;
      hertz.push_back(hz);
      sum += hz;
    }
    std::sort(hertz.begin(), hertz.end());
    ASSERT_GT(hertz.size(), 2U);
    const auto count = static_cast<double>(hertz.size());
    for (const double hz : hertz) squares += (hz - sum / count) * (hz - sum / count);
    const double middle = (hertz[hertz.size() / 2] + hertz[(hertz.size() - 1) / 2]) / 2.0;
    const double expected[] = {hertz.front(),
                               hertz.back(),
                               sum / count,
                               middle,
                               std::sqrt(squares / (count - 1.0)),
                               count / entries * 100.0};
    for (std::size_t i = 0; i < std::size(expected); ++i) {
      EXPECT_NEAR(std::stod(measures[1][3 + i]), expected[i], 1e-6) << measures[0][3 + i];
    }
    for (std::size_t f = 0; f < 3; ++f) {
      const double made = std::stod(truth[vowel][4 + f]);
      EXPECT_NEAR(std::stod(measures[1][13 + f]), made, 0.05 * made) << truth[vowel][0];
    }
  }
}

}  // namespace
}  // namespace cantorix::batch
