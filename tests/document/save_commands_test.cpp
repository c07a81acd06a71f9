// save_commands_test.cpp - what the save commands ask, write and leave behind in the document.
#include "document/save_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/document_io.h"
#include "document/label.h"
#include "platform/abandon.h"
#include "support/folder_sync_failure.h"
#include "support/joined.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::MatchesRegex;

// A modified document of 100 samples at "talk.one.qrv", with the samples [20, 60) selected and a
// label in and outside of them.
class SaveCommandsTest : public testing::Test {
 protected:
  SaveCommandsTest() {
    FillWithRamp(document_, 100.0);
    CChannel& channel = document_.channel();
    channel.tiers[2].inUse = true;
    channel.AddLabel(2, LabelAt(10.0, "out"));
    channel.AddLabel(2, LabelAt(30.0, "in"));
    channel.selectionStart = {20.0, 20.0};
    channel.selectionEnd = {60.0, 60.0};
    document_.SetPathName(path_);
    document_.loaded = document_.hasSelection = true;
    document_.SetModified(true);
    host_.host.rememberFile = [this](const std::string& path) { remembered_.push_back(path); };
  }

  Bytes Whole() { return Written(document_); }

  TestHost host_;
  CSonadexDoc document_{host_.host};
  std::string path_ = host_.folder / "talk.one.qrv";
  std::string chosen_ = host_.folder / "chosen";
  std::string impossible_ = host_.folder / "no folder/chosen";
  std::vector<std::string> remembered_;
};

struct CommandRow {
  bool (*command)(CSonadexDoc&);
  const char *title, *request;  // of its dialog
  const char* left;             // of foreign source, new recording, modified and selection
};

const CommandRow kCommands[] = {
    {SaveCopyAs, "Save a Copy As",
     ", Copy of talk_one_qrv.pmf, Cantorix files (*.qrv)|*.qrv| #1, must exist, ", "0 1 0 1"},
    {SaveSelectionAs, "Save Selection As",
     ", Selection of talk_one_qrv.qrv, Cantorix files (*.qrv)|*.qrv| #1, must exist, ", "1 1 1 1"},
    {ExportAsWave, "Save a Data Channel As",
     ", Export talk_one_qrv.wav, Wave files (*.wav)|*.wav| #1, must exist, ", "1 1 1 1"},
    {ExportSelectionAsWave, "Save Selection of a Data Channel As",
     ", Export talk_one_qrv.wav, Wave files (*.wav)|*.wav| #1, must exist, ", "1 1 1 1"},
    {SaveDocumentAs, "Save file As", ", Untitled.qrv, Cantorix files (*.qrv)|*.qrv| #1, ",
     "0 0 0 0"},
};

TEST_F(SaveCommandsTest, AskForANameAndWriteTheWholeOrTheSelection) {
  const Bytes expected[] = {Whole(), Written(document_, RangeOf(20.0, 60.0)), RampWave(0, 100),
                            RampWave(20, 40), Whole()};
  const auto flags = [this] {
    return Joined(document_.foreignSource, document_.newRecording, document_.isModified(),
                  document_.hasSelection);
  };
  for (const CommandRow& row : kCommands) {
    SCOPED_TRACE(row.title);
    document_.hasSelection = document_.foreignSource = document_.newRecording = true;
    document_.SetModified(true);
    host_.prompts.WillCancel();
    EXPECT_FALSE(row.command(document_));
    EXPECT_EQ(flags(), "1 1 1 1");
    EXPECT_EQ(TextOf(host_.prompts.fileRequests.back()),
              std::string(row.title) + row.request + "asks before overwriting, hides read-only");
    host_.prompts.WillChooseFile(chosen_);
    EXPECT_EQ(document_.pathName(), path_);
    EXPECT_TRUE(row.command(document_));
    EXPECT_EQ(ReadBytes(chosen_), expected[&row - kCommands]);
    EXPECT_EQ(flags(), row.left);
    const std::string asked = std::string("save: ") + row.title;
    EXPECT_THAT(host_.prompts.TakeTranscript(), ElementsAre(asked, asked));
  }
  EXPECT_EQ(document_.pathName(), chosen_);
  EXPECT_EQ(document_.title(), "chosen");
  EXPECT_THAT(remembered_, ElementsAre(chosen_));
}

TEST_F(SaveCommandsTest, NeverSavesARecordingOrAForeignFileUnderItsOwnName) {
  WriteBytes(path_, RampWave(0, 100));
  CSonadexDoc foreign(host_.host);
  ASSERT_TRUE(foreign.OnOpenDocument(path_));
  CSonadexDoc recorded(host_.host);
  recorded.SetPathName(path_);
  recorded.newRecording = true;
  CSonadexDoc pasted(host_.host);
  for (CSonadexDoc* const document : {&foreign, &recorded, &pasted}) {
    document->SetModified(true);
    host_.prompts.WillCancel();
    EXPECT_FALSE(SaveDocument(*document));
    EXPECT_THAT(host_.prompts.TakeTranscript(), ElementsAre("save: Save file As"));
  }
  // A copy saved in the native format does not make the file that was opened native.
  host_.prompts.WillChooseFile(chosen_);
  EXPECT_TRUE(SaveCopyAs(foreign));
  EXPECT_FALSE(foreign.foreignSource);
  host_.prompts.WillChooseFile(chosen_);
  EXPECT_TRUE(SaveDocument(foreign));
  EXPECT_THAT(host_.prompts.TakeTranscript(),
              ElementsAre("save: Save a Copy As", "save: Save file As"));
  // Its own file now.
  EXPECT_TRUE(SaveDocument(foreign));
  EXPECT_EQ(ReadBytes(path_), RampWave(0, 100));
}

TEST_F(SaveCommandsTest, AFailedSaveIsReportedAndACopyForgetsTheSelectionIsKept) {
  constexpr const char* kReport = "message: .*/chosen could not be saved. No such file .*\\.";
  constexpr const char* kError = "message: Error in save operation\\.";
  for (const CommandRow& row : kCommands) {
    SCOPED_TRACE(row.title);
    document_.hasSelection = true;
    host_.prompts.WillChooseFile(impossible_);
    if (row.command == SaveDocumentAs) {
      EXPECT_THROW(row.command(document_), Abandoned);
    } else {
      EXPECT_FALSE(row.command(document_));
    }
    const auto transcript = host_.prompts.TakeTranscript();
    if (row.command == ExportAsWave || row.command == ExportSelectionAsWave) {
      EXPECT_THAT(transcript, ElementsAre(testing::_, MatchesRegex(kReport)));
    } else {
      EXPECT_THAT(transcript, ElementsAre(testing::_, MatchesRegex(kReport), MatchesRegex(kError)));
    }
    EXPECT_TRUE(document_.isModified());
    EXPECT_EQ(document_.pathName(), path_);
    // Kept: a copy, too, forgets the selection.
    EXPECT_EQ(document_.hasSelection, row.command != SaveDocumentAs && row.command != SaveCopyAs);
  }
  EXPECT_EQ(remembered_.size(), 0U);
}

TEST_F(SaveCommandsTest, RefusesASelectionWithoutASample) {
  document_.channel().selectionEnd = document_.channel().selectionStart;
  const Bytes earlier(3, std::byte{7});
  WriteBytes(chosen_, earlier);
  for (const auto command : {SaveSelectionAs, ExportSelectionAsWave}) {
    host_.prompts.WillChooseFile(chosen_);
    EXPECT_FALSE(command(document_));
    EXPECT_THAT(
        host_.prompts.TakeTranscript(),
        ElementsAre(testing::_,
                    "message: " + chosen_ + " could not be saved. There is no sample to write.",
                    "message: Error in save operation."));
    EXPECT_EQ(ReadBytes(chosen_), earlier);
  }
}

TEST_F(SaveCommandsTest, SavesUnderItsOwnNameAndSaysWhenItIsPerhapsNotOnDisk) {
  EXPECT_TRUE(SaveDocument(document_));
  EXPECT_EQ(ReadBytes(path_), Whole());
  EXPECT_FALSE(document_.isModified() || document_.hasSelection);
  EXPECT_EQ(Joined(host_.progress.waits, host_.progress.waiting), "1 0") << "it takes its time";
  document_.SetModified(true);
  const FolderSyncFailure failure;
  EXPECT_TRUE(SaveDocument(document_));
  EXPECT_THAT(host_.prompts.TakeTranscript(),
              ElementsAre("message: " + path_ +
                          " is saved, but perhaps not yet on disk: its "
                          "folder could not be synced."));
  EXPECT_FALSE(document_.isModified());
  EXPECT_THAT(remembered_, ElementsAre());
  host_.prompts.WillChooseFile(chosen_);
  EXPECT_TRUE(ExportAsWave(document_));
  EXPECT_EQ(host_.prompts.TakeTranscript().size(), 2U);
}

TEST_F(SaveCommandsTest, AsksBeforeAModifiedDocumentCloses) {
  constexpr const char* kQuestion =
      "ask yes/no/cancel: Save Changes to ' talk.one.qrv ' before closing ?";
  host_.prompts.WillAnswer(Answer::kCancel);
  EXPECT_EQ(AskToClose(document_), CloseAnswer::kStays);
  EXPECT_TRUE(document_.isModified());
  host_.prompts.WillAnswer(Answer::kYes);
  EXPECT_EQ(AskToClose(document_), CloseAnswer::kCloses);
  EXPECT_EQ(ReadBytes(path_), Whole());
  document_.SetModified(true);
  host_.prompts.WillAnswer(Answer::kNo);
  EXPECT_EQ(AskToClose(document_), CloseAnswer::kGivesUp);
  EXPECT_TRUE(document_.isModified()) << "until it closes";
  EXPECT_THAT(host_.prompts.TakeTranscript(), ElementsAre(kQuestion, kQuestion, kQuestion));
  document_.SetPathName(impossible_);
  host_.prompts.WillAnswer(Answer::kYes);
  EXPECT_EQ(AskToClose(document_), CloseAnswer::kStays) << "after a save that failed";
  EXPECT_THAT(host_.prompts.TakeTranscript().at(1), MatchesRegex(".* could not be saved\\. .*"));
  EXPECT_TRUE(document_.isModified());
  document_.SetModified(false);
  EXPECT_EQ(AskToClose(document_), CloseAnswer::kCloses) << "without a question";
}

TEST_F(SaveCommandsTest, ClosesAfterACancelledSaveAsIsKept) {
  document_.foreignSource = true;
  host_.prompts.WillAnswer(Answer::kYes);
  host_.prompts.WillCancel();
  EXPECT_EQ(AskToClose(document_), CloseAnswer::kCloses);
  host_.prompts.TakeTranscript();
}

}  // namespace
}  // namespace cantorix
