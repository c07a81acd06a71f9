// interrupt.h - Ctrl+C as a flag that long operations look at. A second one ends the program.
#pragma once

#include <atomic>

namespace cantorix::batch {

// Installs the handlers of SIGINT and SIGTERM; returns the flag that they set. The first thing that
// the program does, so that no interrupt finds it without.
const std::atomic<bool>& WatchInterrupt();

}  // namespace cantorix::batch
