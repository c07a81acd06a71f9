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

// Runs `cantorix-batch` with the given words.
CommandResult RunBatch(const std::vector<std::string>& words);

}  // namespace cantorix::batch
