// progress.h - the status text and bar of a long operation, and the user's way to cancel it.
#pragma once

#include <exception>
#include <string_view>

#include "platform/abandon.h"

namespace cantorix {

class Progress {
 public:
  virtual ~Progress() = default;

  // Shows `text` with a bar of `totalUnits` units; a value that is not positive or not finite shows
  // an empty bar.
  virtual void Begin(std::string_view text, double totalUnits) = 0;
  // Reports `doneUnits` so far. Returns true when the user has cancelled. Cheap enough to be
  // called between frames: an implementation looks at its clock, not at the user, each time.
  virtual bool Step(double doneUnits) = 0;
  virtual void End() = 0;
  // Whether the user has cancelled, for a step that shows nothing: the last one before what was
  // made takes its place.
  virtual bool Cancelled() { return false; }

  // Something is written that takes its time, with or without a status text: the user is shown that
  // it does. Balanced.
  virtual void BeginWait() {}
  virtual void EndWait() {}
};

// Lets the user see for the length of a scope that the program is at work.
class WaitScope {
 public:
  explicit WaitScope(Progress& progress) : progress_(progress) { progress_.BeginWait(); }
  ~WaitScope() { progress_.EndWait(); }
  WaitScope(const WaitScope&) = delete;
  WaitScope& operator=(const WaitScope&) = delete;

 private:
  Progress& progress_;
};

// Shows a status text for the length of a scope.
class ProgressScope {
 public:
  ProgressScope(Progress& progress, std::string_view text, double totalUnits)
      : progress_(progress) {
    progress_.Begin(text, totalUnits);
  }
  ~ProgressScope() {
    try {
      progress_.End();
    } catch (const std::exception&) {
      // A status window that could not be ended, for want of memory say, ends no operation.
    }
  }
  ProgressScope(const ProgressScope&) = delete;
  ProgressScope& operator=(const ProgressScope&) = delete;

  // True when the user has cancelled.
  bool Cancelled(double doneUnits) { return progress_.Step(doneUnits); }
  // Leaves by Abandoned when the user has cancelled.
  void StepOrAbandon(double doneUnits) {
    if (progress_.Step(doneUnits)) throw Abandoned(AbandonReason::kCancelled);
  }

 private:
  Progress& progress_;
};

// Shows nothing and never cancels.
class NoProgress : public Progress {
 public:
  void Begin(std::string_view, double) override {}
  bool Step(double) override { return false; }
  void End() override {}
};

}  // namespace cantorix
