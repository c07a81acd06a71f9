// configuration_test.cpp - the configuration file through the life of documents and the commands.
#include <filesystem>
#include <limits>
#include <memory>
#include <span>

#include "app/configuration_commands.h"
#include "app_fixture.h"
#include "support/joined.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kReverted =
    "message: Configuration setting has been reverted back to default. Close application and "
    "restart.";
const std::string kFilter = "Configuration files (*.cfg)|*.cfg|";
constexpr const char* kReadError = "message: Error in reading the configuration file.";

Record Foreign(Record record) {
  record[0] = std::byte{'1'};
  return record;
}

class ConfigurationTest : public AppTest {
 protected:
  ConfigurationTest() {
    app.host.programDirectory = folder.path();
    users.application.memoryMinutes = 9;
    users.document.referenceRateHz = 22050.0;
    users.document.pitch.stepMs = 4.0;
    users.document.tierNames[0] = "syllables";
  }
  std::unique_ptr<CSonadexDoc> NewDocument() { return std::make_unique<CSonadexDoc>(app.host); }
  bool Load(const std::string& path, CSonadexDoc* active) {
    prompts.WillChooseFile(path);
    return LoadConfiguration(app.host, active);
  }

  Settings users;  // differ from the defaults in every part
};

TEST_F(ConfigurationTest, NewDocumentsTakeTheDefaultsOrTheFile) {
  app.host.documentsWriteConfiguration = false;
  const auto fresh = [this] {
    const auto document = NewDocument();
    const CChannel& channel = document->channel();
    return Joined(document->settings.fftLpc.windowMs, document->settings.intensity.windowMs,
                  channel.sampleRateHz, channel.tiers[0].name, document->memoryLimitMinutes);
  };
  EXPECT_EQ(fresh(), "23 20 11025 tones 5");
  users.document.intensity.windowMs = 0.0;
  StoreConfiguration(users);
  EXPECT_EQ(fresh(), "23 20 22050 syllables 5") << "the application's block is not read here";
  users.document.referenceRateHz = std::numeric_limits<double>::infinity();
  StoreConfiguration(users);
  EXPECT_EQ(fresh(), "23 20 11025 syllables 5");
  WriteBytes(ConfigFile(), Foreign(EncodeRecord(users)));
  EXPECT_EQ(fresh(), "23 20 11025 tones 5");
}

TEST_F(ConfigurationTest, TheLastDocumentClosedDecidesIsKept) {
  app.host.documentsWriteConfiguration = false;
  NewDocument().reset();
  app.host.documentsWriteConfiguration = true;
  NewDocument()->writesConfiguration = false;
  EXPECT_THAT(folder.Names(), IsEmpty()) << "those that are told not to write";

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

TEST_F(ConfigurationTest, LoadFillsTheActiveDocumentTheApplicationAndTheFile) {
  const std::string path = folder / "user.cfg";
  EXPECT_TRUE(WriteConfiguration(path, users));
  const auto document = NewDocument();
  EXPECT_TRUE(Load(path, document.get()));
  const CChannel& channel = document->channel();
  EXPECT_EQ(Joined(document->settings.pitch.stepMs, app.host.application.memoryMinutes,
                   app.host.recordingRateHz, channel.sampleRateHz, channel.tiers[0].name),
            "4 9 22050 11025 tones")
      << "the recording keeps its rate and its tiers";
  EXPECT_EQ(ReadBytes(ConfigFile()), ReadBytes(path));
  EXPECT_EQ(TextOf(prompts.fileRequests[0]),
            "Load a Configuration file, User_Configuration.cfg, " + kFilter + " #1, must exist");
  // Without a document the file is copied, a byte that is no field and an unusable rate included.
  users.application.memoryMinutes = 7;
  users.document.referenceRateHz = 60000.0;
  Record chosen = EncodeRecord(users);
  chosen[180] = std::byte{0x55};
  WriteBytes(path, chosen);
  EXPECT_TRUE(Load(path, nullptr));
  EXPECT_EQ(app.host.application.memoryMinutes, 7);
  EXPECT_EQ(app.host.recordingRateHz, 22050.0) << "an unusable rate leaves it alone";
  EXPECT_EQ(ReadBytes(ConfigFile()), ReadBytes(path));
  prompts.TakeTranscript();
}

TEST_F(ConfigurationTest, ALoadThatFailsChangesNothing) {
  const Record good = EncodeRecord(users);
  WriteBytes(folder / "good.cfg", good);
  WriteBytes(folder / "foreign.cfg", Foreign(good));
  WriteBytes(folder / "short.cfg", std::span(good).first(1151));
  const auto document = NewDocument();
  StoreConfiguration(Settings{});
  const auto before = ReadBytes(ConfigFile());
  for (CSonadexDoc* const active : {document.get(), static_cast<CSonadexDoc*>(nullptr)}) {
    for (const std::string file : {"foreign.cfg", "short.cfg", "missing.cfg", "good.cfg"}) {
      app.host.programDirectory = file == "good.cfg" ? folder / "gone" : folder.path();
      EXPECT_FALSE(Load(folder / file, active)) << file;
      EXPECT_THAT(prompts.TakeTranscript(),
                  ElementsAre("open: Load a Configuration file", kReadError));
      EXPECT_EQ(app.host.application.memoryMinutes, 5) << file;
      EXPECT_EQ(ReadBytes(ConfigFile()), before) << file;
    }
  }
  prompts.WillCancel();
  EXPECT_FALSE(LoadConfiguration(app.host, nullptr));
  EXPECT_EQ(prompts.TakeTranscript().size(), 1U);
}

TEST_F(ConfigurationTest, SaveWritesTheDocumentsRecordOrSaysThatItCouldNot) {
  const auto document = NewDocument();
  document->settings = users.document;
  app.host.application = users.application;
  prompts.WillChooseFile(folder / "mine.cfg");
  prompts.WillChooseFile(folder / "gone/mine.cfg");
  prompts.WillCancel();
  for (int i = 0; i < 3; ++i) SaveConfiguration(app.host, *document);
  const Record expected = EncodeRecord(users);
  EXPECT_THAT(ReadBytes(folder / "mine.cfg"), testing::ElementsAreArray(expected));
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("save: Save Configuration As", "save: Save Configuration As",
                          "message: Error in saving the configuration file.",
                          "save: Save Configuration As"));
  EXPECT_EQ(TextOf(prompts.fileRequests[0]), "Save Configuration As, User_Configuration.cfg, " +
                                                 kFilter + " #1, asks before overwriting");
  EXPECT_FALSE(std::filesystem::exists(ConfigFile()));
}

TEST_F(ConfigurationTest, RevertLastsWhenTheOpenDocumentsCloseAndSaysTheSameWithoutAFileIsKept) {
  StoreConfiguration(Settings{});
  auto open = NewDocument();
  CSonadexDoc* const documents[] = {open.get()};
  RevertConfiguration(app.host, documents);
  open.reset();
  EXPECT_FALSE(std::filesystem::exists(ConfigFile()));
  RevertConfiguration(app.host, {});
  NewDocument().reset();
  EXPECT_TRUE(std::filesystem::exists(ConfigFile()));
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre(kReverted, kReverted));
  for (const auto& [path, named] : {std::pair{"/CantorixConf.cfg", true},
                                    {"a.cfg", true},
                                    {".cfg", false},
                                    {".cfg/CantorixConf.cfg", false},
                                    {"CantorixConf.CFG", false}}) {
    EXPECT_EQ(NamesConfiguration(path), named) << path;
  }
}

}  // namespace
}  // namespace cantorix
