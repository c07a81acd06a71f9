// saving_test.cpp - the verbs that write recordings: editing step by step, labels from text files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "batch/command.h"
#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using Words = std::vector<std::string>;

const std::string kSample = SamplesDirectory() + "/vowels.qrv";

class SavingTest : public testing::Test {
 protected:
  void Run(const Words& words) {
    const CommandResult result = RunBatch(words);
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(words) << result.err;
  }
  // What `edit` makes of `input`.
  std::string Edited(const std::string& input, Words steps) {
    Words words{"edit", input, "-o", out_};
    words.insert(words.end(), steps.begin(), steps.end());
    Run(words);
    return FileText(out_);
  }
  // The same samples without tiers.
  std::string Bare() {
    Run({"convert", kSample, bare_});
    return bare_;
  }

  TemporaryFolder folder_;
  std::string out_ = folder_ / "out.qrv";
  std::string bare_ = folder_ / "bare.wav";
};

TEST_F(SavingTest, UndoGivesBackTheRecordingByteForByte) {
  Run({"convert", kSample, out_});
  const std::string saved = FileText(out_);
  EXPECT_FALSE(Edited(kSample, {"select:500:800", "cut"}) == saved);
  for (const Words& steps :
       {Words{"select:500:800", "cut", "undo"}, Words{"gain:50:7", "undo"},
        Words{"select:100:900", "copy", "cursor:50", "paste", "undo"}, Words{"smooth", "undo"},
        Words{"select:0:90", "clear", "undo"}, Words{"label:tones:10:x", "undo"}}) {
    EXPECT_TRUE(Edited(kSample, steps) == saved) << testing::PrintToString(steps);
  }
}

TEST_F(SavingTest, UndoPutsTiersBackIntoTheirSlots) {
  const Words labels{"label:tones:600:x", "label:misc:700:y"};
  const std::string labelled = Edited(Bare(), labels);
  Words steps = labels;
  steps.insert(steps.end(), {"select:500:800", "cut", "undo"});
  EXPECT_TRUE(Edited(bare_, steps) == labelled);
  // A label of the second tier goes to the slot that it came from.
  steps.push_back("label:misc:900:z");
  EXPECT_TRUE(Edited(bare_, steps) == Edited(bare_, {labels[0], labels[1], "label:misc:900:z"}));
}

TEST_F(SavingTest, CutAndPasteBackKeepsTheSamples) {
  const std::string wave = folder_ / "back.wav";
  Run({"edit", Bare(), "-o", wave, "cursor:0", "select:0:1000", "cut", "cursor:0", "paste"});
  // 1000 ms at 11025 Hz end a rounding error before a whole sample, which is the last one's loss.
  const std::string before = FileText(bare_);
  const std::string after = FileText(wave);
  ASSERT_EQ(after.size(), before.size());
  EXPECT_TRUE(after.substr(0, after.size() - 2) == before.substr(0, before.size() - 2));
}

TEST_F(SavingTest, RefusesStepsThatCannotBeDone) {
  const std::pair<Words, const char*> rows[] = {
      {{"cut"}, "step \"cut\": needs selection\n"},
      {{"paste"}, "step \"paste\": needs clipboard\n"},
      {{"undo"}, "step \"undo\": needs undo\n"},
      {{"select:0:99999"}, "step \"select:0:99999\": the recording ends at 5410.1 ms\n"},
      {{"cursor:-1"}, "step \"cursor:-1\": the recording ends at 5410.1 ms\n"},
      {{"select:0:5410.1", "cut"}, "step \"cut\": could not be done\n"},
  };
  for (const auto& [steps, reason] : rows) {
    Words words{"edit", kSample, "-o", out_};
    words.insert(words.end(), steps.begin(), steps.end());
    const CommandResult result = RunBatch(words);
    EXPECT_EQ(result.exitCode, 1) << reason;
    EXPECT_THAT(result.err, EndsWith(reason));
    EXPECT_FALSE(std::filesystem::exists(out_)) << reason;
  }
}

TEST_F(SavingTest, RefusesWrongUsage) {
  const Words rows[] = {
      {"edit", kSample, "-o", out_},
      {"edit", kSample, "cut"},
      {"edit", kSample, "-o", out_, "jump"},
      {"edit", kSample, "-o", out_, "cut:1"},
      {"edit", kSample, "-o", out_, "select:1"},
      {"edit", kSample, "-o", out_, "select:1:2:3"},
      {"edit", kSample, "-o", out_, "gain:loud:0"},
      {"edit", kSample, "-o", out_, "label:tones:inf:x"},
      {"import-labels", kSample, "t.txt", "--tier", "words", "-o", out_},
      {"import-labels", kSample, "t.txt", "--tier", "words", "--unit", "h", "-o", out_},
      {"pitch", kSample, "--log", "--exact"},
  };
  for (const Words& row : rows) {
    const CommandResult result = RunBatch(row);
    EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(row);
    EXPECT_THAT(result.err, StartsWith("cantorix-batch: "));
  }
}

class ImportTest : public SavingTest {
 protected:
  std::string Text(const std::string& text) {
    std::ofstream(text_, std::ios::binary) << text;
    return text_;
  }

  std::string text_ = folder_ / "labels.txt";
};

TEST_F(ImportTest, AddsLabelsToATierThatComesIntoUse) {
  Run({"import-labels", Bare(), Text("0.5\tone\r\nno label\r\n1.25\ttwo\twords\r\n"), "--tier",
       "words", "--unit", "s", "--justify", "right", "--line", "-o", out_});
  const CommandResult result = RunBatch({"info", "--json", out_});
  EXPECT_THAT(result.out, HasSubstr("\"slot\": 0, \"name\": \"words\""));
  EXPECT_THAT(result.out, HasSubstr("{\"text\": \"one\", \"timeMs\": 500, "));
  EXPECT_THAT(result.out, HasSubstr("{\"text\": \"two\\u0009words\", \"timeMs\": 1250,"));
  EXPECT_THAT(result.out, HasSubstr("\"alignment\": 2, \"flag\": 1,"));
  // Into the tier that is there now, at its end, in milliseconds.
  const std::string again = folder_ / "again.qrv";
  Run({"import-labels", out_, Text("7\tthree\n"), "--tier", "words", "--unit", "ms", "-o", again});
  EXPECT_THAT(RunBatch({"labels", again}).out,
              testing::MatchesRegex("[^\n]*\nwords\tone\t500.0\t[^\n]*\nwords\ttwo words\t1250.0\t"
                                    "[^\n]*\nwords\tthree\t7.0\t[^\n]*\n"));
}

TEST_F(ImportTest, SaysWhatItCannotUse) {
  const std::string missing = folder_ / "missing.txt";
  const std::pair<std::string, std::string> rows[] = {
      {missing, missing + " could not be opened. No such file or directory.\n"},
      {Text("nothing here\n"), text_ + " holds no labels.\n"},
  };
  for (const auto& [path, reason] : rows) {
    const CommandResult result =
        RunBatch({"import-labels", kSample, path, "--tier", "words", "--unit", "s", "-o", out_});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err,
                testing::AllOf(StartsWith("cantorix-batch: " + kSample), EndsWith(": " + reason)));
    EXPECT_FALSE(std::filesystem::exists(out_));
  }
}

TEST(BatchCommands, PageIsTheOneThatIsShipped) {
  const CommandResult result = RunBatch({"commands", "--html"});
  EXPECT_EQ(result.out, FileText(SamplesDirectory() + "/../docs/manual/commands.html"))
      << "run cantorix-batch commands --html -o docs/manual/commands.html";
}

}  // namespace
}  // namespace cantorix::batch
