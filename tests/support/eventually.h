// eventually.h - waiting for what another thread or process does.
#pragma once

#include <chrono>
#include <thread>

namespace cantorix {

// False when the condition does not hold within ten seconds.
template <typename Condition>
bool Eventually(Condition condition) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
  return true;
}

}  // namespace cantorix
