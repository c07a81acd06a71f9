// capture_worker.h - the recorder's worker thread and what it shares with the recorder. Nobody
// takes a lock: the stop flag, the event and the order of the device calls keep the two apart.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "audio/recording_consumer.h"
#include "audio/sound_notices.h"
#include "audio/sound_rates.h"
#include "audio/wave_device.h"

namespace cantorix {

// Owned by both, because a worker that is stuck outlives its recorder.
struct Capture {
  std::shared_ptr<WaveIn> device;
  std::shared_ptr<WaveEvent> event;  // from the start on
  std::shared_ptr<BufferConsumer> consumer;
  std::shared_ptr<NoticeSink> notices;
  std::uint32_t bufferSamples = 0;
  // Both buffers, one behind the other.
  std::vector<std::int16_t> samples =
      std::vector<std::int16_t>(std::size_t{2} * kCaptureRoomSamples);
  std::array<WaveHeader, 2> headers;
  std::uint32_t index = 0;  // of the buffer that completes next
  std::atomic<std::uint32_t> stop{0};
  std::atomic<std::int64_t> deliveredSamples{0};
  std::atomic<bool> hasFailed{false};  // a buffer could not be given back or not be kept

  std::int16_t* bufferStart(std::uint32_t which) {
    return samples.data() + std::size_t{which} * kCaptureRoomSamples;
  }
};

// Points the header at its whole buffer and prepares it. False when the device did not.
bool PrepareBuffer(Capture& capture, std::uint32_t which);

// The worker: until the stop flag is set, gives each buffer that has completed back to the device
// and hands it to the consumer. A failure loses the buffer of its round; nothing is thrown.
void RunCapture(Capture& capture);

}  // namespace cantorix
