// file_open.h - the File Open dialog's request. Which reader takes the file is decided by its
// content, whatever type was chosen.
#pragma once

#include <optional>
#include <string>

#include "app/application.h"

namespace cantorix {

// The types of the dialog: thirteen of old, the formats of today, and all of them together.
std::string OpenFilter();

// Asks for a recording, offering the type chosen last, and remembers the type for the run. Nothing
// when the user cancels.
std::optional<std::string> ChooseRecording(Application& application);

}  // namespace cantorix
