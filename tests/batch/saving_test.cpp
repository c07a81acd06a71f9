// saving_test.cpp - the verbs that write recordings. "ten.wav" holds the samples 1 to 10 at 1 kHz,
// so that a sample is a millisecond and every result can be told beforehand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "batch/command.h"
#include "labelfile/label_formats.h"
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
      {{"select:1:2", "cut", "select:4:6", "cut", "select:3:5", "cut"}, {1, 3, 4, 9, 10}},
      {{"select:3:6", "cut", "select:2:4", "copy", "cut", "cursor:0", "paste"},
       {3, 7, 1, 2, 8, 9, 10}},
      {{"select:3:6", "cut", "select:2:5", "clear"}, {1, 2, 0, 0, 0, 9, 10}},
      {{"select:3:6", "cut", "gain:100:0"}, {2, 4, 6, 14, 16, 18, 20}},
      {{"select:3:6", "cut", "smooth"}, {1, 2, 4, 6, 8, 9, 10}},
      {{"select:3:6", "cut", "select:0:2", "cut", "undo"}, {1, 2, 3, 7, 8, 9, 10}},
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

// And a tier comes into use where its name or a free slot is; what cannot be done is said.
TEST_F(SavingTest, LabelsGoWithTheSamplesAndWhatCannotBeDoneWritesNothing) {
  // Long enough for a pitch track; as still as can be, but not silent: 20 log 50 dB.
  PutFile(folder_ / "hum.wav", Wave(std::vector<int>(1300, 50), 10000));
  PutFile(folder_ / "labels.txt", "no label\r\n0.025\tthree\tfour\r\n0.118\tfive\n");
  PutFile(folder_ / "ms.txt", "7\tsix\n");
  PutFile(folder_ / "none.txt", "nothing here\n");
  ExpectTranscript("editing.txt", folder_.path());
  EXPECT_FALSE(std::filesystem::exists(folder_ / "none.qrv"));
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

TEST_F(SavingTest, WritesAnUndoFileOnlyForAStepThatUndoes) {
  // A native file of 5000 samples is larger than what may be written, a WAV of them is not.
  std::vector<int> samples(5000, 3);
  PutFile(folder_ / "ten.wav", Wave(samples, 1000));
  PutFile(folder_ / "labels.txt", "0.5\tone\n");
  const CommandHost host{.largestFile = 10100};
  const std::string out = folder_ / "out.wav";
  const Words edit{"edit", folder_ / "ten.wav", "-o", out, "gain:100:0"};
  const CommandResult undone = RunBatch(edit + Words{"undo"}, host);
  EXPECT_EQ(undone.exitCode, 1);
  EXPECT_THAT(undone.err, testing::StartsWith(Filled(kNoUndo, folder_.path())));
  EXPECT_FALSE(std::filesystem::exists(out));
  const CommandResult edited = RunBatch(edit, host);
  EXPECT_EQ(edited.exitCode, 0);
  EXPECT_EQ(edited.err, "");
  std::fill(samples.begin(), samples.end(), 6);
  EXPECT_TRUE(FileText(out) == Wave(samples, 1000));
  const CommandResult imported =
      RunBatch({"import-labels", folder_ / "ten.wav", folder_ / "labels.txt", "--tier", "words",
                "--unit", "s", "-o", folder_ / "imported.wav"},
               host);
  EXPECT_EQ(imported.exitCode, 0);
  EXPECT_EQ(imported.err, "");
  EXPECT_TRUE(FileText(folder_ / "imported.wav") == FileText(folder_ / "ten.wav"));
}

// Out of a recording into every format, and from there into one that has none.
TEST_F(SavingTest, LabelFilesTakeTheLabelsFromOneRecordingToAnother) {
  Edited({"label:words:1:one", "label:words:7:two"}, "@/ten.wav", "@/two.qrv");
  for (const LabelFormat& format : LabelFormats()) {
    const std::string file = "@/" + std::string(format.key) + "." + std::string(format.ending);
    Run({"labels", "@/two.qrv", "--format", std::string(format.key), "-o", file});
    const Words tier = format.holds.tiers ? Words{} : Words{"--tier", "words"};
    Run(Words{"import-labels", "@/ten.wav", file, "--format", std::string(format.key), "--format",
              "qrv", "-o", "@/back.qrv"} +
        tier);
    EXPECT_TRUE(FileText(folder_ / "back.qrv") == FileText(folder_ / "two.qrv")) << format.key;
  }
  Run({"convert", "@/ten.wav", "@/joined.qrv", "--labels", "@/textgrid.TextGrid"});
  EXPECT_TRUE(FileText(folder_ / "joined.qrv") == FileText(folder_ / "two.qrv"));
  PutFile(folder_ / "late.txt", "0.001\t0.002\ta\n0.5\t0.6\tb\n");
  PutFile(folder_ / "plain.txt", "0.001\ta\n");
  ExpectTranscript("label-files.txt", folder_.path());
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
