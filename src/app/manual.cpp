// manual.cpp - where the manual is looked for, in order.
#include "app/manual.h"

#include <filesystem>

#include "platform/prompts.h"
#include "platform/services.h"

namespace cantorix {
namespace {

bool OpenIn(const std::string& directory, const std::string& page, ShellOpener& opener) {
  const std::string path = directory + "/Manual/" + page;
  std::error_code failure;
  return std::filesystem::is_regular_file(path, failure) && opener.Open(path);
}

}  // namespace

void OpenManual(const std::string& currentDirectory, ShellOpener& opener, Prompts& prompts,
                const std::string& installedDirectory, const std::string& page) {
  for (const std::string& wanted : {page, std::string(kManualIndex)}) {
    if (OpenIn(currentDirectory, wanted, opener) || OpenIn(currentDirectory, wanted, opener))
      return;
    if (!installedDirectory.empty() && OpenIn(installedDirectory, wanted, opener)) return;
    if (page == kManualIndex) break;
  }
  prompts.Message("No help file was found. Please contact the vendor.");
}

}  // namespace cantorix
