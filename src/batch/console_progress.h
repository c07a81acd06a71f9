// console_progress.h - the progress port of one file: a bar on a terminal, cancelled by Ctrl+C.
#pragma once

#include <atomic>
#include <chrono>
#include <string>

#include "batch/console.h"
#include "platform/progress.h"

namespace cantorix::batch {

class ConsoleProgress : public Progress {
 public:
  ConsoleProgress(Console& console, std::string file, const std::atomic<bool>& interrupted)
      : console_(console), file_(std::move(file)), interrupted_(interrupted) {}

  void Begin(std::string_view text, double totalUnits) override;
  bool Step(double doneUnits) override;
  void End() override;
  bool Cancelled() override { return interrupted_; }

 private:
  Console& console_;
  std::string file_;
  const std::atomic<bool>& interrupted_;
  std::string text_;
  double totalUnits_ = 0.0;
  std::chrono::steady_clock::time_point nextShow_;
};

}  // namespace cantorix::batch
