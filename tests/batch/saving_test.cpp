// saving_test.cpp - the verbs that write recordings. "ten.wav" holds the samples 1 to 10 at 1 kHz,
// so that a sample is a millisecond and every result can be told beforehand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "batch/command.h"
#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

const std::string kSample = SamplesDirectory() + "/vowels.qrv";
constexpr const char* kNoUndo =
    "cantorix-batch: @/ten.wav: Unable to save to a temp. file for Undo function. Undo is not "
    "available.\n";

class SavingTest : public testing::Test {
 protected:
  SavingTest() { PutFile(folder_ / "ten.wav", Wave({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 1000)); }

  void Run(Words words) {
    for (std::string& word : words) word = Filled(word, folder_.path());
    const CommandResult result = RunBatch(words);
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(words) << result.err;
  }
  // What the steps make of "ten.wav" or another file.
  std::string Edited(const Words& steps, const std::string& input = "@/ten.wav",
                     const std::string& output = "@/out.wav") {
    Words words{"edit", input, "-o", output};
    words.insert(words.end(), steps.begin(), steps.end());
    Run(words);
    return FileText(Filled(output, folder_.path()));
  }

  TemporaryFolder folder_;
};

TEST_F(SavingTest, EveryStepDoesWhatItSays) {
  struct Row {
    Words steps;
    std::vector<int> samples;
  };
  const std::vector<int> all{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  const Row rows[] = {
      {{"select:2:5", "cut"}, {1, 2, 6, 7, 8, 9, 10}},
      {{"select:5:2", "cut"}, {1, 2, 6, 7, 8, 9, 10}},
      {{"select:2:4", "copy", "cursor:9", "paste"}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 3, 4, 10}},
      {{"select:2:4", "copy", "select:0:9", "paste"}, {3, 4, 10}},
      {{"select:8:10.1", "cut"}, {1, 2, 3, 4, 5, 6, 7, 8}},
      {{"select:2:5", "clear"}, {1, 2, 0, 0, 0, 6, 7, 8, 9, 10}},
      {{"gain:100:1"}, {4, 6, 8, 10, 12, 14, 16, 18, 20, 22}},
      {{"gain:-50:0"}, {0, 1, 1, 2, 2, 3, 3, 4, 4, 5}},
      {{"gain:-100:5", "select:0:9", "cut"}, {0}},
      {{"select:2:5", "clear", "smooth", "select:0:1", "cut", "select:8:9", "cut"},
       {1, 0, 0, 2, 4, 7, 8, 9}},
      {{"select:2:5", "cut", "undo"}, all},
      {{"gain:50:7", "undo"}, all},
      {{"smooth", "undo"}, all},
      {{"select:0:3", "clear", "undo"}, all},
      {{"select:1:3", "copy", "cursor:5", "paste", "undo", "select:0:9", "cut"}, {10}},
      {{"label:tones:4:x", "undo"}, all},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Edited(row.steps), Wave(row.samples, 1000)) << testing::PrintToString(row.steps);
  }
}

TEST_F(SavingTest, LabelsGoWithTheSamples) {
  const std::string head = "tier\ttext\ttime_ms\tpitch_hz\tintensity_db\n";
  // Long enough for a pitch track; as still as can be, but not silent: 20 log 50 dB.
  PutFile(folder_ / "hum.wav", Wave(std::vector<int>(1300, 50), 10000));
  Edited({"label:words:20:one", "label:words:60:two", "label:mine:20.5:a:b", "select:30:40", "cut"},
         "@/hum.wav", "@/cut.qrv");
  PutFile(folder_ / "labels.txt", "no label\r\n0.025\tthree\tfour\r\n0.118\tfive\n");
  Run({"import-labels", "@/cut.qrv", "@/labels.txt", "--tier", "words", "--unit", "s", "--justify",
       "right", "--line", "-o", "@/more.qrv"});
  PutFile(folder_ / "ms.txt", "7\tsix\n");
  Run({"import-labels", "@/hum.wav", "@/ms.txt", "--tier", "new", "--unit", "ms", "-o",
       "@/ms.qrv"});
  Run({"convert", "@/more.qrv", "@/part.qrv", "--from", "0", "--to", "117"});
  const std::string words =
      "words\tone\t20.0\t0.0\t34.0\nwords\ttwo\t50.0\t0.0\t34.0\nwords\tthree "
      "four\t25.0\t0.0\t34.0\n";
  const std::string mine = "mine\ta:b\t20.5\t0.0\t34.0\n";
  const std::string heading = "Labels All Entry: Tier, Label's Text, Time, pitch, Intensity\t";
  Check(folder_.path(),
        {{{"labels", "@/more.qrv"}, 0, head + mine + words + "words\tfive\t118.0\t0.0\t34.0\n", ""},
         {{"labels", "@/more.qrv", "--from", "20.5", "--to", "50"},
          0,
          head + mine + "words\ttwo\t50.0\t0.0\t34.0\nwords\tthree four\t25.0\t0.0\t34.0\n",
          ""},
         {{"labels", "@/part.qrv"}, 0, head + mine + words, ""},
         {{"labels", "@/ms.qrv", "--exact", "--set", "intensity.relative=1"},
          0,
          head + "new\tsix\t7\t0\t0\n",
          ""},
         {{"labels", "@/ms.qrv", "--log"},
          0,
          "Source\tEntry Type\tEntry 1\tEntry 2\tEntry 3\tEntry 4\tEntry 5\t\r\nms.qrv\t" +
              heading + "new\tsix\t7.0\t0.0\t34.0\t\r\n",
          ""}});
  EXPECT_THAT(RunBatch({"info", "--json", folder_ / "more.qrv"}).out,
              testing::HasSubstr("{\"text\": \"five\", \"timeMs\": 118, \"verticalPosition\": 0.7, "
                                 "\"alignment\": 2, \"flag\": 1, \"colour\": 0, "));
}

TEST_F(SavingTest, ATierComesIntoUseWhereItsNameOrAFreeSlotIs) {
  const auto tiers = [&](const Words& steps) {
    Edited(steps, "@/ten.wav", "@/tiers.qrv");
    const std::string out = RunBatch({"info", folder_ / "tiers.qrv"}).out;
    return out.substr(out.find("memory\n") + 7);
  };
  EXPECT_EQ(tiers({"label:misc:1:x", "label:words:1:x", "label:misc:2:x"}),
            "tier      words, 1 labels\ntier      misc, 2 labels\n");
  EXPECT_EQ(tiers({"label:first:1:x", "label:second:1:x"}),
            "tier      first, 1 labels\ntier      second, 1 labels\n");
  Words steps{"edit", "@/ten.wav", "-o", "@/full.qrv"};
  for (int i = 0; i < 11; ++i) steps.push_back("label:t" + std::to_string(i) + ":1:x");
  Check(folder_.path(),
        {{steps, 1, "",
          "cantorix-batch: @/ten.wav: step \"label:t10:1:x\": all tiers are in use\n"}});
}

TEST_F(SavingTest, UndoGivesBackTheRecordingByteForByte) {
  const std::string input = "@/labelled.qrv";
  Edited({"label:tones:3:x", "label:misc:7:y"}, "@/ten.wav", input);
  const std::string saved = FileText(folder_ / "labelled.qrv");
  const Words rows[] = {{"select:2:5", "cut", "undo"},
                        {"gain:50:7", "undo"},
                        {"select:1:9", "copy", "cursor:5", "paste", "undo"},
                        {"label:tones:9:z", "undo"}};
  for (const Words& steps : rows) {
    EXPECT_TRUE(Edited(steps, input, "@/out.qrv") == saved) << testing::PrintToString(steps);
  }
}

TEST_F(SavingTest, WhatCannotBeDoneIsSaidAndNothingIsWritten) {
  PutFile(folder_ / "none.txt", "nothing here\n");
  const auto step = [](const Words& steps, const std::string& reason) {
    Words words{"edit", "@/ten.wav", "-o", "@/out.qrv"};
    words.insert(words.end(), steps.begin(), steps.end());
    return Case{words, 1, "", "cantorix-batch: @/ten.wav: step \"" + reason + "\n"};
  };
  const auto import = [](const std::string& text, const std::string& report) {
    return Case{
        {"import-labels", "@/ten.wav", text, "--tier", "words", "--unit", "s", "-o", "@/out.qrv"},
        1,
        "",
        "cantorix-batch: @/ten.wav: " + text + report + "\n"};
  };
  Check(folder_.path(),
        {step({"cut"}, "cut\": needs selection"), step({"paste"}, "paste\": needs clipboard"),
         step({"undo"}, "undo\": needs undo"),
         step({"select:0:11"}, "select:0:11\": the recording ends at 10.0 ms"),
         step({"cursor:-1"}, "cursor:-1\": the recording ends at 10.0 ms"),
         step({"label:tones:12:x"}, "label:tones:12:x\": the recording ends at 10.0 ms"),
         step({"select:0:10", "cut"}, "cut\": could not be done"),
         import("@/missing.txt", " could not be opened. No such file or directory."),
         import("@/none.txt", " holds no labels.")});
  EXPECT_FALSE(std::filesystem::exists(folder_ / "out.qrv"));
}

TEST_F(SavingTest, GoesOnWithoutUndoWhenItsFileCannotBeWritten) {
  // A native file of 5000 samples is larger than what may be written, a WAV of them is not.
  std::vector<int> samples(5000, 3);
  PutFile(folder_ / "ten.wav", Wave(samples, 1000));
  PutFile(folder_ / "labels.txt", "0.5\tone\n");
  const CommandHost host{.largestFile = 10100};
  const std::string out = folder_ / "out.wav";
  const Words edit{"edit", folder_ / "ten.wav", "-o", out, "gain:100:0"};
  const CommandResult edited = RunBatch(edit, host);
  EXPECT_EQ(edited.exitCode, 0);
  EXPECT_EQ(edited.err, Filled(kNoUndo, folder_.path()));
  std::fill(samples.begin(), samples.end(), 6);
  EXPECT_TRUE(FileText(out) == Wave(samples, 1000));
  const CommandResult imported =
      RunBatch({"import-labels", folder_ / "ten.wav", folder_ / "labels.txt", "--tier", "words",
                "--unit", "s", "-o", folder_ / "imported.wav"},
               host);
  EXPECT_EQ(imported.exitCode, 0);
  EXPECT_EQ(imported.err, Filled(kNoUndo, folder_.path()));
  EXPECT_TRUE(FileText(folder_ / "imported.wav") == FileText(folder_ / "ten.wav"));
}

TEST_F(SavingTest, ConvertsThereAndBack) {
  Run({"convert", kSample, "@/copy.qrv"});
  EXPECT_TRUE(FileText(folder_ / "copy.qrv") == FileText(kSample));
  Run({"convert", kSample, "@/store.qrv", "--memory-minutes", "0"});
  EXPECT_TRUE(FileText(folder_ / "store.qrv") == FileText(kSample));
  Run({"convert", "@/ten.wav", "@/part.qrv", "--from", "2", "--to", "5"});
  Run({"convert", "@/part.qrv", "@/part.wav"});
  EXPECT_EQ(FileText(folder_ / "part.wav"), Wave({3, 4, 5}, 1000));
}

}  // namespace
}  // namespace cantorix::batch
