// manual.cpp - where the manual is looked for, in order.
#include "app/manual.h"

#include <filesystem>

#include "platform/prompts.h"
#include "platform/services.h"

namespace cantorix {
namespace {

bool OpenIn(const std::string& directory, ShellOpener& opener) {
  const std::string path = directory + "/Manual/HelpIndex.html";
  std::error_code failure;
  return std::filesystem::is_regular_file(path, failure) && opener.Open(path);
}

}  // namespace

void OpenManual(const std::string& currentDirectory, ShellOpener& opener, Prompts& prompts,
                const std::string& installedDirectory) {
  if (OpenIn(currentDirectory, opener) || OpenIn(currentDirectory, opener)) return;
  if (!installedDirectory.empty() && OpenIn(installedDirectory, opener)) return;
  prompts.Message("No help file was found. Please contact the vendor.");
}

}  // namespace cantorix
