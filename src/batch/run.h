// run.h - what the files of one call of the program have in common.
#pragma once

#include <atomic>
#include <string>

#include "batch/console.h"
#include "batch/request.h"

namespace cantorix {
struct Settings;
}

namespace cantorix::batch {

// What all files of a run share, read-only but for the console.
struct Run {
  const Request& request;
  const Settings& settings;      // from the record and the options
  std::string programDirectory;  // for the disk stores
  Console& console;
  const std::atomic<bool>& interrupted;
};

}  // namespace cantorix::batch
