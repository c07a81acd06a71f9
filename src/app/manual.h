// manual.h - Help Topics, and the pages of single windows.
#pragma once

#include <string>

namespace cantorix {

class Prompts;
class ShellOpener;

inline constexpr const char* kManualIndex = "HelpIndex.html";

// Opens the page, "Manual/HelpIndex.html" under `currentDirectory`, the process's directory of this
// moment. A file that is not there or does not open is tried once more, then the one under
// `installedDirectory` (empty: none); a page that is nowhere gives way to the index; then the user
// is told.
void OpenManual(const std::string& currentDirectory, ShellOpener& opener, Prompts& prompts,
                const std::string& installedDirectory = {}, const std::string& page = kManualIndex);

}  // namespace cantorix
