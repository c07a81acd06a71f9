// commands_test.cpp - recent files, the File Open request and Help Topics.
#include <filesystem>

#include "app/file_open.h"
#include "app/manual.h"
#include "app_fixture.h"

namespace cantorix {
namespace {

using testing::ElementsAre;

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
  EXPECT_EQ((profile.texts[{"Recent Files", "File5"}]), "/b");
}

TEST_F(CommandsTest, FileOpenOffersTheTypeChosenLast) {
  prompts.WillChooseFile("/speech.wav", 4);
  EXPECT_EQ(ChooseRecording(app), "/speech.wav");
  for (int i = 0; i < 2; ++i) {
    prompts.WillCancel();
    EXPECT_EQ(ChooseRecording(app), std::nullopt);
  }
  EXPECT_EQ(prompts.TakeTranscript().size(), 3U);
  const std::string filter =
      "Cantorix(PC) files (*.qrv)|*.qrv|Cantorix(Mac) files (*.qrv; *.*)|*.qrv; *.*|"
      "Datalyn files (*.pmf)|*.pmf|Wave files (*.wav)|*.wav|CSL files (*.NSP)|*.NSP|"
      "NIST(LDC) files (*.wav; *.sph; *.sp1; *.sp2)|*.wav; *.sph; *.sp1; *.sp2|"
      "NIST(LDC) files (*.*)|*.*|XWAVE files (*.d)|*.d|ESPS(xwave) files (*.*)|*.*|"
      "SUN au files (*.au)|*.au|AIFF files (*.aiff; *.*)|*.aiff; *.*|ASCII files (*.*)|*.*|"
      "Generic files (*.*)|*.*|FLAC files (*.flac)|*.flac|"
      "Ogg files (*.ogg; *.oga; *.opus)|*.ogg; *.oga; *.opus|MP3 files (*.mp3; *.mp2)|*.mp3; *.mp2|"
      "CAF files (*.caf)|*.caf|W64 and RF64 files (*.w64; *.rf64; *.wav)|*.w64; *.rf64; *.wav|"
      "AVR files (*.avr)|*.avr|All recordings|*.qrv; *.pmf; *.wav; *.nsp; *.sph; *.sp1; *.sp2; "
      "*.nist; *.d; *.sd; *.au; *.snd; *.aif; *.aiff; *.aifc; *.flac; *.ogg; *.oga; *.opus; *.mp3; "
      "*.mp2; *.caf; *.w64; *.rf64; *.avr|";
  for (const std::size_t request : {0U, 1U, 2U}) {
    EXPECT_EQ(
        TextOf(prompts.fileRequests.at(request)),
        "Open, ., " + filter + (request == 0 ? " #1" : " #4") + ", must exist, hides read-only");
  }
}

TEST_F(CommandsTest, TheManualIsTriedTwiceThenThatOfTheInstalledProgram) {
  std::filesystem::create_directory(folder / "Manual");
  const std::string path = folder / "Manual/HelpIndex.html";
  WriteBytes(path, {});
  const TemporaryFolder elsewhere;  // without a manual
  const std::string& here = folder.path();
  const std::string& none = elsewhere.path();
  struct Row {
    std::string current, installed;
    int succeedsFrom;
    std::size_t tries;
  };
  for (const Row& row :
       {Row{here, "", 1, 1}, Row{here, "", 2, 2}, Row{here, "", 99, 2}, Row{here, here, 3, 3},
        Row{none, here, 1, 1}, Row{none, none, 1, 0}, Row{none, "", 1, 0}}) {
    FakeOpener opener;
    opener.succeedsFrom = row.succeedsFrom;
    OpenManual(row.current, opener, prompts, row.installed);
    EXPECT_EQ(opener.opened, std::vector<std::string>(row.tries, path)) << row.current;
    std::vector<std::string> said;
    if (static_cast<int>(row.tries) < row.succeedsFrom) {
      said = {"message: No help file was found. Please contact the vendor."};
    }
    EXPECT_EQ(prompts.TakeTranscript(), said) << row.current;
  }
  FakeOpener opener;
  WriteBytes(folder / "Manual/labels.html", {});
  for (const char* const page : {"labels.html", "gone.html"}) {
    OpenManual(none, opener, prompts, here, page);
  }
  EXPECT_EQ(opener.opened, (std::vector<std::string>{folder / "Manual/labels.html", path}));
}

}  // namespace
}  // namespace cantorix
