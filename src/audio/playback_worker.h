// playback_worker.h - the player's worker thread and what it shares with the player: two buffers
// that are refilled in turn as the device finishes them. Nobody takes a lock: the stop flag and the
// event keep the two threads apart.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "audio/sound_notices.h"
#include "audio/sound_rates.h"
#include "audio/sound_source.h"
#include "audio/wave_device.h"

namespace cantorix {

// Follows a playback. Called on the worker thread.
class PlaybackObserver {
 public:
  virtual ~PlaybackObserver() = default;
  // After each refill, and once more when the worker ends by itself. `buffers` were finished.
  virtual void BufferPlayed(std::int64_t buffers) = 0;
};

// Owned by both, because a worker that is stuck outlives its player.
struct PlaybackState {
  std::shared_ptr<WaveOut> device;
  std::shared_ptr<WaveEvent> event;  // from the start on, when it streams
  std::shared_ptr<NoticeSink> notices;
  std::shared_ptr<PlaybackObserver> observer;  // or none
  std::unique_ptr<SoundSource> source;
  std::uint32_t bufferSamples = 0;
  std::int64_t totalSamples = 0;
  std::int64_t position = 0;  // samples taken from the source, and zeros behind them
  std::int64_t playedBuffers = 0;
  // Both buffers, one behind the other.
  std::vector<std::int16_t> samples =
      std::vector<std::int16_t>(std::size_t{2} * kPlaybackRoomSamples);
  std::array<WaveHeader, 2> headers;
  std::uint32_t index = 1;  // of the buffer that finished last
  std::atomic<std::uint32_t> stop{0};

  std::int16_t* bufferStart(std::uint32_t which) {
    return samples.data() + std::size_t{which} * kPlaybackRoomSamples;
  }
};

// Fills the buffer with what comes next of the stretch and with zeros behind its end. A source that
// cannot be read gives zeros and a notice.
void FillBuffer(PlaybackState& playback, std::uint32_t which);

// Points the header at `count` samples of its buffer and prepares it. False when the device did
// not.
bool PrepareBuffer(PlaybackState& playback, std::uint32_t which, std::uint32_t count);

// The worker: refills each buffer that has finished until the stop flag is set.
void RunPlayback(PlaybackState& playback);

}  // namespace cantorix
