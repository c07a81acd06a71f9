// background_sync.cpp - one thread for each sync, with a descriptor of its own.
#include "journal/background_sync.h"

#include <condition_variable>
#include <mutex>
#include <new>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/file_error.h"

namespace cantorix {

struct BackgroundSync::Work {
  Work(File duplicate, std::int64_t upTo) : file(std::move(duplicate)), bytes(upTo) {}

  void Run() noexcept {
    std::string why;
    try {
      // Closed, and with that its lock gone, before anybody hears of it.
      File own = std::move(file);
      own.Sync();
    } catch (const FileError& error) {
      why = error.what();
    }
    const std::lock_guard lock(mutex);
    reason = std::move(why);
    isDone = true;
    done.notify_all();
  }

  File file;
  const std::int64_t bytes;
  std::mutex mutex;
  std::condition_variable done;
  bool isDone = false;
  std::string reason;  // why it failed
};

BackgroundSync::~BackgroundSync() {
  if (!work_) return;
  std::unique_lock lock(work_->mutex);
  work_->done.wait(lock, [this] { return work_->isDone; });
}

void BackgroundSync::Begin(const File& file, std::int64_t bytes) {
  if (work_) {
    const std::lock_guard lock(work_->mutex);
    if (!work_->isDone) return;
  }
  synced_ = synced();
  work_ = std::make_shared<Work>(file.Duplicate(), bytes);
  try {
    std::thread([work = work_] { work->Run(); }).detach();
  } catch (const std::system_error&) {
    work_->Run();
  }
}

std::int64_t BackgroundSync::synced() const {
  if (!work_) return synced_;
  const std::lock_guard lock(work_->mutex);
  if (!work_->reason.empty()) throw FileError(work_->reason);
  return work_->isDone ? work_->bytes : synced_;
}

}  // namespace cantorix
