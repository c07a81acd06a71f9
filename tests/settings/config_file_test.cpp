// config_file_test.cpp - the configuration file on a real disk.
#include "settings/config_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "platform/file.h"
#include "settings/settings.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

Settings WithPitchStep(double stepMs) {
  Settings settings;
  settings.document.pitch.stepMs = stepMs;
  settings.document.zoomRangeMs = 222.0;
  return settings;
}

TEST(ReadConfiguration, TakesAtMostTheRecordAndNothingFromWhatIsNoFile) {
  const TemporaryFolder folder;
  const Record record = EncodeRecord(WithPitchStep(7.0));
  std::vector<std::byte> longer(record.begin(), record.end());
  longer.resize(3000, std::byte{1});
  WriteBytes(folder / "long.cfg", longer);
  WriteBytes(folder / "short.cfg", std::span(record).first(1151));

  EXPECT_TRUE(IsRecord(ReadConfiguration(folder / "long.cfg")));
  EXPECT_EQ(ReadConfiguration(folder / "short.cfg").size(), 1151U);
  EXPECT_TRUE(ReadConfiguration(folder / "missing.cfg").empty());
  EXPECT_TRUE(ReadConfiguration(folder.path()).empty());
  EXPECT_TRUE(ReadConfiguration(ConfigPath("")).empty());
}

TEST(ReadConfiguration, GoesOnWhileAnotherReaderHoldsTheFile) {
  const TemporaryFolder folder;
  const std::string path = ConfigPath(folder.path());
  ASSERT_TRUE(WriteConfiguration(path, Settings{}));
  const File held = File::OpenForReading(path);
  EXPECT_TRUE(IsRecord(ReadConfiguration(path)));
  EXPECT_FALSE(WriteConfiguration(path, WithPitchStep(3.0)));
  EXPECT_EQ(ReadBytes(path), ReadConfiguration(path));
}

TEST(WriteConfiguration, ReportsAFolderThatIsNotThere) {
  const TemporaryFolder folder;
  EXPECT_FALSE(WriteConfiguration(folder / "no/such/CantorixConf.cfg", Settings{}));
  EXPECT_FALSE(WriteConfiguration(ConfigPath(""), Settings{}));
  EXPECT_TRUE(folder.Names().empty());
}

TEST(PatchConfiguration, ChangesOneDialogOfAnExistingFile) {
  const TemporaryFolder folder;
  const std::string path = ConfigPath(folder.path());
  ASSERT_TRUE(WriteConfiguration(path, Settings{}));
  ASSERT_TRUE(PatchConfiguration(path, SettingsDialog::kPitch, WithPitchStep(7.0)));
  Settings read;
  ASSERT_TRUE(DecodeRecord(ReadConfiguration(path), read));
  EXPECT_EQ(read.document.pitch.stepMs, 7.0);
  EXPECT_EQ(read.document.zoomRangeMs, 1000.0);
}

TEST(PatchConfiguration, WritesNothingWithoutAValidFileIsKept) {
  const TemporaryFolder folder;
  const std::string path = ConfigPath(folder.path());
  EXPECT_FALSE(PatchConfiguration(path, SettingsDialog::kPitch, WithPitchStep(7.0)));
  EXPECT_FALSE(std::filesystem::exists(path));

  const Record record = EncodeRecord(Settings{});
  WriteBytes(path, std::span(record).first(1151));
  EXPECT_FALSE(PatchConfiguration(path, SettingsDialog::kPitch, WithPitchStep(7.0)));
  EXPECT_EQ(ReadBytes(path).size(), 1151U);
}

}  // namespace
}  // namespace cantorix
