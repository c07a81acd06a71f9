// background_sync.h - lets a file go through to its disk, which may take long, in a thread of its
// own: the one who writes the file does not wait.
#pragma once

#include <cstdint>
#include <memory>
#include <thread>

#include "platform/file.h"

namespace cantorix {

class BackgroundSync {
 public:
  BackgroundSync() = default;
  BackgroundSync(BackgroundSync&&) noexcept = default;
  BackgroundSync& operator=(BackgroundSync&&) = delete;
  // Waits for the end.
  ~BackgroundSync();

  // Begins with what stands in the file now, unless the one before is still on its way. Without a
  // thread it is done at once. `bytes` is what synced() gives when it was done. Throws FileError
  // when the file cannot be followed, and when the sync before failed.
  void Begin(const File& file, std::int64_t bytes);
  // Throws FileError when the last sync failed.
  std::int64_t synced() const;
  // Nobody waits for the one on its way any more.
  void LetGo() noexcept;

 private:
  struct Work;
  std::shared_ptr<Work> work_;
  std::thread thread_;
  std::int64_t synced_ = 0;
};

}  // namespace cantorix
