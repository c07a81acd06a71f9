// interrupt.cpp - the one place with state outside an object: a signal handler can reach no other.
#include "batch/interrupt.h"

#include <csignal>

namespace cantorix::batch {
namespace {

std::atomic<bool> signalled = false;
static_assert(std::atomic<bool>::is_always_lock_free);

void OnSignal(int) { signalled.store(true, std::memory_order_relaxed); }

}  // namespace

const std::atomic<bool>& WatchInterrupt() {
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  ::sigaction(SIGINT, &action, nullptr);
  ::sigaction(SIGTERM, &action, nullptr);
  // A full disk or a closed pipe is an error to report, not a reason to die.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  return signalled;
}

}  // namespace cantorix::batch
