// console.h - one line at a time on standard error, shared by all files that are worked on: the
// errors, and on a terminal a progress line that they do not tear.
#pragma once

#include <cstdio>
#include <mutex>
#include <string>
#include <string_view>

#include "batch/stdio_file.h"

namespace cantorix::batch {

class Console {
 public:
  // `showProgress` when standard error is a terminal.
  // Lines go to standard error as it is now, whatever becomes of its descriptor later: a decoder
  // that is kept quiet takes no line of another file along.
  explicit Console(bool showProgress);
  // Before the first file: how many are to come.
  void Expect(std::size_t fileCount) { fileCount_ = fileCount; }

  // "cantorix-batch: FILE: reason", on one printable line whatever the two hold. Never throws:
  // without memory for the line it says that there is none.
  void Report(std::string_view file, std::string_view reason) noexcept;
  void ShowProgress(std::string_view file, std::string_view text, double fraction);
  // Wipes the progress line, so that other output can follow.
  void ClearProgress();
  void FileDone();
  bool showsProgress() const { return showProgress_; }

 private:
  void Clear();

  StdioFile own_;
  std::FILE* out_;  // that, or standard error itself
  std::mutex mutex_;
  std::size_t fileCount_ = 0;
  std::size_t filesDone_ = 0;
  bool showProgress_;
  bool lineShown_ = false;
};

}  // namespace cantorix::batch
