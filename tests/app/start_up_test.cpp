// start_up_test.cpp - the directories of a first and of a later run, and what ends a start-up.
#include "app/start_up.h"

#include <filesystem>
#include <limits>
#include <utility>

#include "app_fixture.h"
#include "platform/file.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const std::pair<std::string, std::string> kDirectoryEntry{"General Strings Section",
                                                          "Temp Directory"};
constexpr const char* kRegistryBox =
    "message: Unable to update the system registry.\n"
    "Please contact your system administrator and/or the vender.";
constexpr const char* kAccessBox =
    "message: Application was not able to access the default temperorily folder to read and write "
    "files. This function is necessary part of operation.\nThis may be due to not having enough "
    "access priviledges on your account.\nPlease select from the following box another suitable "
    "location, or contact your system administrator.";

using StartUpTest = AppTest;

TEST_F(StartUpTest, FirstRunKeepsTheCurrentDirectoryForAllLaterRuns) {
  ASSERT_EQ(StartUp(app, folder.path()), StartUpResult::kReady);
  EXPECT_EQ(app.host.programDirectory, folder.path());
  EXPECT_EQ(app.temporaryDirectory, folder / "tmp/");
  EXPECT_EQ(profile.texts[kDirectoryEntry], folder.path());
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("tmp", "CantorixConf.cfg"));

  app.recentFiles.Add("/talk.qrv");
  const TemporaryFolder elsewhere;
  Application later{{profile, prompts, progress, memory}};
  ASSERT_EQ(StartUp(later, elsewhere.path()), StartUpResult::kReady);
  EXPECT_EQ(later.host.programDirectory, folder.path());
  EXPECT_THAT(later.recentFiles.paths(), ElementsAre("/talk.qrv"));
  EXPECT_THAT(elsewhere.Names(), IsEmpty());
  EXPECT_FALSE(CanWriteInto(""));
}

TEST_F(StartUpTest, EndsWhenTheProfileDoesNotKeepTheDirectory) {
  profile.refusesWrites = true;
  EXPECT_EQ(StartUp(app, folder.path()), StartUpResult::kProfileRefused);
  profile.refusesWrites = false;
  profile.losesWrites = true;
  EXPECT_EQ(StartUp(app, folder.path()), StartUpResult::kProfileRefused);
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre(kRegistryBox, kRegistryBox));
  EXPECT_THAT(folder.Names(), IsEmpty());
}

// Kept: the folder that is chosen is not tried.
TEST_F(StartUpTest, TakesAChosenFolderWithoutTryingItIsKept) {
  struct Row {
    std::string chosen;  // none: cancelled
    bool keeps;
    StartUpResult result;
    std::string directory;
  };
  for (const Row& row : {Row{"", true, StartUpResult::kNoFolder, folder / "gone"},
                         {folder.path(), false, StartUpResult::kProfileRefused, folder.path()},
                         {folder / "gone too", true, StartUpResult::kReady, folder / "gone too"},
                         {folder.path() + "/", true, StartUpResult::kReady, folder.path()}}) {
    profile.texts[kDirectoryEntry] = folder / "gone";
    profile.losesWrites = !row.keeps;
    EXPECT_THAT(folder.Names(), IsEmpty());
    if (row.chosen.empty()) {
      prompts.WillCancel();
    } else {
      prompts.WillChooseFolder(row.chosen);
    }
    EXPECT_EQ(StartUp(app, "/"), row.result) << row.chosen;
    EXPECT_EQ(app.host.programDirectory, row.directory);
    std::vector<std::string> said{kAccessBox, "folder: /"};
    if (!row.keeps) said.emplace_back(kRegistryBox);
    EXPECT_EQ(prompts.TakeTranscript(), said);
  }
  EXPECT_EQ(profile.texts[kDirectoryEntry], folder.path());
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("tmp", "CantorixConf.cfg"));
}

TEST_F(StartUpTest, AFirstRunKeepsItsOptionsBecauseTheDefaultsAreThere) {
  const std::string path = ConfigFile();
  ASSERT_EQ(StartUp(app, folder.path()), StartUpResult::kReady);
  const Settings defaults{{}, DefaultDocumentSettings()};
  EXPECT_THAT(ReadConfiguration(path), testing::ElementsAreArray(EncodeRecord(defaults)));
  WriteBytes(path, std::vector<std::byte>(3));
  ASSERT_EQ(StartUp(app, folder.path()), StartUpResult::kReady);
  EXPECT_EQ(ReadBytes(path).size(), 3U) << "a file that is no record is the user's";
}

TEST_F(StartUpTest, ClearsWhatKilledProgramsLeftAndNothingElse) {
  const TemporaryFolder talks;
  std::filesystem::create_directory(folder / "tmp");
  const std::string unfinished = ".cantorix-save-0123456789abcdef";
  for (const char* name : {"$$TempFile1", "$$TempFile27", "$$TempFile", "my$$TempFile1", "xxx",
                           "tmp/talk@@tmp", "tmp/talk@@tmp2", "tmp/a@@tmp@@tmp", "tmp/held@@tmp",
                           "tmp/talk@@tmp.qrv", "tmp/Recording-20261121-140000-16000Hz-1.raw"}) {
    WriteBytes(folder / name, std::vector<std::byte>(3));
  }
  WriteBytes(folder / unfinished, std::vector<std::byte>(3));
  WriteBytes(talks / unfinished, std::vector<std::byte>(3));
  WriteBytes(talks / "talk.qrv", std::vector<std::byte>(3));
  app.recentFiles.Add(talks / "talk.qrv");
  const File held = File::OpenForReading(folder / "tmp/held@@tmp");
  ASSERT_EQ(StartUp(app, folder.path()), StartUpResult::kReady);
  EXPECT_THAT(folder.Names(),
              UnorderedElementsAre("tmp", "my$$TempFile1", "xxx", "CantorixConf.cfg"));
  EXPECT_EQ(ReadBytes(folder / "xxx").size(), 3U) << "the trial took another name";
  EXPECT_THAT(NamesIn(folder / "tmp"),
              UnorderedElementsAre("Recording-20261121-140000-16000Hz-1.raw", "held@@tmp",
                                   "talk@@tmp.qrv"));
  EXPECT_THAT(talks.Names(), ElementsAre("talk.qrv"));
}

TEST_F(StartUpTest, TakesTheApplicationBlockAndAUsableRecordingRate) {
  for (const auto& [storedHz, recordingHz] :
       {std::pair(22050.0, 22050.0),
        {0.0, 11025.0},
        {-1.0, 11025.0},
        {49999.0, 49999.0},
        {50000.0, 11025.0},
        {std::numeric_limits<double>::quiet_NaN(), 11025.0}}) {
    Settings settings;
    settings.application.memoryMinutes = 17;
    settings.application.labelList = {-1, 2, 300, 400};
    settings.document.referenceRateHz = storedHz;
    StoreConfiguration(settings);
    ASSERT_EQ(StartUp(app, folder.path()), StartUpResult::kReady);
    EXPECT_EQ(app.host.recordingRateHz, recordingHz) << storedHz;
    EXPECT_EQ(app.host.application.memoryMinutes, 17);
    EXPECT_EQ(app.host.application.labelList.height, 400);
    EXPECT_EQ(app.host.currentRateHz, 11025.0) << "set by opening a recording only";
  }
}

}  // namespace
}  // namespace cantorix
