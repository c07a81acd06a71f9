// run_settings.h - the settings of a run: the defaults, overlaid by the program directory's
// configuration file, by the record that --config names, and by the fields that options set.
#pragma once

#include <string>

#include "batch/request.h"
#include "settings/settings.h"

namespace cantorix::batch {

// Throws FileError for a record that cannot be read, WrongUsage for a field that does
// not exist or a text that is no value for it.
Settings RunSettings(const Request& request, const std::string& programDirectory);

}  // namespace cantorix::batch
