// patient_io.cpp - a descriptor is looked at before it is used, and never for longer than a moment.
#include "batch/patient_io.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

// A signal that comes between the look at the flag and the wait costs a moment, no more.
void WaitFor(int descriptor, short event, const std::atomic<bool>& interrupted) {
  for (;;) {
    if (interrupted) throw Abandoned(AbandonReason::kCancelled);
    struct pollfd place {
      descriptor, event, 0
    };
    const int ready = ::poll(&place, 1, kMomentMs);
    if (ready > 0) return;
    if (ready < 0 && errno != EINTR && errno != EAGAIN) throw FileError(SystemReason(errno));
  }
}

bool MayTryAgain() { return errno == EINTR || errno == EAGAIN; }

}  // namespace

void WriteAll(int descriptor, std::string_view text, const std::atomic<bool>& interrupted) {
  while (!text.empty()) {
    WaitFor(descriptor, POLLOUT, interrupted);
    // A pipe that is ready takes so much without a wait.
    const ssize_t count =
        ::write(descriptor, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (!MayTryAgain()) {
      throw FileError(SystemReason(errno));
    }
  }
}

std::size_t ReadSome(int descriptor, std::span<char> out, const std::atomic<bool>& interrupted) {
  for (;;) {
    WaitFor(descriptor, POLLIN, interrupted);
    const ssize_t count = ::read(descriptor, out.data(), out.size());
    if (count >= 0) return static_cast<std::size_t>(count);
    if (!MayTryAgain()) throw FileError(SystemReason(errno));
  }
}

}  // namespace cantorix::batch
