// run.h - what the files of one call of the program have in common.
#pragma once

#include <algorithm>
#include <atomic>
#include <string>

#include "batch/console.h"
#include "batch/request.h"
#include "platform/workers.h"

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

// The threads that compute at one time, of which `jobs` are at work on a file each.
inline Workers WorkersFor(const Request& request, int jobs) {
  const int threads = request.threads > 0 ? request.threads : ProcessorCount();
  return Workers(std::max(threads, jobs), jobs);
}

}  // namespace cantorix::batch
