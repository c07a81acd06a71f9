// wave_event.h - the event by which a sound device wakes a worker thread. It counts: a device may
// signal "open" and two finished buffers before the worker waits for the first time, and none of
// them may be lost. Signalling never blocks, so that an audio callback can do it. Held by
// shared_ptr, because a late callback may signal when everybody else has gone.
#pragma once

#include <atomic>
#include <cstdint>

namespace cantorix {

class WaveEvent {
 public:
  void Signal() {
    state_.fetch_add(1, std::memory_order_acq_rel);
    state_.notify_one();
  }

  // Forgets the signals that nobody has waited for.
  void Reset() { state_.fetch_and(kClosed, std::memory_order_acq_rel); }

  // Ends every wait, now and later.
  void Close() {
    state_.fetch_or(kClosed, std::memory_order_acq_rel);
    state_.notify_all();
  }

  // Takes one signal, waiting for it without limit. False: the event is closed.
  bool Wait() {
    std::uint32_t state = state_.load(std::memory_order_acquire);
    for (;;) {
      if ((state & kClosed) != 0) return false;
      if (state == 0) {
        state_.wait(0, std::memory_order_acquire);
        state = state_.load(std::memory_order_acquire);
      } else if (state_.compare_exchange_weak(state, state - 1, std::memory_order_acq_rel)) {
        return true;
      }
    }
  }

 private:
  static constexpr std::uint32_t kClosed = 0x80000000U;

  std::atomic<std::uint32_t> state_{0};  // signals not yet waited for, and the closed bit
};

}  // namespace cantorix
