// own_output.h - keeping an output from taking the place of a recording that it was made from.
#pragma once

#include <string>

#include "batch/session.h"

namespace cantorix::batch {

// Each throws WrongUsage, naming the file, unless --force is given.

// For a table: it may not take the place of any recording of the run.
void RequireNoRecording(const Request& request, const std::string& output);
// For a recording: it may take its own place, but not that of a foreign file, which would lose what
// only the foreign file can hold.
void RequireNotForeign(Session& session);

}  // namespace cantorix::batch
