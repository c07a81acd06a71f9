// interrupt.h - Ctrl+C as a flag that long operations look at. A second one ends the program.
#pragma once

#include <atomic>

namespace cantorix::batch {

// Installs the handlers of SIGINT and SIGTERM; returns the flag that they set. The first thing that
// the program does, so that no interrupt finds it without. Takes no memory.
const std::atomic<bool>& WatchInterrupt();

// Where a remote file system is mounted, a server can keep the program waiting: then both
// interrupts are taken by a thread of their own. Before any other thread is begun. Throws
// std::bad_alloc.
void AnswerWhileHanging();

}  // namespace cantorix::batch
