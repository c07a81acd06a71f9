// manual.cpp - two tries to open the manual.
#include "app/manual.h"

#include <filesystem>

#include "platform/prompts.h"
#include "platform/services.h"

namespace cantorix {

void OpenManual(const std::string& currentDirectory, ShellOpener& opener, Prompts& prompts) {
  const std::string path = currentDirectory + "/Manual/HelpIndex.html";
  const auto tryOnce = [&] {
    std::error_code failure;
    return std::filesystem::is_regular_file(path, failure) && opener.Open(path);
  };
  if (tryOnce() || tryOnce()) return;
  prompts.Message("No help file was found. Please contact the vendor.");
}

}  // namespace cantorix
