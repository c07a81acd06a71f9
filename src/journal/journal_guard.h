// journal_guard.h - what writes a journal may fail at any time: it goes no further then, and the
// user is told once.
#pragma once

#include <new>
#include <optional>
#include <string>

#include "platform/file_error.h"

namespace cantorix {

class JournalGuard {
 public:
  // Does `work`; false when it failed, now or before.
  template <typename Work>
  bool Do(const Work& work) {
    if (failed_) return false;
    try {
      work();
    } catch (const FileError& error) {
      failed_ = true;
      reason_ = error.what();
    } catch (const std::bad_alloc&) {
      failed_ = true;
      reason_.clear();
    }
    return !failed_;
  }

  bool failed() const { return failed_; }

  // After a failure the sentence that `begin` gives with the reason behind it, once. Where memory
  // does not suffice for it, the next call tells.
  template <typename Begin>
  std::optional<std::string> Tell(const Begin& begin) {
    if (!failed_ || isTold_) return std::nullopt;
    try {
      auto text = begin() + (reason_.empty() ? "There is not enough memory." : reason_);
      isTold_ = true;
      return text;
    } catch (const std::bad_alloc&) {
      return std::nullopt;
    }
  }

 private:
  bool failed_ = false;
  bool isTold_ = false;
  std::string reason_;  // of the failure; empty for want of memory
};

}  // namespace cantorix
