// sound_timer.h - carries the desk of recordings and playbacks on while something runs, and lets
// the windows follow.
#pragma once

#include <QTimer>
#include <functional>

namespace cantorix {

class QtProgress;
class SoundDesk;

class SoundTimer {
 public:
  // `moved` is called after each step; both outlive the timer.
  SoundTimer(SoundDesk& desk, const QtProgress& progress, std::function<void()> moved);

  // Runs exactly as long as something is active.
  void Follow();

 private:
  void Step();

  SoundDesk& desk_;
  const QtProgress& progress_;
  std::function<void()> moved_;
  QTimer timer_;
};

}  // namespace cantorix
