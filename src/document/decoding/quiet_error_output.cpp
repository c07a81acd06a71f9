// quiet_error_output.cpp - the descriptor changed for another one and back.
#include "document/decoding/quiet_error_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <mutex>

namespace cantorix {
namespace {

// Of the process, as the descriptor is.
struct Silence {
  std::mutex mutex;
  int keepers = 0;
  int kept = -1;  // standard error as it was; -1: nothing was changed
};

Silence& TheSilence() {
  static Silence silence;
  return silence;
}

void BeginSilence(Silence& silence) {
  silence.kept = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
  if (silence.kept < 0) return;
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere >= 0) {
    std::fflush(stderr);
    ::dup2(nowhere, STDERR_FILENO);
    ::close(nowhere);
  }
}

void EndSilence(Silence& silence) {
  if (silence.kept < 0) return;
  std::fflush(stderr);
  ::dup2(silence.kept, STDERR_FILENO);
  ::close(silence.kept);
}

}  // namespace

QuietErrorOutput::QuietErrorOutput() {
  Silence& silence = TheSilence();
  const std::lock_guard lock(silence.mutex);
  if (silence.keepers++ == 0) BeginSilence(silence);
}

QuietErrorOutput::~QuietErrorOutput() {
  Silence& silence = TheSilence();
  const std::lock_guard lock(silence.mutex);
  if (--silence.keepers == 0) EndSilence(silence);
}

}  // namespace cantorix
