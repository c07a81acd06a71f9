// configuration_test.cpp - the configuration file through the life of documents and the commands.
#include <filesystem>
#include <limits>
#include <memory>
#include <span>
#include <string>

#include "app/configuration_commands.h"
#include "app_fixture.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kReverted =
    "message: Configuration setting has been reverted back to default. Close application and "
    "restart.";
const std::string kFilter = "Configuration files (*.cfg)|*.cfg|";
constexpr const char* kReadError = "message: Error in reading the configuration file.";

Settings With(std::int32_t memoryMinutes, double referenceRateHz) {
  Settings settings;
  settings.application.memoryMinutes = memoryMinutes;
  settings.document.referenceRateHz = referenceRateHz;
  return settings;
}

class ConfigurationTest : public AppTest {
 protected:
  ConfigurationTest() { app.host.programDirectory = folder.path(); }

  std::unique_ptr<CSonadexDoc> NewDocument() { return std::make_unique<CSonadexDoc>(app.host); }

  // A user's configuration file that differs from the defaults in every part.
  std::string UserFile() {
    Settings settings = With(9, 22050.0);
    settings.document.pitch.stepMs = 4.0;
    settings.document.tierNames[0] = "syllables";
    EXPECT_TRUE(WriteConfiguration(folder / "user.cfg", settings));
    return folder / "user.cfg";
  }
};

TEST_F(ConfigurationTest, NewDocumentsTakeTheDefaultsOrTheFile) {
  app.host.documentsWriteConfiguration = false;
  EXPECT_EQ(NewDocument()->settings.fftLpc.windowMs, 23);

  Settings settings = With(9, 16000.0);
  settings.document.tierNames[9] = "notes";
  settings.document.intensity.windowMs = 0.0;
  StoreConfiguration(settings);
  const auto document = NewDocument();
  EXPECT_EQ(document->channel().sampleRateHz, 16000.0);
  EXPECT_EQ(document->channel().tiers[9].name, "notes");
  EXPECT_EQ(document->settings.intensity.windowMs, 20.0);
  EXPECT_EQ(document->memoryLimitMinutes, 5) << "the application's block is not read here";

  settings.document.referenceRateHz = std::numeric_limits<double>::infinity();
  StoreConfiguration(settings);
  EXPECT_EQ(NewDocument()->channel().sampleRateHz, 11025.0);

  Record foreign = EncodeRecord(settings);
  foreign[0] = std::byte{'1'};
  WriteBytes(ConfigFile(), foreign);
  EXPECT_EQ(NewDocument()->channel().tiers[9].name, "");
}

TEST_F(ConfigurationTest, TheLastDocumentClosedDecidesIsKept) {
  auto first = NewDocument();
  auto second = NewDocument();
  app.host.application.memoryMinutes = 3;
  first->settings.zoomRangeMs = 1234.7;
  second->settings.zoomRangeMs = 50.0;
  second.reset();
  EXPECT_EQ(StoredConfiguration().document.zoomRangeMs, 50.0);
  first.reset();
  EXPECT_EQ(StoredConfiguration().document.zoomRangeMs, 1234.0);
  EXPECT_EQ(StoredConfiguration().application.memoryMinutes, 3);
}

TEST_F(ConfigurationTest, NothingIsWrittenWhereDocumentsAreToldNotTo) {
  app.host.documentsWriteConfiguration = false;
  NewDocument().reset();
  app.host.documentsWriteConfiguration = true;
  NewDocument()->writesConfiguration = false;
  app.host.programDirectory = folder / "gone";
  NewDocument().reset();
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(ConfigurationTest, LoadFillsTheActiveDocumentTheApplicationAndTheFile) {
  const auto document = NewDocument();
  prompts.WillChooseFile(UserFile());
  EXPECT_TRUE(LoadConfiguration(app.host, document.get()));
  EXPECT_EQ(document->settings.pitch.stepMs, 4.0);
  EXPECT_EQ(document->channel().sampleRateHz, 11025.0) << "the recording keeps its rate";
  EXPECT_EQ(document->channel().tiers[0].name, "tones") << "and its tiers";
  EXPECT_EQ(app.host.application.memoryMinutes, 9);
  EXPECT_EQ(app.host.recordingRateHz, 22050.0);
  EXPECT_EQ(ReadBytes(ConfigFile()), ReadBytes(UserFile()));
  EXPECT_EQ(TextOf(prompts.fileRequests[0]),
            "Load a Configuration file, User_Configuration.cfg, " + kFilter + " #1, must exist");
  // Without a document the file is copied, a byte that is no field and an unusable rate included.
  Record chosen = EncodeRecord(With(7, 60000.0));
  chosen[180] = std::byte{0x55};
  WriteBytes(folder / "user.cfg", chosen);
  prompts.WillChooseFile(folder / "user.cfg");
  EXPECT_TRUE(LoadConfiguration(app.host, nullptr));
  EXPECT_EQ(app.host.application.memoryMinutes, 7);
  EXPECT_EQ(app.host.recordingRateHz, 22050.0) << "an unusable rate leaves it alone";
  EXPECT_EQ(ReadBytes(ConfigFile()), ReadBytes(folder / "user.cfg"));
  prompts.TakeTranscript();
}

TEST_F(ConfigurationTest, ALoadThatFailsChangesNothing) {
  const Record good = EncodeRecord(With(9, 11025.0));
  Record foreign = good;
  foreign[0] = std::byte{'1'};
  WriteBytes(folder / "good.cfg", good);
  WriteBytes(folder / "foreign.cfg", foreign);
  WriteBytes(folder / "short.cfg", std::span(good).first(1151));
  const auto document = NewDocument();
  StoreConfiguration(Settings{});
  const auto before = ReadBytes(ConfigFile());
  for (CSonadexDoc* const active : {document.get(), static_cast<CSonadexDoc*>(nullptr)}) {
    for (const std::string file : {"foreign.cfg", "short.cfg", "missing.cfg", "good.cfg"}) {
      app.host.programDirectory = file == "good.cfg" ? folder / "gone" : folder.path();
      prompts.WillChooseFile(folder / file);
      EXPECT_FALSE(LoadConfiguration(app.host, active)) << file;
      EXPECT_THAT(prompts.TakeTranscript(),
                  ElementsAre("open: Load a Configuration file", kReadError));
      EXPECT_EQ(app.host.application.memoryMinutes, 5) << file;
      EXPECT_EQ(ReadBytes(ConfigFile()), before) << file;
    }
    prompts.WillCancel();
    EXPECT_FALSE(LoadConfiguration(app.host, active));
    EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("open: Load a Configuration file"));
  }
}

TEST_F(ConfigurationTest, SaveWritesTheDocumentsRecordOrSaysThatItCouldNot) {
  const auto document = NewDocument();
  document->settings.pitch.stepMs = 6.0;
  app.host.application.memoryMinutes = 8;
  prompts.WillChooseFile(folder / "mine.cfg");
  prompts.WillChooseFile(folder / "gone/mine.cfg");
  prompts.WillCancel();
  for (int i = 0; i < 3; ++i) SaveConfiguration(app.host, *document);

  Settings saved;
  ASSERT_TRUE(DecodeRecord(ReadBytes(folder / "mine.cfg"), saved));
  EXPECT_EQ(saved.document.pitch.stepMs, 6.0);
  EXPECT_EQ(saved.application.memoryMinutes, 8);
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("save: Save Configuration As", "save: Save Configuration As",
                          "message: Error in saving the configuration file.",
                          "save: Save Configuration As"));
  EXPECT_EQ(TextOf(prompts.fileRequests[0]), "Save Configuration As, User_Configuration.cfg, " +
                                                 kFilter + " #1, asks before overwriting");
  EXPECT_FALSE(std::filesystem::exists(ConfigFile()));
}

TEST_F(ConfigurationTest, RevertLastsWhenTheOpenDocumentsClose) {
  StoreConfiguration(Settings{});
  auto open = NewDocument();
  CSonadexDoc* const documents[] = {open.get()};
  RevertConfiguration(app.host, documents);
  open.reset();
  EXPECT_FALSE(std::filesystem::exists(ConfigFile()));
  NewDocument().reset();
  EXPECT_TRUE(std::filesystem::exists(ConfigFile()));
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre(kReverted));
}

TEST_F(ConfigurationTest, RevertWithoutAFileSaysTheSameIsKept) {
  RevertConfiguration(app.host, {});
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre(kReverted));
  for (const auto& [path, named] : {std::pair{"/CantorixConf.cfg", true},
                                    {".cfg", false},
                                    {".cfg/CantorixConf.cfg", false},
                                    {"CantorixConf.CFG", false}}) {
    EXPECT_EQ(NamesConfiguration(path), named) << path;
  }
}

}  // namespace
}  // namespace cantorix
