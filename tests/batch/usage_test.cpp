// usage_test.cpp - what is asked for and cannot be: one line and exit code 2. And the places that a
// result may come from and go to.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <future>

#include "batch/command.h"
#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

const std::string kTable = "time_ms\tintensity_db\n0.0\t60.0\n";

class UsageTest : public testing::Test {
 protected:
  UsageTest() {
    PutFile(folder_ / "ten.wav", kTenBytes);
    PutFile(folder_ / "slow.wav", Wave(std::vector<int>(8000, 5), 8000));
    // Windows of 20.5 samples hold 20; one of them fits.
    PutFile(folder_ / "dc.wav", Wave(std::vector<int>(31, 1013), 1000));
  }

  const std::string kTenBytes = Wave({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 1000);
  TemporaryFolder folder_;
};

TEST_F(UsageTest, WrongWordsAndTimesAndWhatADialogRefusesAreRefusedInOneLine) {
  for (const char* const name : {"wrong-words.txt", "dialog-words.txt", "wrong-times.txt"}) {
    ExpectTranscript(name, folder_.path());
  }
  // A time that was rounded to one decimal may lie behind the end.
  EXPECT_EQ(FileText(folder_ / "tail.wav"), Wave({9, 10}, 1000));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "out.qrv"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "o.qrv"));
}

TEST_F(UsageTest, ARecordingIsReplacedByWhatIsMadeOfItOnlyWithForceOrWhenItIsNative) {
  std::filesystem::create_symlink(folder_ / "ten.wav", folder_ / "link.wav");
  std::filesystem::create_directory(folder_ / "links");
  std::filesystem::create_hard_link(folder_ / "ten.wav", folder_ / "links/slow.intensity.tsv");
  ExpectTranscript("places.txt", folder_.path());
  EXPECT_EQ(FileText(folder_ / "ten.wav"), Wave({8, 9, 10}, 1000));
  EXPECT_EQ(FileText(folder_ / "Last.WaV"), Wave({9, 10}, 1000));
}

TEST_F(UsageTest, StreamsTakeAndGiveWhatFilesDo) {
  const std::string wave = Wave({3, 4}, 1000);
  EXPECT_EQ(
      OutOf({"convert", folder_ / "ten.wav", "-", "--format", "wav", "--from", "2", "--to", "4"}),
      wave);
  EXPECT_EQ(RunBatch({"convert", folder_ / "ten.wav", "-"}).out.substr(0, 6), "QRV_PC");
  const CommandResult piped = RunBatch({"info", "/dev/stdin"}, {.input = wave});
  EXPECT_EQ(piped.out + piped.err,
            "file      /dev/stdin\nformat    WAV\nencoding  Signed 16 bit PCM\nrate      1000.0 "
            "Hz\nlength    2 samples\n"
            "duration  2.0 ms\nstorage   memory\n");
  EXPECT_EQ(RunBatch({"info", "/dev/stdin"}, {.input = "no sound"}).err.substr(0, 38),
            "cantorix-batch: /dev/stdin: The reques");
  const std::string pipe = folder_ / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  auto reader = std::async(std::launch::async, [&] { return FileText(pipe); });
  EXPECT_EQ(RunBatch({"intensity", folder_ / "dc.wav", "-o", pipe}).exitCode, 0);
  EXPECT_EQ(reader.get(), kTable);
}

TEST_F(UsageTest, NamesCannotReachTheTerminal) {
  const std::string name = "@/\x1b[31m\tred\n.wav";
  std::filesystem::copy(folder_ / "dc.wav", Filled(name, folder_.path()));
  const std::string shown = folder_ / "\\x1b[31m red .wav";
  OutOf({"edit", folder_ / "ten.wav", "-o", folder_ / "l.qrv",
         "label:a\302\2331m:4:b\x1b]0;x\x07\tc\nd\x7F"});
  const std::string file = Filled(name, folder_.path());
  const std::pair<Words, std::string> rows[] = {
      {{"intensity", file, folder_ / "dc.wav"}, shown},
      {{"intensity", file + "x"}, shown + "x"},
      {{"info", file}, shown},
      {{"info", file, "--sing\x1b"}, "--sing\\x1b ("},
      {{"info", folder_ / "l.qrv"}, "tier      a\\x9b1m, 1 labels"}};
  for (const auto& [words, part] : rows) {
    const CommandResult result = RunBatch(words);
    EXPECT_THAT(result.out + result.err, testing::HasSubstr(part));
    EXPECT_EQ((result.out + result.err).find_first_of("\x1b\x07\x7F"), std::string::npos) << part;
  }
  const std::string json = RunBatch({"info", "--json", folder_ / "l.qrv"}).out;
  EXPECT_THAT(json, testing::HasSubstr("\"name\": \"a\\u009b1m\", "));
  EXPECT_THAT(json,
              testing::HasSubstr("\"text\": \"b\\u001b]0;x\\u0007\\u0009c\\u000ad\\u007f\", "));
}

}  // namespace
}  // namespace cantorix::batch
