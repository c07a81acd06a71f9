// log_documents_test.cpp - New, Open, Save, Save As and closing of the log, with the user's
// answers.
#include "app/log_documents.h"

#include <filesystem>
#include <span>

#include "app/log_file.h"
#include "app_fixture.h"

namespace cantorix {
namespace {

using testing::ElementsAre;

constexpr const char* kQuestion =
    "ask yes/no/cancel: Save Changes to ' Untitled Log ' before closing ?";

class LogDocumentsTest : public AppTest {
 protected:
  void Store(const std::string& file, const std::string& text) {
    WriteBytes(file, std::as_bytes(std::span(text)));
  }
  // A new log with one row.
  void Enter() {
    ASSERT_TRUE(NewLog(app));
    OpenLogSink(app)->Append({"a.wav", "Pitch", {"1.0"}});
  }
  std::size_t RowsIn(const std::string& file) {
    LogTable stored;
    EXPECT_TRUE(OpenLog(stored, file, prompts));
    return stored.rows().size();
  }

  std::string path = folder / "log.txt";
};

TEST_F(LogDocumentsTest, WithoutALogNothingIsSavedOrAsked) {
  EXPECT_EQ(OpenLogSink(app), nullptr);
  EXPECT_FALSE(SaveOpenLog(app));
  EXPECT_FALSE(SaveOpenLogAs(app));
  EXPECT_TRUE(CloseLog(app));
}

TEST_F(LogDocumentsTest, ModifiedLogIsNotDroppedUnasked) {
  struct Row {
    Answer answer;
    bool savesFile, closes;
  };
  for (const auto& command : {NewLog, CloseLog, OpenLogFile}) {
    for (const Row& row : {Row{Answer::kYes, true, true}, Row{Answer::kYes, false, false},
                           Row{Answer::kNo, false, true}, Row{Answer::kCancel, false, false}}) {
      app.log.reset();
      std::filesystem::remove(path);
      Store(folder / "other.txt", "A\tB\t\r\n");
      Enter();
      prompts.WillAnswer(row.answer);
      if (row.savesFile) prompts.WillChooseFile(path);
      if (row.answer == Answer::kYes && !row.savesFile) prompts.WillCancel();
      if (row.closes && command == OpenLogFile) prompts.WillChooseFile(folder / "other.txt");
      EXPECT_EQ(command(app), row.closes);
      EXPECT_EQ(prompts.TakeTranscript().front(), kQuestion);
      EXPECT_EQ(app.log && app.log->rows().size() == 1, !row.closes);
      EXPECT_EQ(row.savesFile ? RowsIn(path) : 0U, row.savesFile ? 1U : 0U);
    }
  }
}

TEST_F(LogDocumentsTest, SavedLogClosesWithoutAQuestion) {
  Enter();
  prompts.WillChooseFile(path);
  ASSERT_TRUE(SaveOpenLog(app));
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("save: Save Log"));
  EXPECT_EQ(TextOf(prompts.fileRequests[0]),
            "Save Log, Untitled Log.txt, text files (*.txt)|*.txt|| #1, asks before overwriting, "
            "hides read-only");
  OpenLogSink(app)->Append({"b.wav", "Pitch", {"2.0"}});
  EXPECT_TRUE(SaveOpenLog(app));  // into its own file
  EXPECT_EQ(RowsIn(path), 2U);
  EXPECT_TRUE(CloseLog(app));
  EXPECT_FALSE(app.log);
}

// The dialog offers existing files only; the first Save of a new log is what makes a file.
TEST_F(LogDocumentsTest, SaveAsTakesOnlyAFileThatExistsIsKept) {
  Enter();
  const std::string fresh = folder / "new.txt";
  Store(path, "old");
  prompts.WillChooseFile(fresh);
  prompts.WillChooseFile(path);
  EXPECT_TRUE(SaveOpenLogAs(app));
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("save: Save As Text",
                          "message: ' " + fresh + " ' does not exist. Choose a file that exists.",
                          "save: Save As Text"));
  EXPECT_EQ(TextOf(prompts.fileRequests[0]),
            "Save As Text, ., text files (*.txt)|*.txt|| #1, must exist, asks before overwriting, "
            "hides read-only");
  EXPECT_FALSE(std::filesystem::exists(fresh));
  EXPECT_EQ(app.log->title(), "log.txt");
  EXPECT_EQ(RowsIn(path), 1U);

  prompts.WillCancel();
  EXPECT_FALSE(SaveOpenLogAs(app));
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("save: Save As Text"));
}

TEST_F(LogDocumentsTest, RefusedFileLeavesTheOpenLog) {
  Enter();
  Store(path, "no tabs");
  prompts.WillAnswer(Answer::kNo);
  prompts.WillChooseFile(path);
  EXPECT_FALSE(OpenLogFile(app));
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre(kQuestion, "open: Open a log file",
                                                    "message: This is not a valid log file."));
  EXPECT_EQ(TextOf(prompts.fileRequests[0]),
            "Open a log file, ., text files (*.txt)|*.txt|| #1, must exist, hides read-only");
  EXPECT_EQ(app.log->rows().size(), 1U);
  EXPECT_TRUE(app.log->isModified());
}

}  // namespace
}  // namespace cantorix
