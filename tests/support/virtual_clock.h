// virtual_clock.h - a clock whose sleeps take next to no time, for tests in which other threads run
// meanwhile: every sleep lets them, and may do a piece of the test.
#pragma once

#include <chrono>
#include <functional>
#include <thread>

#include "support/fake_services.h"

namespace cantorix {

class VirtualClock : public FakeClock {
 public:
  void SleepMs(double ms) override {
    FakeClock::SleepMs(ms);
    if (onSleep) onSleep(ms);
    std::this_thread::sleep_for(std::chrono::microseconds(20));
  }

  std::function<void(double ms)> onSleep;
};

}  // namespace cantorix
