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

const std::string kTen = "cantorix-batch: @/ten.wav: ";
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

TEST_F(UsageTest, WrongWordsAreRefusedInOneLine) {
  const std::vector<Words> rows = {
      {},
      {"sing"},
      {"pitch"},
      {"pitch", "@/ten.wav", "--method", "guess"},
      {"pitch", "@/ten.wav", "--set", "pitch.highHz"},
      {"pitch", "@/ten.wav", "--set", "pitch.noSuchField=1"},
      {"pitch", "@/ten.wav", "--set", "pitch.highHz=loud"},
      {"pitch", "@/ten.wav", "--log", "--exact"},
      {"pitch", "@/ten.wav", "-j", "0"},
      {"pitch", "@/ten.wav", "-j", "257"},
      {"pitch", "@/ten.wav", "--program-dir", "@/absent"},
      {"intensity", "@/ten.wav", "--log", "--samples"},
      {"info", "@/ten.wav", "--memory-minutes", "-1"},
      {"info", "@/ten.wav", "--channel", "0"},
      {"info", "@/ten.wav", "--channel", "65536"},
      {"info", "@/ten.wav", "--set", "=1"},
      {"info", "@/ten.wav", "--generic", "0,8000,12,low,binary"},
      {"info", "@/ten.wav", "--generic", "0,8000,16,low"},
      {"info", "@/ten.wav", "--generic", "-1,8000,16,low,binary"},
      {"info", "@/ten.wav", "--generic", "0,0,16,low,binary"},
      {"info", "@/ten.wav", "--generic", "0,8000,16,middle,binary"},
      {"convert", "@/ten.wav", "@/ten.mp3"},
      {"config", "show", "--set", "fftlpc.points=1e99"},
      {"spectrum", "@/ten.wav"},
      {"spectrum", "@/ten.wav", "--at", "5", "--to", "9"},
      {"spectrum", "@/ten.wav", "--at", "5", "--points", "100"},
      {"spectrum", "@/ten.wav", "--at", "5", "--set", "fftlpc.points=100"},
      {"spectrum", "@/ten.wav", "--at", "5", "--display", "0"},
      {"spectrum", "@/ten.wav", "--at", "5", "--display", "1000001"},
      {"spectrogram", "@/ten.wav", "--rows", "0"},
      {"spectrogram", "@/ten.wav", "--columns", "0"},
      {"formants", "@/ten.wav", "--columns", "0"},
      {"spectrogram", "@/ten.wav", "--lpc", "401"},
      {"spectrogram", "@/ten.wav", "--set", "spectrogram.points=0"},
      {"formants", "@/ten.wav"},
      {"formants", "@/ten.wav", "--step", "10", "--columns", "5"},
      {"formants", "@/ten.wav", "--step", "0"},
      {"edit", "@/ten.wav", "-o", "@/out.qrv"},
      {"edit", "@/ten.wav", "cut"},
      {"edit", "@/ten.wav", "-o", "@/out.qrv", "jump"},
      {"edit", "@/ten.wav", "-o", "@/out.qrv", "cut:1"},
      {"edit", "@/ten.wav", "-o", "@/out.qrv", "select:1"},
      {"edit", "@/ten.wav", "-o", "@/out.qrv", "select:1:2:3"},
      {"edit", "@/ten.wav", "-o", "@/out.qrv", "gain:loud:0"},
      {"edit", "@/ten.wav", "-o", "@/out.qrv", "label:tones:inf:x"},
      {"import-labels", "@/ten.wav", "t.txt", "--tier", "words", "-o", "@/out.qrv"},
      {"import-labels", "@/ten.wav", "t.txt", "--tier", "words", "--unit", "h", "-o", "@/out.qrv"},
  };
  ExpectSaid("wrong-words.txt", RefusalsOf(folder_.path(), rows));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "out.qrv"));
}

TEST_F(UsageTest, WhatADialogRefusesIsRefusedInItsWords) {
  const std::vector<Words> rows = {
      {"pitch", "@/ten.wav", "--low", "600", "--high", "500"},
      {"pitch", "@/ten.wav", "--low", "49"},
      {"pitch", "@/ten.wav", "--set", "pitch.displayHighHz=249"},
      {"intensity", "@/ten.wav", "--step", "0.5"},
      {"info", "@/ten.wav", "--set", "zoom.rangeMs=0"},
      {"info", "@/ten.wav", "--set", "log.stepHz=0"},
      {"info", "@/ten.wav", "--set", "gain.gainPercent=1000001"},
      {"spectrum", "@/slow.wav", "--at", "5", "--lpc", "101"},
      {"spectrogram", "@/slow.wav", "--fmax", "499"},
      {"formants", "@/slow.wav", "--columns", "1", "--fmax", "4001"},
      {"spectrum", "@/slow.wav", "--at", "5"},
      {"spectrum", "@/slow.wav", "--at", "5", "--fmax", "4000", "--lpc", "19", "--log"},
  };
  ExpectSaid("dialog-words.txt", RefusalsOf(folder_.path(), rows));
  EXPECT_EQ(
      OutOf({"pitch", folder_ / "slow.wav", "--low", "50", "--high", "250", "-o", "/dev/null"}),
      "");
}

TEST_F(UsageTest, ATimeThatTheRecordingDoesNotHaveIsRefusedWithItsLength) {
  const std::vector<Words> rows = {
      {"convert", "@/ten.wav", "@/o.qrv", "--from", "nan"},
      {"convert", "@/ten.wav", "@/o.wav", "--to", "late"},
      {"pitch", "@/ten.wav", "--from", "10.2"},
      {"intensity", "@/ten.wav", "--from=-1"},
      {"labels", "@/ten.wav", "--to", "inf"},
      {"spectrum", "@/ten.wav", "--at", "11"},
      {"spectrum", "@/ten.wav", "--at", "x"},
      {"formants", "@/ten.wav", "--columns", "1", "--from", "6", "--to", "4"},
      {"spectrogram", "@/ten.wav", "--from", "4", "--to", "4"},
      {"pitch", "@/ten.wav", "--log", "--from", "4", "--to", "4.9"},
  };
  ExpectSaid("wrong-times.txt", RefusalsOf(folder_.path(), rows));
  // A time that was rounded to one decimal may lie behind the end.
  OutOf({"convert", folder_ / "ten.wav", folder_ / "tail.wav", "--from", "8", "--to", "10.1"});
  EXPECT_EQ(FileText(folder_ / "tail.wav"), Wave({9, 10}, 1000));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "o.qrv"));
}

TEST_F(UsageTest, ARecordingIsNotReplacedByWhatIsMadeOfIt) {
  std::filesystem::create_symlink(folder_ / "ten.wav", folder_ / "link.wav");
  const std::string self = " is the recording itself, and no native file; --force replaces it\n";
  Check(folder_.path(),
        {{{"convert", "@/ten.wav", "@/ten.wav"}, 2, "", kTen + "@/ten.wav" + self},
         {{"edit", "@/ten.wav", "-o", "@/link.wav", "smooth"}, 2, "", kTen + "@/link.wav" + self},
         {{"info", "@/ten.wav", "-o", "@/ten.wav"},
          2,
          "",
          "cantorix-batch: @/ten.wav is one of the recordings; --force replaces it\n"}});
}

TEST_F(UsageTest, ForceReplacesAndANativeFileMayReplaceItself) {
  Check(folder_.path(),
        {{{"convert", "@/ten.wav", "@/ten.wav", "--force", "--from", "7"}, 0, "", ""},
         {{"convert", "@/ten.wav", "@/ten.QRV"}, 0, "", ""},
         {{"edit", "@/ten.QRV", "-o", "@/ten.QRV", "select:0:1", "cut"}, 0, "", ""},
         {{"convert", "@/ten.QRV", "@/Last.WaV"}, 0, "", ""}});
  EXPECT_EQ(FileText(folder_ / "ten.wav"), Wave({8, 9, 10}, 1000));
  EXPECT_EQ(FileText(folder_ / "Last.WaV"), Wave({9, 10}, 1000));
}

TEST_F(UsageTest, StreamsTakeAndGiveWhatFilesDo) {
  const std::string wave = Wave({3, 4}, 1000);
  Check(
      folder_.path(),
      {{{"intensity", "@/dc.wav", "-o", "-"}, 0, kTable, ""},
       {{"intensity", "@/dc.wav", "-o", "/dev/stdout"}, 0, kTable, ""},
       {{"intensity", "@/dc.wav", "-o", "/dev/null"}, 0, "", ""},
       {{"intensity", "@/dc.wav", "-o", "/dev/full"},
        1,
        "",
        "cantorix-batch: /dev/full: No space left on device.\n"},
       {{"config", "default", "-o", "/dev/null"}, 0, "", ""},
       {{"convert", "@/ten.wav", "/dev/null"}, 0, "", ""},
       {{"convert", "@/ten.wav", "-", "--format", "wav", "--from", "2", "--to", "4"}, 0, wave, ""},
       {{"edit", "@/ten.wav", "-o", "@/as", "cut"},
        2,
        "",
        "cantorix-batch: --output: the name must end in .qrv or .wav: @/as (--help explains)\n"}});
  EXPECT_EQ(RunBatch({"convert", folder_ / "ten.wav", "-"}).out.substr(0, 6), "QRV_PC");
  const CommandResult piped = RunBatch({"info", "/dev/stdin"}, {.input = wave});
  EXPECT_EQ(piped.out + piped.err,
            "file      /dev/stdin\nformat    WAV\nrate      1000.0 Hz\nlength    2 samples\n"
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
  const std::string shown = "@/\\x1b[31m red .wav";
  Check(
      folder_.path(),
      {{{"intensity", name, "@/dc.wav"},
        0,
        "file\ttime_ms\tintensity_db\n" + shown + "\t0.0\t60.0\n@/dc.wav\t0.0\t60.0\n",
        ""},
       {{"intensity", name + "x"},
        1,
        "",
        "cantorix-batch: " + shown + "x: could not be opened. No such file or directory.\n"},
       {{"info", name},
        0,
        "file      " + shown +
            "\nformat    WAV\nrate      1000.0 Hz\nlength    31 samples\n"
            "duration  31.0 ms\nstorage   memory\n",
        ""},
       {{"info", "@/dc.wav", "--sing\x1b"},
        2,
        "",
        "cantorix-batch: The following argument was not expected: --sing\\x1b (--help explains)\n"},
       {{"edit", "@/ten.wav", "-o", "@/l.qrv",
         ("label:a\xC2\x9B"
          "1m:4:b\x1b]0;x\x07\tc\nd\x7F")},
        0,
        "",
        ""},
       {{"info", "@/l.qrv"},
        0,
        "file      @/l.qrv\nformat    QRV_PC\nrate      1000.0 Hz\nlength    10 samples\n"
        "duration  10.0 ms\nstorage   memory\ntier      a\\x9b1m, 1 labels\n",
        ""}});
  const std::string json = RunBatch({"info", "--json", folder_ / "l.qrv"}).out;
  EXPECT_THAT(json, testing::HasSubstr("\"name\": \"a\\u009b1m\", "));
  EXPECT_THAT(json,
              testing::HasSubstr("\"text\": \"b\\u001b]0;x\\u0007\\u0009c\\u000ad\\u007f\", "));
}

}  // namespace
}  // namespace cantorix::batch
