// faults_test.cpp - every operation under every fault: after it there is what there was or what
// there should be, it has said which, and nothing else is left: no file, no descriptor, no block of
// memory. CANTORIX_FAULTS=all goes through all of them (tools/faults.sh); otherwise a sample.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <set>

#include "faults/injection.h"
#include "faults/operations.h"
#include "support/temporary_folder.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace cantorix::faults {
namespace {

namespace fs = std::filesystem;

const char* const kCallNames[kCalls] = {"allocation", "write",     "read", "open",  "fsync",
                                        "rename",     "ftruncate", "mmap", "flock", "unlink"};
constexpr int kErrors[] = {ENOSPC, EIO, EDQUOT, EINTR, EMFILE};
constexpr std::size_t kMostComplaints = 12;  // of one operation

bool IsWhole() { return std::getenv("CANTORIX_FAULTS") != nullptr; }

std::string TextOf(const Fault& fault) {
  const char* const how = fault.isShort ? ", short" : fault.sticky ? ", and all after it" : "";
  return std::string(kCallNames[static_cast<int>(fault.call)]) + " " + std::to_string(fault.at) +
         " " + (fault.errorNumber != 0 ? ::strerrorname_np(fault.errorNumber) : "") + how;
}

// What a child process tells its parent, as it goes along.
struct Told {
  std::size_t at = 0;  // of the plan
  std::size_t complaints = 0;
  char text[100000] = "";
};

int OpenDescriptors() {
  return static_cast<int>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
}

std::set<std::string> FilesUnder(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    names.insert(entry.path().string().substr(folder.size()));
  }
  return names;
}

// One operation without a fault, and what each fault is compared with.
class Trials {
 public:
  Trials(const Operation& operation, std::string folder)
      : operation_(operation), folder_(std::move(folder)) {
    MakePlan();
  }
  const std::vector<Fault>& plan() const { return plan_; }
  const std::string& broken() const { return broken_; }

  // Empty, or what is wrong after the fault.
  std::string Try(const Fault& fault) {
    Renew();
    const int descriptors = OpenDescriptors();
    const std::int64_t blocks = LiveBlocks();
    std::string wrong = Judge(fault);
    if (wrong.empty()) {
      if (OpenDescriptors() != descriptors) wrong = "descriptors are left open";
      if (LiveBlocks() - blocks > (wrong.capacity() > 15 ? 1 : 0)) {
        wrong = std::to_string(LiveBlocks() - blocks) + " blocks of memory are lost";
      }
      if (fault.call != Call::kUnlink) wrong += WhatIsLeft();
    }
    return wrong;
  }

  // The same, where the fault has ended the process in which it was tried.
  std::string JudgeEnd(const Fault& fault, int status) {
    if (WIFSIGNALED(status)) {
      return std::string("it ended the program, ") + ::strsignal(WTERMSIG(status));
    }
    const bool mayEnd = operation_.wrongAfterEnd != nullptr && fault.call == Call::kAllocate;
    const std::string code = std::to_string(WEXITSTATUS(status));
    if (!mayEnd || code != "1") return "it ended the program with exit code " + code;
    const std::string wrong = operation_.wrongAfterEnd(folder_) + WhatIsLeft();
    return wrong.empty() ? "" : "it ended the program " + wrong;
  }

 private:
  void Renew() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  std::string WhatIsLeft() {
    std::string left;
    for (const std::string& name : FilesUnder(folder_)) {
      if (!filesAfter_.contains(name)) left += " left: " + name;
    }
    // Recordings and work are given up by their user alone.
    const bool isUsers = left.find("Recording-") + 1 != 0 || left.find(".journal") + 1 != 0;
    return isUsers ? "" : left;
  }

  std::string Judge(const Fault& fault) {
    const auto attempt = operation_.prepare(folder_);
    bool isDone = false;
    Arm(fault);
    try {
      isDone = attempt->Do();
    } catch (const std::exception& error) {
      Disarm();
      return std::string("an exception left it: ") + error.what();
    }
    Disarm();
    // What does not seem to fit into memory goes to the disk, and that is told.
    if (fault.call == Call::kMap && isDone) return "";
    return Verdict(*attempt, isDone, fault);
  }
  std::string Verdict(Attempt& attempt, bool isDone, const Fault& fault) const {
    const std::string state = attempt.State();
    const std::string text = attempt.lastText();
    if (isDone) {
      if (state != after_ && state != kInParts) return "done, and the result is not whole: " + text;
      // A warning: the file is there, perhaps not on disk; the edit is done, without undo;
      // the work is there, and its journal is not.
      const bool isWarning = text.find("perhaps not yet on disk") != std::string::npos ||
                             text.find("Undo is not available") != std::string::npos ||
                             text.find("would be lost in a crash") != std::string::npos;
      return attempt.told() > 0 && !isWarning ? "done, and it said: " + text : "";
    }
    if (attempt.told() == 0 && !operation_.isSilent) return "failed without a word";
    // Behind the writing there may be no memory for what follows: that is said, too.
    if (fault.call == Call::kAllocate && state == after_) return "";
    return state == before_ || state == kInParts ? "" : "failed, and all is not as before: " + text;
  }

  // Runs it without a fault and counts; the second time nothing is made for the first time.
  void MakePlan() {
    for (int call = 0; call < kCalls; ++call) {
      Renew();
      {
        const auto attempt = operation_.prepare(folder_);
        before_ = attempt->State();
        Arm({.call = static_cast<Call>(call)});
        const bool isDone = attempt->Do();
        const std::int64_t count = Disarm();
        after_ = attempt->State();
        if (!isDone || attempt->told() > 0) broken_ = "it does not run: " + attempt->lastText();
        AddFaults(static_cast<Call>(call), count);
      }
      filesAfter_ = FilesUnder(folder_);
    }
  }
  void AddFaults(Call call, std::int64_t count) {
    // A prime number of steps, so that each run of a loop is met somewhere else.
    const std::int64_t most = call == Call::kAllocate ? 13 : 5;
    const std::int64_t step = IsWhole() ? 1 : std::max<std::int64_t>(1, count / most);
    for (std::int64_t at = 1; at <= count; at += step) {
      if (call == Call::kAllocate && !operation_.freesWithoutMemory) break;
      if (call == Call::kAllocate) {
        plan_.push_back({call, at, 0, false});
        plan_.push_back({call, at, 0, true});
        continue;
      }
      for (int error = 0; error < std::ssize(kErrors); ++error) {
        if (!IsWhole() && at % std::ssize(kErrors) != error) continue;
        plan_.push_back({call, at, kErrors[error], false});
        if (kErrors[error] != EINTR) plan_.push_back({call, at, kErrors[error], true});
      }
      if (call == Call::kWrite || call == Call::kRead) plan_.push_back({call, at, 0, false, true});
    }
  }

  const Operation& operation_;
  const std::string folder_;
  std::string before_, after_, broken_;
  std::set<std::string> filesAfter_;
  std::vector<Fault> plan_;
};

void Complain(Told& told, const std::string& text) {
  const std::size_t used = std::char_traits<char>::length(told.text);
  std::snprintf(told.text + used, sizeof told.text - used, "  %s\n", text.c_str());
  ++told.complaints;
}

// In a process of its own, from where the one before it ended.
void RunChild(Trials& trials, Told& told) {
  for (; told.at < trials.plan().size() && told.complaints < kMostComplaints; ++told.at) {
    const Fault& fault = trials.plan()[told.at];
    const std::string wrong = trials.Try(fault);
    if (!wrong.empty()) Complain(told, TextOf(fault) + ": " + wrong);
  }
#if defined(__SANITIZE_ADDRESS__)
  if (__lsan_do_recoverable_leak_check() != 0) Complain(told, "memory is lost");
#endif
  ::_exit(0);
}

class Faults : public testing::TestWithParam<Operation> {};

TEST_P(Faults, LeaveOneWholeAndSayWhich) {
  const TemporaryFolder folder;
  Trials trials(GetParam(), folder.path() + "/trial/");
  ASSERT_EQ(trials.broken(), "");
  void* const shared =
      ::mmap(nullptr, sizeof(Told), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  Told& told = *new (shared) Told;
  while (told.at < trials.plan().size() && told.complaints < kMostComplaints) {
    const pid_t child = ::fork();
    if (child == 0) RunChild(trials, told);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) break;
    const Fault& fault = trials.plan()[told.at];
    const std::string wrong = trials.JudgeEnd(fault, status);
    if (!wrong.empty()) Complain(told, TextOf(fault) + ": " + wrong);
    ++told.at;
  }
  EXPECT_EQ(told.complaints, 0U) << GetParam().name << ":\n" << told.text;
  RecordProperty("faults", static_cast<int>(trials.plan().size()));
  if (IsWhole()) std::printf("%6zu faults: %s\n", trials.plan().size(), GetParam().name.c_str());
  ::munmap(shared, sizeof(Told));
}

std::vector<Operation> Chosen() {
  auto operations = Operations();
  if (!IsWhole()) std::erase_if(operations, [](const Operation& one) { return !one.inSample; });
  return operations;
}

std::string NameOf(const testing::TestParamInfo<Operation>& info) {
  std::string name = info.param.name;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Of, Faults, testing::ValuesIn(Chosen()), NameOf);

}  // namespace
}  // namespace cantorix::faults
