// config_file.cpp - reading and replacing configuration files.
#include "settings/config_file.h"

#include <exception>

#include "platform/file.h"
#include "platform/file_error.h"
#include "platform/safe_file.h"
#include "settings/settings.h"

namespace cantorix {

std::string ConfigPath(const std::string& programDirectory) {
  return programDirectory.empty() ? std::string() : programDirectory + "/CantorixConf.cfg";
}

std::vector<std::byte> ReadConfiguration(const std::string& path) {
  std::vector<std::byte> bytes(kRecordBytes);
  try {
    const File file = File::OpenUnlocked(path);
    bytes.resize(file.ReadSome(0, bytes));
  } catch (const FileError&) {
    bytes.clear();  // a missing file is an ordinary state, and the callers treat both alike
  }
  return bytes;
}

bool WriteConfiguration(const std::string& path, const Settings& settings) {
  return WriteConfigurationBytes(path, EncodeRecord(settings));
}

bool WriteConfigurationBytes(const std::string& path, std::span<const std::byte> record) {
  if (path.empty()) return false;
  try {
    ReplaceFile(path, record);
    return true;
  } catch (const std::exception&) {
    return false;  // also for want of memory: documents write their settings while they close
  }
}

bool PatchConfiguration(const std::string& path, SettingsDialog dialog, const Settings& settings) {
  std::vector<std::byte> bytes = ReadConfiguration(path);
  // Kept: without a valid file a dialog's values stay in the document and are not written.
  if (!PatchRecord(bytes, dialog, settings)) return false;
  return WriteConfigurationBytes(path, bytes);
}

}  // namespace cantorix
