// sound_timer.cpp - one step every few milliseconds.
#include "desktop/sound/sound_timer.h"

#include <QApplication>
#include <utility>

#include "desktop/qt_progress.h"
#include "mainview/sound_desk.h"

namespace cantorix {

SoundTimer::SoundTimer(SoundDesk& desk, const QtProgress& progress, std::function<void()> moved)
    : desk_(desk), progress_(progress), moved_(std::move(moved)) {
  timer_.setTimerType(Qt::PreciseTimer);
  timer_.setInterval(kTickMs);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Step(); });
}

void SoundTimer::Follow() {
  if (desk_.isActive() == timer_.isActive()) return;
  if (desk_.isActive()) {
    timer_.start();
  } else {
    timer_.stop();
    moved_();
  }
}

// An end, a loss or a text waits until no box and no operation runs: it would come into the middle
// of another one.
void SoundTimer::Step() {
  if (progress_.running() || QApplication::activeModalWidget() != nullptr) return;
  desk_.Tick();
  moved_();
}

}  // namespace cantorix
