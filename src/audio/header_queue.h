// header_queue.h - the headers that a device has, in the order in which it was given them. One
// thread at a time pushes, one pops; neither waits.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "audio/wave_device.h"

namespace cantorix {

class HeaderQueue {
 public:
  static constexpr std::size_t kCapacity = 8;  // two are in use

  std::size_t size() const {
    return pushed_.load(std::memory_order_acquire) - popped_.load(std::memory_order_acquire);
  }
  bool isEmpty() const { return size() == 0; }

  // False when the queue is full.
  bool Push(WaveHeader& header) {
    if (size() == kCapacity) return false;
    const std::uint32_t at = pushed_.load(std::memory_order_relaxed);
    slots_[at % kCapacity] = &header;
    pushed_.store(at + 1, std::memory_order_release);
    return true;
  }

  // The oldest header; the queue must not be empty.
  WaveHeader& front() const { return *slots_[popped_.load(std::memory_order_relaxed) % kCapacity]; }
  void Pop() { popped_.fetch_add(1, std::memory_order_release); }

 private:
  std::array<WaveHeader*, kCapacity> slots_{};
  std::atomic<std::uint32_t> pushed_{0};
  std::atomic<std::uint32_t> popped_{0};
};

}  // namespace cantorix
