// commands_test.cpp - recent files, the File Open request and Help Topics.
#include <algorithm>
#include <filesystem>

#include "app/file_open.h"
#include "app/manual.h"
#include "app_fixture.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

using CommandsTest = AppTest;

TEST_F(CommandsTest, RecentFilesAreTheLastFiveOnceEachFromAnyFolder) {
  for (const char* path : {"/a", "/b", "/c", "/d", "/e", "/f", "/c", "/x/../c", "/./f"}) {
    app.recentFiles.Add(path);
  }
  EXPECT_THAT(app.recentFiles.paths(), ElementsAre("/f", "/c", "/e", "/d", "/b"));
  app.recentFiles.Remove("/e");
  app.host.rememberFile("speech.qrv");  // saved
  const std::string saved = (std::filesystem::current_path() / "speech.qrv").string();

  RecentFiles nextRun(profile);
  nextRun.Load();
  EXPECT_THAT(nextRun.paths(), ElementsAre(saved, "/f", "/c", "/d", "/b"));
}

TEST_F(CommandsTest, FileOpenOffersTheTypeChosenLast) {
  prompts.WillChooseFile("/speech.wav", 4);
  prompts.WillCancel();
  prompts.WillCancel();
  EXPECT_EQ(ChooseRecording(app), "/speech.wav");
  EXPECT_EQ(ChooseRecording(app), std::nullopt);
  EXPECT_EQ(ChooseRecording(app), std::nullopt);
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("open: Open", "open: Open", "open: Open"));
  for (const int request : {0, 1, 2}) {
    EXPECT_EQ(prompts.fileRequests[static_cast<std::size_t>(request)].filterIndex,
              request == 0 ? 1 : 4);
  }
  EXPECT_TRUE(prompts.fileRequests[0].fileMustExist && prompts.fileRequests[0].hideReadOnly);
  const std::string filter = prompts.fileRequests[0].filter;
  EXPECT_EQ(std::count(filter.begin(), filter.end(), '|'), 2 * 13);
}

TEST_F(CommandsTest, TheManualIsTriedTwiceThenThatOfTheInstalledProgram) {
  std::filesystem::create_directory(folder / "Manual");
  const std::string path = folder / "Manual/HelpIndex.html";
  WriteBytes(path, {});
  const TemporaryFolder elsewhere;  // without a manual
  struct Row {
    std::string current, installed;
    int succeedsFrom;
    std::size_t tries;
    bool found;
  };
  const std::string& here = folder.path();
  const std::string& none = elsewhere.path();
  for (const Row& row :
       {Row{here, "", 1, 1, true}, Row{here, "", 2, 2, true}, Row{here, "", 99, 2, false},
        Row{here, here, 3, 3, true}, Row{none, here, 1, 1, true}, Row{none, none, 1, 0, false},
        Row{none, "", 1, 0, false}}) {
    FakeOpener opener;
    opener.succeedsFrom = row.succeedsFrom;
    OpenManual(row.current, opener, prompts, row.installed);
    EXPECT_EQ(opener.opened, std::vector<std::string>(row.tries, path)) << row.current;
    EXPECT_THAT(
        prompts.TakeTranscript(),
        ElementsAreArray(std::vector<std::string>(
            row.found ? 0 : 1, "message: No help file was found. Please contact the vendor.")));
  }
}

}  // namespace
}  // namespace cantorix
