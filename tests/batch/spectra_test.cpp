// spectra_test.cpp - the verbs spectrum, spectrogram and formants, run as a user runs them on the
// sample recording of seven vowels.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "batch/command.h"
#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

const std::string kRecording = SamplesDirectory() + "/vowels.qrv";
const std::string kTruth = SamplesDirectory() + "/vowels.formants.tsv";

TEST(Spectra, FindTheFormantsThatTheVowelsWereMadeWith) {
  const Table truth = TableOf(FileText(kTruth));
  ASSERT_GT(truth.size(), 7U);
  for (std::size_t i = 1; i < truth.size(); ++i) {
    const std::string& middle = truth[i][3];
    const Table spectrum = TableOf(OutOf({"spectrum", kRecording, "--at", middle}));
    ASSERT_EQ(spectrum.size(), 1U + 500U + 1U + 1U + 5U);
    const Table track = TableOf(
        OutOf({"formants", kRecording, "--from", middle, "--columns", "1", "--rows", "50"}));
    ASSERT_EQ(track.size(), 2U);
    for (std::size_t f = 0; f < 3; ++f) {
      const double made = std::stod(truth[i][4 + f]);
      EXPECT_NEAR(std::stod(spectrum[503 + f][1]), made, 0.03 * made)
          << truth[i][0] << " F" << f + 1;
      EXPECT_NEAR(std::stod(track[1][1 + f]), made, 0.03 * made) << truth[i][0] << " F" << f + 1;
    }
  }
}

// A resonance of 1200 Hz struck 100 times a second, at 48 kHz.
TEST(Spectra, SayWhereTheLpcOrderIsLowForTheRate) {
  const TemporaryFolder folder;
  const std::string hum = folder / "hum.wav";
  std::vector<int> samples;
  for (int i = 0; i < 9600; ++i) {
    const double seconds = i % 480 / 48000.0;
    samples.push_back(
        static_cast<int>(9000.0 * std::exp(-250.0 * seconds) * std::cos(7540.0 * seconds)));
  }
  PutFile(hum, Wave(samples, 48000));
  const std::string low =
      "cantorix-batch: " + hum + ": LPC order 14 is low for 48000 Hz (usual: 50).\n";
  const Words verbs[] = {{"formants", hum, "--step", "50"},
                         {"spectrogram", hum, "--columns", "2", "--rows", "3", "--formants"},
                         {"spectrum", hum, "--at", "50"}};
  for (const Words& verb : verbs) {
    const CommandResult given = RunBatch(verb);
    EXPECT_EQ(given.exitCode, 0) << verb[0];
    EXPECT_EQ(given.err, low) << verb[0];
    EXPECT_EQ(RunBatch(verb + Words{"--lpc", "14"}).out, given.out) << verb[0];
    const CommandResult usual = RunBatch(verb + Words{"--lpc", "auto"});
    EXPECT_EQ(usual.err, "") << verb[0];
    EXPECT_EQ(usual.out, OutOf(verb + Words{"--lpc", "50"})) << verb[0];
    EXPECT_NE(usual.out, given.out) << verb[0];
  }
  EXPECT_EQ(RunBatch({"spectrogram", hum, "--columns", "2", "--rows", "3"}).err, "");
}

}  // namespace
}  // namespace cantorix::batch
