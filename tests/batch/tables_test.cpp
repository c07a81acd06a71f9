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

// Of one file, of several that keep their order whatever fails, and of one channel of twelve.
TEST_F(TablesTest, HoldWhatWasWorkedOutByHand) {
  PutFile(folder_ / "broken.wav", "not a recording");
  PutFile(folder_ / "many.wav", Wave({100, 200, 300}, 1000, 12));
  PutFile(folder_ / "numbers.txt", "Time\n1\n-2 70000\n");
  ExpectTranscript("tables.txt", folder_.path());
  EXPECT_EQ(FileText(folder_ / "numbers.wav"), Wave({1, -2, 32767}, 1000));
  EXPECT_EQ(FileText(folder_ / "tables/dc.intensity.tsv"),
            "time_ms\tintensity_db\n0.0\t60.0\n10.0\t60.0\n20.0\t60.0\n");
  EXPECT_EQ(FileText(folder_ / "tables/still.intensity.tsv").substr(0, 30),
            "time_ms\tintensity_db\n0.0\t-inf\n");
  EXPECT_EQ(FileText(folder_ / "twelfth.wav"), Wave({111, 211, 311}, 1000));
}

TEST_F(TablesTest, OfManyMegabytesComeOutWhole) {
  // Windows of 20.5 samples hold 20 of them: 59.9 dB. More than is kept in memory.
  constexpr int kSamples = 400000;
  PutFile(folder_ / "long.wav", Wave(std::vector<int>(kSamples, 1000), 1000));
  std::string expected = "time_ms\tintensity_db\n";
  for (int ms = 0; ms < kSamples; ++ms) expected += std::to_string(ms) + ".0\t59.9\n";
  EXPECT_TRUE(RunBatch({"intensity", "--samples", folder_ / "long.wav"}).out == expected);
  const std::string table = folder_ / "long.tsv";
  RunBatch({"intensity", "--samples", folder_ / "long.wav", "-o", table});
  EXPECT_TRUE(FileText(table) == expected);
  EXPECT_EQ(
      RunBatch({"intensity", "--samples", folder_ / "long.wav"}, {.largestFile = 4000000}).err,
      Filled("cantorix-batch: @/long.wav: File too large.\n", folder_.path()));
}

}  // namespace
}  // namespace cantorix::batch
