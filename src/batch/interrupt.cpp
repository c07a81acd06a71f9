// interrupt.cpp - the one place with state outside an object: a signal handler can reach no other.
#include "batch/interrupt.h"

#include <csignal>
#include <fstream>
#include <system_error>
#include <thread>

#include "platform/file_systems.h"

namespace cantorix::batch {
namespace {

std::atomic<bool> signalled = false;
static_assert(std::atomic<bool>::is_always_lock_free);

void OnSignal(int) { signalled.store(true, std::memory_order_relaxed); }

// A thread that waits in vain for a server takes no signal, not even a second one, so another
// thread waits for them: it ends the program at the second.
void WaitForSignals(const sigset_t& signals) {
  int number = 0;
  ::sigwait(&signals, &number);
  OnSignal(number);
  ::sigwait(&signals, &number);
  std::signal(number, SIG_DFL);
  ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
  ::raise(number);
}

void WatchFromAnotherThread() {
  sigset_t signals;
  ::sigemptyset(&signals);
  ::sigaddset(&signals, SIGINT);
  ::sigaddset(&signals, SIGTERM);
  ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);  // also in all threads that are begun later
  try {
    std::thread([signals] { WaitForSignals(signals); }).detach();
  } catch (const std::system_error&) {
    ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);  // then only between two calls
  }
}

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

void AnswerWhileHanging() {
  std::ifstream mounts("/proc/self/mounts");
  if (HasRemoteFileSystem(mounts)) WatchFromAnotherThread();
}

}  // namespace cantorix::batch
