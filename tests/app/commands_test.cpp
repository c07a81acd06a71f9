// commands_test.cpp - recent files, the File Open request and Help Topics.
#include <algorithm>
#include <filesystem>

#include "app/file_open.h"
#include "app/manual.h"
#include "app_fixture.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using CommandsTest = AppTest;

TEST_F(CommandsTest, RecentFilesAreTheLastFiveOnceEach) {
  for (const char* path : {"/a", "/b", "/c", "/d", "/e", "/f", "/c", "/x/../c", "/./f"}) {
    app.recentFiles.Add(path);
  }
  EXPECT_THAT(app.recentFiles.paths(), ElementsAre("/f", "/c", "/e", "/d", "/b"));
  app.recentFiles.Remove("/e");

  RecentFiles nextRun(profile);
  nextRun.Load();
  EXPECT_THAT(nextRun.paths(), ElementsAre("/f", "/c", "/d", "/b"));
}

TEST_F(CommandsTest, RecentFilesAreFoundFromAnyFolder) {
  app.recentFiles.Add("speech.qrv");
  EXPECT_THAT(app.recentFiles.paths(),
              ElementsAre((std::filesystem::current_path() / "speech.qrv").string()));
}

TEST_F(CommandsTest, RecentFilesBeginWithTheOneSavedLast) {
  app.recentFiles.Add("/opened");
  app.host.rememberFile("/saved");
  EXPECT_THAT(app.recentFiles.paths(), ElementsAre("/saved", "/opened"));
}

TEST_F(CommandsTest, FileOpenOffersTheTypeChosenLast) {
  prompts.WillChooseFile("/speech.wav", 4);
  prompts.WillCancel();
  prompts.WillCancel();
  EXPECT_EQ(ChooseRecording(app), "/speech.wav");
  EXPECT_EQ(ChooseRecording(app), std::nullopt);
  EXPECT_EQ(ChooseRecording(app), std::nullopt);
  prompts.TakeTranscript();
  EXPECT_EQ(prompts.fileRequests[0].filterIndex, 1);
  EXPECT_EQ(prompts.fileRequests[1].filterIndex, 4);
  EXPECT_EQ(prompts.fileRequests[2].filterIndex, 4);
  EXPECT_TRUE(prompts.fileRequests[0].fileMustExist && prompts.fileRequests[0].hideReadOnly);
  const std::string filter = prompts.fileRequests[0].filter;
  EXPECT_EQ(std::count(filter.begin(), filter.end(), '|'), 2 * 13);
}

class ManualTest : public AppTest {
 protected:
  void MakeManual() {
    std::filesystem::create_directory(folder / "Manual");
    WriteBytes(folder / "Manual/HelpIndex.html", {});
  }
  FakeOpener opener;
};

TEST_F(ManualTest, IsTriedTwice) {
  MakeManual();
  const std::string path = folder / "Manual/HelpIndex.html";
  opener.succeedsFrom = 2;
  OpenManual(folder.path(), opener, prompts);
  EXPECT_THAT(opener.opened, ElementsAre(path, path));
  OpenManual(folder.path(), opener, prompts);
  EXPECT_THAT(opener.opened, ElementsAre(path, path, path));

  opener.succeedsFrom = 100;
  OpenManual(folder.path(), opener, prompts);
  EXPECT_EQ(opener.opened.size(), 5U);
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("message: No help file was found. Please contact the vendor."));
}

TEST_F(ManualTest, IsLookedForInTheCurrentDirectoryAndNotOpenedWhenMissing) {
  MakeManual();
  const TemporaryFolder current;
  app.host.programDirectory = folder.path();
  OpenManual(current.path(), opener, prompts);
  EXPECT_THAT(opener.opened, IsEmpty());
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("message: No help file was found. Please contact the vendor."));
}

}  // namespace
}  // namespace cantorix
