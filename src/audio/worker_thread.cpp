// worker_thread.cpp - join with a limit.
#include "audio/worker_thread.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <utility>

namespace cantorix {

struct WorkerThread::End {
  std::mutex mutex;
  std::condition_variable reached;
  bool isReached = false;
};

WorkerThread::~WorkerThread() { Finish(std::chrono::milliseconds(0)); }

bool WorkerThread::Start(std::function<void()> body) {
  auto end = std::make_shared<End>();
  try {
    thread_ = std::thread([end, body = std::move(body)] {
      body();
      const std::lock_guard lock(end->mutex);
      end->isReached = true;
      end->reached.notify_all();
    });
  } catch (const std::system_error&) {
    return false;
  }
  end_ = std::move(end);
  return true;
}

bool WorkerThread::Finish(std::chrono::milliseconds patience) {
  if (!thread_.joinable()) return true;
  std::unique_lock lock(end_->mutex);
  const bool ended = end_->reached.wait_for(lock, patience, [this] { return end_->isReached; });
  lock.unlock();
  if (ended) {
    thread_.join();
  } else {
    thread_.detach();
  }
  return ended;
}

}  // namespace cantorix
