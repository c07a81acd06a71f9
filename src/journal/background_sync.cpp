// background_sync.cpp - one thread for each sync, with a descriptor of its own.
#include "journal/background_sync.h"

#include <atomic>
#include <exception>
#include <new>
#include <string>
#include <system_error>
#include <utility>

#include "platform/file_error.h"

namespace cantorix {

struct BackgroundSync::Work {
  Work(File duplicate, std::int64_t upTo) : file(std::move(duplicate)), bytes(upTo) {}

  void Run() noexcept {
    try {
      // Closed, and with that its lock gone, before anybody hears of it.
      File own = std::move(file);
      own.Sync();
    } catch (const std::exception& error) {
      hasFailed = true;
      SetReason(error);
    }
    isDone.store(true, std::memory_order_release);
  }

  // Without memory for the words the failure has none.
  void SetReason(const std::exception& error) noexcept {
    try {
      reason = error.what();
    } catch (const std::bad_alloc&) {
      reason.clear();
    }
  }

  File file;
  const std::int64_t bytes;
  bool hasFailed = false;  // to be read when it is done, and so is this:
  std::string reason;
  std::atomic<bool> isDone{false};
};

BackgroundSync::~BackgroundSync() {
  if (thread_.joinable()) thread_.join();
}

void BackgroundSync::LetGo() noexcept {
  if (thread_.joinable()) thread_.detach();
}

void BackgroundSync::Begin(const File& file, std::int64_t bytes) {
  if (work_ && !work_->isDone.load(std::memory_order_acquire)) return;
  synced_ = synced();
  if (thread_.joinable()) thread_.join();
  work_ = std::make_shared<Work>(file.Duplicate(), bytes);
  try {
    thread_ = std::thread([work = work_] { work->Run(); });
  } catch (const std::system_error&) {
    work_->Run();
  }
}

std::int64_t BackgroundSync::synced() const {
  if (!work_ || !work_->isDone.load(std::memory_order_acquire)) return synced_;
  if (work_->hasFailed) throw FileError(work_->reason);
  return work_->bytes;
}

}  // namespace cantorix
