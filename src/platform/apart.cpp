// apart.cpp - one thread for each call: beside a network its beginning costs nothing.
#include "platform/apart.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/progress.h"

namespace cantorix {
namespace {

constexpr std::chrono::milliseconds kUnnoticed{200};
constexpr std::chrono::milliseconds kBetweenLooks{30};

// What both threads know of the call; the last one of them that goes takes it along.
class Call {
 public:
  explicit Call(std::function<void()> work) : work_(std::move(work)) {}

  void Make() {
    std::exception_ptr failure;
    try {
      work_();
    } catch (...) {
      failure = std::current_exception();
    }
    const std::lock_guard lock(mutex_);
    failure_ = std::move(failure);
    isDone_ = true;
    done_.notify_one();
  }
  // Whether it has come back by then.
  bool Wait(std::chrono::milliseconds longest) {
    std::unique_lock lock(mutex_);
    return done_.wait_for(lock, longest, [this] { return isDone_; });
  }
  // Behind its end.
  void ThrowFailure() {
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  }

 private:
  std::function<void()> work_;
  std::mutex mutex_;
  std::condition_variable done_;
  bool isDone_ = false;
  std::exception_ptr failure_;
};

std::thread Begin(const std::shared_ptr<Call>& call) {
  try {
    return std::thread([call] { call->Make(); });
  } catch (const std::system_error&) {
    return {};
  }
}

// True when the user gave up.
bool IsGivenUp(Call& call, const Patience& patience) {
  if (call.Wait(kUnnoticed)) return false;
  ProgressScope status(patience.progress, patience.text, 0.0);
  while (!call.Wait(kBetweenLooks)) {
    if (status.Cancelled(0.0)) return true;
  }
  return false;
}

struct Thread {
  explicit Thread(std::thread begun) : thread(std::move(begun)) {}
  // Nobody has waited for its end: it stays behind.
  ~Thread() {
    if (thread.joinable()) thread.detach();
  }
  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;

  std::thread thread;
};

}  // namespace

void DoApart(const Patience& patience, std::function<void()> work) {
  const auto call = std::make_shared<Call>(std::move(work));
  Thread apart(Begin(call));
  if (!apart.thread.joinable()) call->Make();
  if (IsGivenUp(*call, patience)) throw Abandoned(AbandonReason::kCancelled);
  if (apart.thread.joinable()) apart.thread.join();
  call->ThrowFailure();
}

}  // namespace cantorix
