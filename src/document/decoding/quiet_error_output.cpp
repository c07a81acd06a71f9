// quiet_error_output.cpp - the descriptor changed for another one and back.
#include "document/decoding/quiet_error_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace cantorix {

QuietErrorOutput::QuietErrorOutput() : kept_(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)) {
  if (kept_ < 0) return;
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere >= 0) {
    std::fflush(stderr);
    ::dup2(nowhere, STDERR_FILENO);
    ::close(nowhere);
  }
}

QuietErrorOutput::~QuietErrorOutput() {
  if (kept_ < 0) return;
  std::fflush(stderr);
  ::dup2(kept_, STDERR_FILENO);
  ::close(kept_);
}

}  // namespace cantorix
