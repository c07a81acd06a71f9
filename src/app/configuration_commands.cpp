// configuration_commands.cpp - check first, write second, change last: a failure changes nothing.
#include "app/configuration_commands.h"

#include <filesystem>

#include "platform/prompts.h"
#include "settings/config_file.h"
#include "settings/local_settings.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr const char* kReadError = "Error in reading the configuration file.";
constexpr const char* kSaveError = "Error in saving the configuration file.";

FileRequest ConfigurationRequest(const std::string& title) {
  FileRequest request;
  request.title = title;
  request.proposedName = "User_Configuration";
  request.defaultExtension = "cfg";
  request.filter = "Configuration files (*.cfg)|*.cfg|";
  return request;
}

// The bytes that go into the program's file: with a document open the record of what was loaded,
// without one the chosen file as it stands.
bool StoreLoaded(const DocumentHost& host, bool documentOpen, const Settings& loaded,
                 std::span<const std::byte> bytes) {
  const std::string path = ConfigPath(host.programDirectory);
  return documentOpen ? WriteConfiguration(path, loaded) : WriteConfigurationBytes(path, bytes);
}

}  // namespace

void ReadApplicationSettings(DocumentHost& host) {
  const auto bytes = ReadConfiguration(ConfigPath(host.programDirectory));
  Settings stored;
  if (!DecodeRecord(bytes, stored)) return;
  host.application = stored.application;
  host.recordingRateHz = StoredReferenceRate(bytes).value_or(host.recordingRateHz);
}

bool LoadConfiguration(DocumentHost& host, CSonadexDoc* active) {
  FileRequest request = ConfigurationRequest("Load a Configuration file");
  request.fileMustExist = true;
  const auto choice = host.prompts.ChooseFileToOpen(request);
  if (!choice) return false;

  const auto bytes = ReadConfiguration(choice->path);
  Settings loaded;
  if (!DecodeRecord(bytes, loaded) || !StoreLoaded(host, active != nullptr, loaded, bytes)) {
    host.prompts.Message(kReadError);
    return false;
  }
  if (active != nullptr) {
    active->settings = loaded.document;
    active->localSettings = {};
  }
  host.application = loaded.application;
  host.recordingRateHz = StoredReferenceRate(bytes).value_or(host.recordingRateHz);
  return true;
}

void SaveConfiguration(DocumentHost& host, const CSonadexDoc& active) {
  FileRequest request = ConfigurationRequest("Save Configuration As");
  request.overwritePrompt = true;
  const auto choice = host.prompts.ChooseFileToSave(request);
  if (!choice) return;
  if (!WriteConfiguration(choice->path, {host.application, active.settings})) {
    host.prompts.Message(kSaveError);
  }
}

void RevertConfiguration(DocumentHost& host, std::span<CSonadexDoc* const> open) {
  const std::string path = ConfigPath(host.programDirectory);
  // Kept: the text of the path decides, not the disk, so the first message appears also where no
  // file existed.
  if (!NamesConfiguration(path)) {
    host.prompts.Message("Configuration file was not found. Close application and restart.");
    return;
  }
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  for (CSonadexDoc* const document : open) document->writesConfiguration = false;
  host.prompts.Message(
      "Configuration setting has been reverted back to default. Close application and restart.");
}

bool NamesConfiguration(const std::string& path) {
  const std::size_t position = path.find(".cfg");
  return position != std::string::npos && position >= 1;
}

}  // namespace cantorix
