// deadline_thread.cpp - a queue of calls and the detached thread that works it off.
#include "audio/deadline_thread.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace cantorix {

struct DeadlineThread::Call {
  std::function<bool()> work;
  std::function<void()> undo;
  bool isDone = false;
  bool result = false;
  bool isGivenUp = false;
};

struct DeadlineThread::State {
  std::mutex mutex;
  std::condition_variable wake;
  std::condition_variable done;
  std::deque<std::shared_ptr<Call>> calls;
  bool isStarted = false;
  bool ends = false;
  bool isStuck = false;
};

DeadlineThread::DeadlineThread() : state_(std::make_shared<State>()) {}

DeadlineThread::~DeadlineThread() {
  const std::lock_guard lock(state_->mutex);
  state_->ends = true;
  state_->wake.notify_one();
}

// The state is locked. Throws std::system_error when there is no thread to be had.
void DeadlineThread::Add(const std::shared_ptr<Call>& call) {
  if (!state_->isStarted) {
    std::thread([state = state_] { Serve(state); }).detach();
    state_->isStarted = true;
  }
  state_->calls.push_back(call);
  state_->wake.notify_one();
}

bool DeadlineThread::Run(std::function<bool()> work, std::chrono::milliseconds deadline,
                         std::function<void()> undo) {
  const auto call = std::make_shared<Call>();
  call->work = std::move(work);
  call->undo = std::move(undo);
  std::unique_lock lock(state_->mutex);
  if (state_->isStuck) return false;
  try {
    Add(call);
  } catch (const std::system_error&) {
    return false;
  }
  if (state_->done.wait_for(lock, deadline, [&] { return call->isDone; })) return call->result;
  call->isGivenUp = true;
  state_->isStuck = true;
  return false;
}

void DeadlineThread::Post(std::function<void()> work) {
  const auto call = std::make_shared<Call>();
  call->work = [work = std::move(work)] {
    work();
    return true;
  };
  const std::lock_guard lock(state_->mutex);
  try {
    Add(call);
  } catch (const std::system_error&) {
    return;  // without a thread nothing was ever begun that could need this
  }
}

bool DeadlineThread::isAnswering() const {
  const std::lock_guard lock(state_->mutex);
  return !state_->isStuck;
}

void DeadlineThread::Serve(const std::shared_ptr<State>& state) {
  std::unique_lock lock(state->mutex);
  for (;;) {
    state->wake.wait(lock, [&] { return state->ends || !state->calls.empty(); });
    if (state->calls.empty()) return;
    std::shared_ptr<Call> call = state->calls.front();
    state->calls.pop_front();
    if (!call->isGivenUp || !call->undo) {
      lock.unlock();
      const bool result = call->work();
      lock.lock();
      call->result = result;
      if (call->isGivenUp && result && call->undo) {
        lock.unlock();
        call->undo();
        lock.lock();
      }
    }
    call->isDone = true;
    // Back, and with nobody's call still waiting behind.
    if (state->calls.empty()) state->isStuck = false;
    state->done.notify_all();
    // It may hold the last owner of this very thread.
    lock.unlock();
    call.reset();
    lock.lock();
  }
}

}  // namespace cantorix
