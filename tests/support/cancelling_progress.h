// cancelling_progress.h - a progress window whose user loses patience after a number of steps.
#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "platform/progress.h"

namespace cantorix {

class CancellingProgress : public Progress {
 public:
  // Step number `cancelAtStep` (counted from 1 over all operations) and every later one cancels.
  explicit CancellingProgress(int cancelAtStep = std::numeric_limits<int>::max())
      : cancelAtStep_(cancelAtStep) {}

  // The next step cancels, and so does every later one.
  void CancelFromNow() { cancelAtStep_ = 0; }

  void Begin(std::string_view text, double totalUnits) override {
    texts.emplace_back(text);
    totals.push_back(totalUnits);
  }
  bool Step(double doneUnits) override {
    done.push_back(doneUnits);
    return static_cast<int>(done.size()) >= cancelAtStep_;
  }
  void End() override { ++endCount; }
  void BeginWait() override { ++waits, ++waiting; }
  void EndWait() override { --waiting; }

  std::vector<std::string> texts;  // one per operation begun
  std::vector<double> totals;      // its units
  std::vector<double> done;        // one per step
  int waits = 0;                   // begun
  int waiting = 0;                 // begun and not ended
  int endCount = 0;                // equals texts.size() when every operation was ended

 private:
  int cancelAtStep_;
};

}  // namespace cantorix
