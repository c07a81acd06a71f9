// console.cpp - the lines on standard error.
#include "batch/console.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <new>

#include "measure/printable.h"

namespace cantorix::batch {
namespace {

constexpr int kBarWidth = 24;

// Standard error once more, as little held back as that; null when it cannot be had.
StdioFile OpenErrorOutput() {
  const int descriptor = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
  if (descriptor < 0) return nullptr;
  StdioFile file(::fdopen(descriptor, "w"));
  if (file) {
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
  } else {
    ::close(descriptor);
  }
  return file;
}

}  // namespace

Console::Console(bool showProgress)
    : own_(OpenErrorOutput()), out_(own_ ? own_.get() : stderr), showProgress_(showProgress) {}

void Console::Report(std::string_view file, std::string_view reason) noexcept {
  const std::lock_guard lock(mutex_);
  Clear();
  try {
    const std::string place = file.empty() ? "" : Printable(file) + ": ";
    std::fprintf(out_, "cantorix-batch: %s%s\n", place.c_str(), Printable(reason).c_str());
  } catch (const std::bad_alloc&) {
    std::fputs("cantorix-batch: There is not enough memory.\n", out_);
  }
}

void Console::ShowProgress(std::string_view file, std::string_view text, double fraction) {
  const std::lock_guard lock(mutex_);
  if (!showProgress_) return;
  const double shown = std::isfinite(fraction) ? std::clamp(fraction, 0.0, 1.0) : 0.0;
  std::array<char, kBarWidth + 1> bar{};
  for (int i = 0; i < kBarWidth; ++i) {
    bar[static_cast<std::size_t>(i)] = i < shown * kBarWidth ? '#' : '.';
  }
  std::string count;
  if (fileCount_ > 1) {
    count = std::to_string(filesDone_ + 1) + "/" + std::to_string(fileCount_) + " ";
  }
  std::fprintf(out_, "\r\x1b[K[%s] %3.0f %% %s%s %s", bar.data(), shown * 100.0, count.c_str(),
               Printable(text).c_str(), Printable(file).c_str());
  std::fflush(out_);
  lineShown_ = true;
}

void Console::ClearProgress() {
  const std::lock_guard lock(mutex_);
  Clear();
}

void Console::FileDone() {
  const std::lock_guard lock(mutex_);
  ++filesDone_;
}

void Console::Clear() {
  if (!lineShown_) return;
  std::fputs("\r\x1b[K", out_);
  std::fflush(out_);
  lineShown_ = false;
}

}  // namespace cantorix::batch
