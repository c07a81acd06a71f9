// input_feed.h - the way of recorded samples from an audio callback into the headers of a recorder,
// the same for every input device. A store of ten seconds stands between the two, so that a
// consumer may stand still for a while. A header is filled only while another stands behind it.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>

#include "audio/header_queue.h"
#include "audio/level_tap.h"
#include "audio/sample_ring.h"
#include "audio/try_gate.h"
#include "audio/wave_device.h"

namespace cantorix {

class InputFeed {
 public:
  InputFeed(std::uint32_t rateHz, std::shared_ptr<WaveEvent> event);

  // Lends a header. False when it has no room for a sample or too many are lent.
  bool Add(WaveHeader& header);
  // While off, what the callback brings is not taken. Off at first.
  void SetCapturing(bool on) { capturing_.store(on, std::memory_order_release); }
  // Nothing more is taken, for good: each header that is given back starts the device once more.
  void Hold() { isHeld_.store(true, std::memory_order_release); }
  // Marks all lent headers done with what they hold and signals for each. None is touched after.
  void ReturnHeaders();
  // `health` stays as it is made.
  WaveInStatus Status() const;

  // The callback: takes the samples, fills headers, signals. What finds no room is counted.
  void Take(std::span<const std::int16_t> samples, LevelTap* tap);

 private:
  bool CanMove() const { return queue_.size() >= 2 && ring_.readable() > 0; }
  void Move();
  void FillHeaders();
  void Finish(WaveHeader& header);

  std::shared_ptr<WaveEvent> event_;
  SampleRing ring_;
  HeaderQueue queue_;
  TryGate gate_;  // around the reading end of both
  std::atomic<bool> capturing_{false};
  std::atomic<bool> isHeld_{false};
  std::atomic<std::uint64_t> callbacks_{0};
  std::atomic<std::int64_t> accepted_{0};
  std::atomic<std::int64_t> lost_{0};
  std::atomic<std::int64_t> firstLossAt_{-1};
};

}  // namespace cantorix
