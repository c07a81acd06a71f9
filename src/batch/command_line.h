// command_line.h - the command line, read into a request.
#pragma once

#include <optional>
#include <string>

#include "batch/request.h"

namespace cantorix::batch {

struct CommandLine {
  std::optional<Request> request;  // nothing when there is nothing to do
  int exitCode = 0;                // then: 0 after a help text, 2 after a wrong usage
};

// Help goes to standard output, a wrong usage to standard error as one line.
CommandLine ParseCommandLine(int argc, const char* const* argv);

}  // namespace cantorix::batch
