// output_feed.h - the way of samples from the headers of a player to an audio callback, the same
// for every output device. A header's samples are copied into a store at once; the header is given
// back as soon as the store holds at most one second. So a player with two small buffers can be
// ahead of the device by a second, and a late worker thread is not heard.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>

#include "audio/header_queue.h"
#include "audio/sample_ring.h"
#include "audio/try_gate.h"
#include "audio/wave_device.h"

namespace cantorix {

class OutputFeed {
 public:
  // `event` may be none.
  OutputFeed(std::uint32_t rateHz, std::shared_ptr<WaveEvent> event);

  // One thread at a time. False when there is no room; a header that is given back in time always
  // finds some.
  bool Write(WaveHeader& header);
  // Whether there is enough in store to start the device with: without an event all that will ever
  // come, else a stretch that carries it over its own beginning.
  bool WantsStart() const;
  // Samples that the callback has not taken yet.
  std::size_t storedSamples() const { return ring_.readable(); }
  // While paused the callback gives silence and takes nothing.
  void SetPaused(bool paused) { paused_.store(paused, std::memory_order_release); }
  // Silent from now on, for good. Marks all lent headers done and signals for each.
  void ReturnHeaders();
  // `health` stays as it is made. `nowNs` is a time of the clock that Render was told of.
  WaveOutStatus Status(std::int64_t nowNs) const;

  // The callback: fills `out` with samples and then silence. `heardAtNs` is when its first sample
  // will be heard.
  void Render(std::span<std::int16_t> out, std::int64_t heardAtNs);

 private:
  bool CanAnnounce() const { return !queue_.isEmpty() && storedSamples() <= rateHz_; }
  void Announce();
  void Finish(WaveHeader& header);
  void CountSilence(std::size_t taken, std::size_t silent);

  std::uint32_t rateHz_;
  std::shared_ptr<WaveEvent> event_;
  SampleRing ring_;
  HeaderQueue queue_;
  TryGate gate_;  // around the reading end of the queue
  std::atomic<bool> paused_{false};
  std::atomic<bool> finished_{false};
  std::atomic<std::uint64_t> callbacks_{0};
  std::atomic<std::int64_t> taken_{0};         // samples given to the device
  std::atomic<std::int64_t> beginHeardNs_{0};  // when sample 0 was heard, by the latest callback
  std::atomic<std::int64_t> starved_{0};
  std::int64_t silence_ = 0;  // since the last sample; the callback's own
};

}  // namespace cantorix
