// start_up.cpp - the steps of the start-up, in their order.
#include "app/start_up.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <set>

#include "app/configuration_commands.h"
#include "mainview/leftover_files.h"
#include "platform/descriptor.h"
#include "platform/file_error.h"
#include "platform/prompts.h"
#include "platform/services.h"
#include "settings/config_file.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr const char* kFolderSection = "General Strings Section";
constexpr const char* kFolderEntry = "Temp Directory";
constexpr const char* kChooserStart = "/";
constexpr double kFirstRecordingRateHz = 11025.0;
constexpr int kTrialNames = 100;

constexpr const char* kProfileMessage =
    "Unable to update the system registry.\n"
    "Please contact your system administrator and/or the vender.";
constexpr const char* kAccessMessage =
    "Application was not able to access the default temperorily folder to read and write files. "
    "This function is necessary part of operation.\n"
    "This may be due to not having enough access priviledges on your account.\n"
    "Please select from the following box another suitable location, or contact your system "
    "administrator.";

// A directory as the application holds it: no separator at its end, unless it is the root.
std::string WithoutSeparator(std::string directory) {
  while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
  return directory;
}

// Whether `keep` did what it has to do with the profile. The user is told when not: one that cannot
// be read must not be taken for an empty one and written anew.
template <typename Keep>
bool WithProfile(Application& application, const Keep& keep) {
  try {
    if (keep(application.profile())) return true;
  } catch (const FileError&) {
    // What is wrong with it stands in no message of the start.
  }
  application.prompts().Message(kProfileMessage);
  return false;
}

// Makes `directory` the program directory and keeps it for the later runs. A profile that does not
// give it back is shown as a failure.
bool AdoptDirectory(Application& application, const std::string& directory) {
  application.host.programDirectory = WithoutSeparator(directory);
  const std::string& kept = application.host.programDirectory;
  return WithProfile(application, [&](ProfileStore& profile) {
    return profile.WriteText(kFolderSection, kFolderEntry, kept) &&
           profile.ReadText(kFolderSection, kFolderEntry) == kept;
  });
}

bool FixProgramDirectory(Application& application, const std::string& currentDirectory) {
  std::optional<std::string> stored;
  const auto read = [&](const ProfileStore& profile) {
    stored = profile.ReadText(kFolderSection, kFolderEntry);
    return true;
  };
  if (!WithProfile(application, read)) return false;
  if (!stored || stored->empty()) return AdoptDirectory(application, currentDirectory);
  application.host.programDirectory = WithoutSeparator(*stored);
  return true;
}

// Kept: the folder that the user chooses is taken without a trial of its own; what cannot be
// written there later is reported then.
StartUpResult ReplaceDirectory(Application& application) {
  application.prompts().Message(kAccessMessage);
  const auto chosen = application.prompts().ChooseFolder(kChooserStart);
  if (!chosen) return StartUpResult::kNoFolder;
  return AdoptDirectory(application, *chosen) ? StartUpResult::kReady
                                              : StartUpResult::kProfileRefused;
}

// Without the folder, editing and recording say that their files cannot be made.
void MakeTemporaryDirectory(Application& application) {
  application.temporaryDirectory = application.host.programDirectory + "/tmp/";
  std::error_code reportedLater;
  std::filesystem::create_directory(application.temporaryDirectory, reportedLater);
}

// Without a file an option dialog keeps nothing, so a first run begins with that of the defaults.
void MakeFirstConfiguration(const Application& application) {
  const std::string path = ConfigPath(application.host.programDirectory);
  std::error_code unreadable;
  if (std::filesystem::exists(path, unreadable)) return;
  // A folder that refuses it was taken untried; the run goes on with the defaults.
  WriteConfiguration(path, {{}, DefaultDocumentSettings()});
}

void ClearLeftovers(const Application& application) {
  ClearTemporaryFiles(application.host.programDirectory, application.temporaryDirectory);
  std::set<std::string> folders;
  for (const std::string& path : application.recentFiles.paths()) {
    folders.insert(std::filesystem::path(path).parent_path().string());
  }
  for (const std::string& folder : folders) ClearUnfinishedSaves(folder);
}

}  // namespace

StartUpResult StartUp(Application& application, const std::string& currentDirectory) {
  application.recentFiles.Load();
  if (!FixProgramDirectory(application, currentDirectory)) return StartUpResult::kProfileRefused;
  if (!CanWriteInto(application.host.programDirectory)) {
    const StartUpResult result = ReplaceDirectory(application);
    if (result != StartUpResult::kReady) return result;
  }
  MakeTemporaryDirectory(application);
  ClearLeftovers(application);
  application.host.recordingRateHz = kFirstRecordingRateHz;
  MakeFirstConfiguration(application);
  ReadApplicationSettings(application.host);
  return StartUpResult::kReady;
}

bool CanWriteInto(const std::string& directory) {
  if (directory.empty()) return false;
  std::string path = directory + "/xxx";
  Descriptor file = OpenAt(AT_FDCWD, path, O_WRONLY | O_CREAT | O_EXCL, 0666);
  for (int i = 1; !file.isOpen() && errno == EEXIST && i < kTrialNames; ++i) {
    path = directory + "/xxx" + std::to_string(i);
    file = OpenAt(AT_FDCWD, path, O_WRONLY | O_CREAT | O_EXCL, 0666);
  }
  if (!file.isOpen()) return false;
  static constexpr char kTrial[] = "0123456789";
  constexpr std::size_t kTrialBytes = sizeof kTrial - 1;
  const bool written =
      ::write(file.number(), kTrial, kTrialBytes) == static_cast<ssize_t>(kTrialBytes);
  return ::unlink(path.c_str()) == 0 && written;
}

}  // namespace cantorix
