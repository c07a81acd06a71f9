// sound_notices.h - texts for the user from the threads of sound. Workers put them in and never
// show anything; the interface thread takes them out when it has time for a message.
#pragma once

#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace cantorix {

class NoticeSink {
 public:
  virtual ~NoticeSink() = default;
  // From any thread.
  virtual void Notice(const std::string& text) = 0;
};

// Each text once per recording or playback, in the order in which they came.
class SoundNotices : public NoticeSink {
 public:
  void Notice(const std::string& text) override {
    const std::lock_guard lock(mutex_);
    if (told_.insert(text).second) waiting_.push_back(text);
  }

  // From here on every text counts as new. What waits stays.
  void BeginRun() {
    const std::lock_guard lock(mutex_);
    told_.clear();
  }

  // Whether this run has told nothing.
  bool isSilent() {
    const std::lock_guard lock(mutex_);
    return told_.empty();
  }

  // The texts that came since the last call.
  std::vector<std::string> Take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(waiting_, {});
  }

 private:
  std::mutex mutex_;
  std::set<std::string> told_;
  std::vector<std::string> waiting_;
};

}  // namespace cantorix
