// traced_run.h - runs a program under the eye of the tracer, counts its system calls, and sends it
// an interrupt when it is about to make one of them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cantorix::interrupt {

struct TracedRun {
  int exitCode = -1;           // -1 when a signal ended it
  std::int64_t calls = 0;      // system calls of the main thread until its end or the interrupt
  std::int64_t listening = 0;  // the call with which it began to watch for interrupts; 0: none
};

// Standard output and error go to the files `out` and `err`, which are emptied first. With
// `interruptAt` above 0 the program gets a SIGINT before that call is made. Throws
// std::system_error when the system refuses to trace.
TracedRun RunTraced(const std::vector<std::string>& words, const std::string& out,
                    const std::string& err, std::int64_t interruptAt);

}  // namespace cantorix::interrupt
