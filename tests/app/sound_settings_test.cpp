// sound_settings_test.cpp - the sound input found again among other ones, and what the record/play
// window sets reaches program, documents and configuration file.
#include <gtest/gtest.h>

#include "app/record_play_settings.h"
#include "app/sound_input.h"
#include "settings/config_file.h"
#include "settings/settings.h"
#include "support/joined.h"
#include "support/test_host.h"

namespace cantorix {
namespace {

TEST(SoundInput, TheNameDecidesAndWhatIsGoneIsTheSystemsOwn) {
  struct Row {
    const char* name;
    std::int32_t stored;
    const char* kept;  // in the profile; null: nothing
    std::vector<std::string> there;
    const char* found;  // index, name and what is gone
  };
  const Row rows[] = {
      {"the system's own", 0, "Line", {"Microphone", "Line"}, "0  "},
      {"less than none", -1, "Line", {"Microphone", "Line"}, "0  "},
      {"at its place", 2, "Line", {"Microphone", "Line"}, "2 Line "},
      {"moved", 2, "Line", {"Line", "Microphone"}, "1 Line "},
      {"gone, with another one in its place", 1, "Line", {"Microphone"}, "0  Line"},
      {"none left", 1, "Line", {}, "0  Line"},
      {"a file without a name", 2, nullptr, {"Microphone", "Line"}, "2 Line "},
      {"a name that was never chosen", 1, "", {"Microphone"}, "1 Microphone "},
      {"a file from elsewhere", 3, nullptr, {"Microphone", "Line"}, "0  input 3"},
  };
  for (const Row& row : rows) {
    FakeProfileStore profile;
    EXPECT_TRUE(row.kept == nullptr || KeepSoundInput(profile, row.kept));
    const SoundInput found = FindSoundInput(profile, row.stored, row.there);
    EXPECT_EQ(Joined(found.index, found.name, found.gone), row.found) << row.name;
  }
  FakeProfileStore refusing;
  refusing.refusesWrites = true;
  EXPECT_FALSE(KeepSoundInput(refusing, "Line"));
}

constexpr RecordPlaySettings kNew{9, 44100.0, 1, 2};

class RecordPlaySettingsTest : public testing::Test {
 protected:
  std::string Path() const { return ConfigPath(test.host.programDirectory); }
  static std::string TextOf(const RecordPlaySettings& found) {
    return Joined(found.memoryMinutes, found.rateHz, found.automaticAnalysis, found.input);
  }
  std::string Found(const CSonadexDoc* front) {
    return TextOf(RecordPlaySettingsOf(test.host, front));
  }
  // All that the four fields can reach in the file, and a field of another dialog.
  std::string Stored() const {
    Settings settings;
    EXPECT_TRUE(DecodeRecord(ReadConfiguration(Path()), settings));
    const DocumentSettings& document = settings.document;
    return Joined(TextOf({settings.application.memoryMinutes, document.referenceRateHz,
                          document.display.automaticAnalysis, document.display.recordingInput}),
                  document.zoomRangeMs);
  }

  TestHost test;
};

TEST_F(RecordPlaySettingsTest, ReachProgramDocumentsAndFile) {
  ASSERT_TRUE(WriteConfiguration(Path(), {{}, DefaultDocumentSettings()}));
  CSonadexDoc front(test.host);
  CSonadexDoc other(test.host);
  front.settings.zoomRangeMs = 77.0;
  CSonadexDoc* const open[] = {&front, &other};
  KeepRecordPlaySettings(kNew, test.host, open, &front);
  EXPECT_EQ(Found(&front), "9 44100 1 2");
  EXPECT_EQ(Stored(), "9 44100 1 2 1000") << "nothing of another dialog";
  EXPECT_EQ(other.settings.referenceRateHz, 44100.0);
  EXPECT_EQ(Found(&other), "9 44100 0 2") << "the choice of the one in front";
}

TEST_F(RecordPlaySettingsTest, WithoutADocumentTheFileAloneHasThem) {
  ASSERT_TRUE(WriteConfiguration(Path(), {{}, DefaultDocumentSettings()}));
  KeepRecordPlaySettings(kNew, test.host, {}, nullptr);
  EXPECT_EQ(Stored(), "9 44100 1 2 1000");
  EXPECT_EQ(Found(nullptr), "9 44100 1 2");
  CSonadexDoc next(test.host);
  EXPECT_EQ(Found(&next), "9 44100 1 2");
}

TEST_F(RecordPlaySettingsTest, NoFileIsMadeOfThemIsKept) {
  CSonadexDoc front(test.host);
  CSonadexDoc* const open[] = {&front};
  KeepRecordPlaySettings(kNew, test.host, open, &front);
  EXPECT_TRUE(ReadConfiguration(Path()).empty());
  EXPECT_EQ(Found(&front), "9 44100 1 2");
}

}  // namespace
}  // namespace cantorix
