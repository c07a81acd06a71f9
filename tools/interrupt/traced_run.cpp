// traced_run.cpp - one stop where a call begins, one where it ends; only the first counts.
#include "interrupt/traced_run.h"

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace cantorix::interrupt {
namespace {

constexpr int kSyscallStop = SIGTRAP | 0x80;

[[noreturn]] void Fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

void Redirect(const std::string& path, int descriptor) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (file < 0 || ::dup2(file, descriptor) < 0) ::_exit(126);
}

[[noreturn]] void BecomeTraced(const std::vector<std::string>& words, const std::string& out,
                               const std::string& err) {
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (const std::string& word : words) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);
  Redirect(out, STDOUT_FILENO);
  Redirect(err, STDERR_FILENO);
  if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(125);
  ::raise(SIGSTOP);
  ::execv(argv[0], argv.data());
  ::_exit(127);
}

class Tracer {
 public:
  Tracer(pid_t child, std::int64_t interruptAt) : child_(child), interruptAt_(interruptAt) {}

  TracedRun Follow() {
    Wait();
    const long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL;
    if (::ptrace(PTRACE_SETOPTIONS, child_, nullptr, options) != 0) Fail("PTRACE_SETOPTIONS");
    for (Continue(0); !WIFEXITED(status_) && !WIFSIGNALED(status_);) OneStop();
    if (WIFEXITED(status_)) run_.exitCode = WEXITSTATUS(status_);
    return run_;
  }

 private:
  void Wait() {
    if (::waitpid(child_, &status_, 0) != child_) Fail("waitpid");
  }
  void Continue(int signal) {
    // Once it is interrupted its calls are of no interest.
    const auto how = interrupted_ ? PTRACE_CONT : PTRACE_SYSCALL;
    if (::ptrace(how, child_, nullptr, signal) != 0 && errno != ESRCH) Fail("PTRACE_SYSCALL");
    Wait();
  }
  void OneStop() {
    const int signal = WSTOPSIG(status_);
    if (signal == kSyscallStop) {
      LookAtCall();
      Continue(0);
    } else {
      interrupted_ = interrupted_ || signal == SIGINT;
      Continue(signal == SIGTRAP ? 0 : signal);  // the trap of exec is the tracer's own
    }
  }
  void LookAtCall() {
    struct __ptrace_syscall_info info {};
    if (::ptrace(PTRACE_GET_SYSCALL_INFO, child_, sizeof info, &info) < 0) {
      Fail("PTRACE_GET_SYSCALL_INFO");
    }
    if (info.op != PTRACE_SYSCALL_INFO_ENTRY) return;
    ++run_.calls;
    const bool watches = info.entry.nr == SYS_rt_sigaction && info.entry.args[0] == SIGINT;
    if (watches && run_.listening == 0) run_.listening = run_.calls;
    if (run_.calls == interruptAt_) ::kill(child_, SIGINT);
  }

  pid_t child_;
  std::int64_t interruptAt_;
  bool interrupted_ = false;
  int status_ = 0;
  TracedRun run_;
};

}  // namespace

TracedRun RunTraced(const std::vector<std::string>& words, const std::string& out,
                    const std::string& err, std::int64_t interruptAt) {
  const pid_t child = ::fork();
  if (child < 0) Fail("fork");
  if (child == 0) BecomeTraced(words, out, err);
  return Tracer(child, interruptAt).Follow();
}

}  // namespace cantorix::interrupt
