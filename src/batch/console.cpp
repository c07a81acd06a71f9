// console.cpp - the lines on standard error.
#include "batch/console.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <new>

#include "measure/printable.h"

namespace cantorix::batch {
namespace {

constexpr int kBarWidth = 24;

}  // namespace

void Console::Report(std::string_view file, std::string_view reason) noexcept {
  const std::lock_guard lock(mutex_);
  Clear();
  try {
    const std::string place = file.empty() ? "" : Printable(file) + ": ";
    std::fprintf(stderr, "cantorix-batch: %s%s\n", place.c_str(), Printable(reason).c_str());
  } catch (const std::bad_alloc&) {
    std::fputs("cantorix-batch: There is not enough memory.\n", stderr);
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
  std::fprintf(stderr, "\r\x1b[K[%s] %3.0f %% %s%s %s", bar.data(), shown * 100.0, count.c_str(),
               Printable(text).c_str(), Printable(file).c_str());
  std::fflush(stderr);
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
  std::fputs("\r\x1b[K", stderr);
  std::fflush(stderr);
  lineShown_ = false;
}

}  // namespace cantorix::batch
