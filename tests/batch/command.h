// command.h - runs the built batch program and gives back all that it said.
#pragma once

#include <string>
#include <vector>

namespace cantorix::batch {

struct CommandResult {
  int exitCode = -1;  // -1 when a signal ended it
  std::string out;
  std::string err;
};

std::string FileText(const std::string& path);

// Starts `cantorix-batch` with the given words; with `interruptAfterMs` it gets a SIGINT then.
CommandResult RunBatch(const std::vector<std::string>& words, int interruptAfterMs = 0);

}  // namespace cantorix::batch
