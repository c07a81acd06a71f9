// console_progress.cpp - the bar appears after a moment and moves ten times a second.
#include "batch/console_progress.h"

#include <string>

namespace cantorix::batch {
namespace {

constexpr auto kFirstShow = std::chrono::milliseconds(300);
constexpr auto kInterval = std::chrono::milliseconds(100);

}  // namespace

void ConsoleProgress::Begin(std::string_view text, double totalUnits) {
  // The hint in brackets speaks of a mouse, which a terminal has no use for.
  text_ = std::string(text.substr(0, text.find('(')));
  text_.erase(0, text_.find_first_not_of(' '));
  totalUnits_ = totalUnits;
  nextShow_ = std::chrono::steady_clock::now() + kFirstShow;
}

bool ConsoleProgress::Step(double doneUnits) {
  if (console_.showsProgress()) {
    const auto now = std::chrono::steady_clock::now();
    if (now >= nextShow_) {
      nextShow_ = now + kInterval;
      console_.ShowProgress(file_, text_, doneUnits / totalUnits_);
    }
  }
  return interrupted_.load(std::memory_order_relaxed);
}

void ConsoleProgress::End() { console_.ClearProgress(); }

}  // namespace cantorix::batch
