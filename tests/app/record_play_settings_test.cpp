// record_play_settings_test.cpp - what the record/play window sets reaches program, documents and
// configuration file.
#include "app/record_play_settings.h"

#include <gtest/gtest.h>

#include "settings/config_file.h"
#include "settings/settings.h"
#include "support/test_host.h"

namespace cantorix {
namespace {

constexpr RecordPlaySettings kNew{9, 44100.0, 1, 2};

class RecordPlaySettingsTest : public testing::Test {
 protected:
  std::string Path() const { return ConfigPath(test.host.programDirectory); }
  Settings Stored() const {
    Settings settings;
    EXPECT_TRUE(DecodeRecord(ReadConfiguration(Path()), settings));
    return settings;
  }
  void ExpectNew(const RecordPlaySettings& found) {
    EXPECT_EQ(found.memoryMinutes, 9);
    EXPECT_EQ(found.rateHz, 44100.0);
    EXPECT_EQ(found.automaticAnalysis, 1);
    EXPECT_EQ(found.input, 2);
  }
  // All that the four fields can reach, and a field of another dialog.
  void ExpectNewInTheFile() {
    const Settings stored = Stored();
    ExpectNew({stored.application.memoryMinutes, stored.document.referenceRateHz,
               stored.document.display.automaticAnalysis, stored.document.display.recordingInput});
    EXPECT_EQ(stored.document.zoomRangeMs, 1000.0) << "of another dialog";
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
  ExpectNew(RecordPlaySettingsOf(test.host, &front));
  ExpectNewInTheFile();
  EXPECT_EQ(other.settings.referenceRateHz, 44100.0);
  EXPECT_EQ(other.settings.display.recordingInput, 2);
  EXPECT_EQ(other.settings.display.automaticAnalysis, 0) << "the choice of the one in front";
}

TEST_F(RecordPlaySettingsTest, WithoutADocumentTheFileAloneHasThem) {
  ASSERT_TRUE(WriteConfiguration(Path(), {{}, DefaultDocumentSettings()}));
  EXPECT_EQ(RecordPlaySettingsOf(test.host, nullptr).input, 0);
  KeepRecordPlaySettings(kNew, test.host, {}, nullptr);
  ExpectNewInTheFile();
  ExpectNew(RecordPlaySettingsOf(test.host, nullptr));
  CSonadexDoc next(test.host);
  ExpectNew(RecordPlaySettingsOf(test.host, &next));
}

TEST_F(RecordPlaySettingsTest, NoFileIsMadeOfThemIsKept) {
  KeepRecordPlaySettings(kNew, test.host, {}, nullptr);
  EXPECT_TRUE(ReadConfiguration(Path()).empty());
  EXPECT_EQ(test.host.recordingRateHz, 44100.0);
}

}  // namespace
}  // namespace cantorix
