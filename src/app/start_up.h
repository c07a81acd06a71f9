// start_up.h - what happens before the first window: directories, recent files, stored settings.
#pragma once

#include <string>

#include "app/application.h"

namespace cantorix {

enum class StartUpResult {
  kReady,
  kProfileRefused,  // the program directory could not be kept in the profile; the user was told
  kNoFolder,        // the user chose no other program directory
};

// Runs the start-up: the program directory from the profile or, on a first run, `currentDirectory`
// (absolute); a trial write there, with the folder chooser when it fails; the temporary directory;
// the clearing of what killed programs left there and beside the recent files; the recording rate;
// a configuration file of the defaults where none stands; the application's part of it. On any
// result but kReady the program must end.
StartUpResult StartUp(Application& application, const std::string& currentDirectory);

// Whether a small file can be written and deleted in `directory`. It is called "xxx", or "xxx1" and
// so on while such a name is taken, so that no file of the user's is touched.
bool CanWriteInto(const std::string& directory);

}  // namespace cantorix
