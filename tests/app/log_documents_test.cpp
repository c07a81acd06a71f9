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

TEST_F(LogDocumentsTest, RowsGoToTheOpenLogOnly) {
  EXPECT_EQ(OpenLogSink(app), nullptr);
  EXPECT_FALSE(SaveOpenLog(app));
  EXPECT_FALSE(SaveOpenLogAs(app));
  EXPECT_TRUE(CloseLog(app));
  Enter();
  EXPECT_EQ(app.log->rows().size(), 1U);
}

TEST_F(LogDocumentsTest, ModifiedLogIsNotDroppedUnasked) {
  const struct {
    const char* name;
    Answer answer;
    bool savesFile;
    bool closes;
  } cases[] = {
      {"yes", Answer::kYes, true, true},
      {"yes, but no file", Answer::kYes, false, false},
      {"no", Answer::kNo, false, true},
      {"cancel", Answer::kCancel, false, false},
  };
  bool (*const commands[])(Application&) = {NewLog, CloseLog, OpenLogFile};
  for (const auto& command : commands) {
    for (const auto& c : cases) {
      SCOPED_TRACE(c.name);
      app.log.reset();
      std::filesystem::remove(path);
      Store(folder / "other.txt", "A\tB\t\r\n");
      Enter();
      prompts.WillAnswer(c.answer);
      if (c.savesFile) prompts.WillChooseFile(path);
      if (c.answer == Answer::kYes && !c.savesFile) prompts.WillCancel();
      if (c.closes && command == OpenLogFile) prompts.WillChooseFile(folder / "other.txt");
      EXPECT_EQ(command(app), c.closes);
      EXPECT_EQ(prompts.TakeTranscript().front(), kQuestion);
      EXPECT_EQ(app.log && app.log->rows().size() == 1, !c.closes);
      EXPECT_EQ(c.savesFile ? RowsIn(path) : 0U, c.savesFile ? 1U : 0U);
    }
  }
}

TEST_F(LogDocumentsTest, SavedLogClosesWithoutAQuestion) {
  Enter();
  prompts.WillChooseFile(path);
  ASSERT_TRUE(SaveOpenLog(app));
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("save: Save Log"));
  EXPECT_FALSE(prompts.fileRequests[0].fileMustExist);
  EXPECT_TRUE(prompts.fileRequests[0].overwritePrompt);
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
  const FileRequest& request = prompts.fileRequests.front();
  EXPECT_EQ(request.filter, "text files (*.txt)|*.txt||");
  EXPECT_TRUE(request.overwritePrompt && request.hideReadOnly && request.fileMustExist);
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
  EXPECT_TRUE(prompts.fileRequests.front().fileMustExist);
  EXPECT_EQ(app.log->rows().size(), 1U);
  EXPECT_TRUE(app.log->isModified());
}

}  // namespace
}  // namespace cantorix
