// log_documents_test.cpp - New, Open, Save, Save As and closing of the log, with the user's
// answers.
#include "app/log_documents.h"

#include <filesystem>
#include <span>

#include "app/log_file.h"
#include "app_fixture.h"
#include "platform/file.h"

namespace cantorix {
namespace {

using testing::ElementsAre;

const std::string kLogFilter = "text files (*.txt)|*.txt|| #1, ";

class LogDocumentsTest : public AppTest {
 protected:
  // A new log with one row.
  void Enter() {
    ASSERT_TRUE(NewLog(app));
    OpenLogSink(app)->Append({"a.wav", "Pitch", {"1.0"}});
  }
  void Store(const std::string& file, const std::string& text) {
    WriteBytes(file, std::as_bytes(std::span(text)));
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
  EXPECT_FALSE(SaveOpenLog(app) || SaveOpenLogAs(app));
  EXPECT_TRUE(CloseLog(app));
}

TEST_F(LogDocumentsTest, AnExportIsAnotherFile) {
  EXPECT_FALSE(ExportOpenLogAsCsv(app));
  Enter();
  prompts.WillCancel();
  EXPECT_FALSE(ExportOpenLogAsCsv(app));
  prompts.WillChooseFile(folder / "log.csv");
  EXPECT_TRUE(ExportOpenLogAsCsv(app));
  EXPECT_EQ(ReadWholeFile(folder / "log.csv"), "Source,Entry Type,Entry 1\r\na.wav,Pitch,1.0\r\n");
  EXPECT_TRUE(app.log->isModified() && app.log->path().empty());
  prompts.WillChooseFile("/nowhere/log.csv");
  EXPECT_FALSE(ExportOpenLogAsCsv(app));
  EXPECT_EQ(prompts.TakeTranscript().back(), "message: Error in opening the file.");
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
      EXPECT_EQ(prompts.TakeTranscript().front(),
                "ask yes/no/cancel: Save Changes to ' Untitled Log ' before closing ?");
      EXPECT_EQ(app.log && app.log->rows().size() == 1, !row.closes);
      EXPECT_EQ(row.savesFile ? RowsIn(path) : 0U, row.savesFile ? 1U : 0U);
    }
  }
}

// The first Save of a new log makes a file; Save As offers existing ones only.
TEST_F(LogDocumentsTest, SaveAsTakesOnlyAFileThatExistsIsKept) {
  Enter();
  prompts.WillChooseFile(path);
  ASSERT_TRUE(SaveOpenLog(app));
  OpenLogSink(app)->Append({"b.wav", "Pitch", {"2.0"}});
  EXPECT_TRUE(SaveOpenLog(app));  // into its own file
  EXPECT_EQ(RowsIn(path), 2U);
  const std::string fresh = folder / "new.txt";
  Store(folder / "old.txt", "old");
  prompts.WillChooseFile(fresh);
  prompts.WillChooseFile(folder / "old.txt");
  EXPECT_TRUE(SaveOpenLogAs(app));
  EXPECT_FALSE(std::filesystem::exists(fresh));
  EXPECT_EQ(app.log->title(), "old.txt");
  EXPECT_EQ(RowsIn(folder / "old.txt"), 2U);
  prompts.WillCancel();
  EXPECT_FALSE(SaveOpenLogAs(app));
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("save: Save Log", "save: Save As Text",
                          "message: ' " + fresh + " ' does not exist. Choose a file that exists.",
                          "save: Save As Text", "save: Save As Text"));
  EXPECT_EQ(TextOf(prompts.fileRequests[0]), "Save Log, Untitled Log.txt, " + kLogFilter +
                                                 "asks before overwriting, hides read-only");
  EXPECT_EQ(
      TextOf(prompts.fileRequests[1]),
      "Save As Text, ., " + kLogFilter + "must exist, asks before overwriting, hides read-only");
  EXPECT_TRUE(CloseLog(app)) << "without a question";
  EXPECT_FALSE(app.log);
}

TEST_F(LogDocumentsTest, RefusedFileLeavesTheOpenLog) {
  Enter();
  Store(path, "no tabs");
  prompts.WillAnswer(Answer::kNo);
  prompts.WillChooseFile(path);
  EXPECT_FALSE(OpenLogFile(app));
  EXPECT_EQ(prompts.TakeTranscript().back(), "message: This is not a valid log file.");
  EXPECT_EQ(TextOf(prompts.fileRequests[0]),
            "Open a log file, ., " + kLogFilter + "must exist, hides read-only");
  prompts.WillAnswer(Answer::kNo);
  prompts.WillCancel();
  EXPECT_FALSE(OpenLogFile(app));
  EXPECT_EQ(prompts.TakeTranscript().back(), "open: Open a log file");
  EXPECT_TRUE(app.log->rows().size() == 1 && app.log->isModified());
}

}  // namespace
}  // namespace cantorix
