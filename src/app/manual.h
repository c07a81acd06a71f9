// manual.h - Help Topics.
#pragma once

#include <string>

namespace cantorix {

class Prompts;
class ShellOpener;

// Opens "Manual/HelpIndex.html" under `currentDirectory`, the process's directory of this moment. A
// file that is not there or does not open is tried once more, then the one under
// `installedDirectory` (empty: none); then the user is told.
void OpenManual(const std::string& currentDirectory, ShellOpener& opener, Prompts& prompts,
                const std::string& installedDirectory = {});

}  // namespace cantorix
