// try_gate.h - lets one thread at a time through without anybody waiting: who finds it shut goes
// away, and the one inside looks again before it leaves for good. Made for work that an audio
// callback shares with other threads.
#pragma once

#include <atomic>
#include <thread>

namespace cantorix {

class TryGate {
 public:
  // Calls `work` as long as `isWanted` says so, unless another thread does it already. What made
  // the work wanted before this call is seen by whoever does it.
  template <typename IsWanted, typename Work>
  void RunWhile(IsWanted isWanted, Work work) {
    while (isWanted()) {
      if (busy_.exchange(true, std::memory_order_acq_rel)) return;
      work();
      // An exchange, not a store: it sees what a thread wrote before it was turned away.
      busy_.exchange(false, std::memory_order_acq_rel);
    }
  }

  // Calls `work` alone, waiting for the one inside. Not for callbacks.
  template <typename Work>
  void RunAlone(Work work) {
    while (busy_.exchange(true, std::memory_order_acq_rel)) std::this_thread::yield();
    work();
    busy_.exchange(false, std::memory_order_acq_rel);
  }

 private:
  std::atomic<bool> busy_{false};
};

}  // namespace cantorix
