// sound_player.h - plays a stretch of 16-bit mono samples: a short one as a single buffer, a longer
// one through two buffers that a worker thread refills. The texts of failing calls go to the
// notices; a failing call does not end a start, the later ones are still tried.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "audio/playback_worker.h"
#include "audio/wave_device.h"
#include "audio/worker_thread.h"
#include "platform/file.h"
#include "platform/sample_source.h"
#include "platform/services.h"

namespace cantorix {

// Samples [first, first + count).
struct SoundStretch {
  std::int64_t first = 0;
  std::int64_t count = 0;
  std::uint32_t rateHz = 0;

  bool operator==(const SoundStretch&) const = default;
};

inline constexpr const char* kCannotOpenOutput = "Sound output Cannot Open Device!";

class SoundPlayer {
 public:
  // `clock` and `memory` live as long as the program.
  SoundPlayer(std::shared_ptr<WaveOut> device, std::shared_ptr<NoticeSink> notices, Clock& clock,
              const MemoryProbe& memory, std::shared_ptr<PlaybackObserver> observer = nullptr);
  ~SoundPlayer();
  SoundPlayer(const SoundPlayer&) = delete;
  SoundPlayer& operator=(const SoundPlayer&) = delete;

  // For a player that is stopped. Copies the stretch; samples outside the source are 0. Without
  // memory for it there is a notice and nothing to play.
  void SetUpFromMemory(const SampleSource& samples, const SoundStretch& stretch);
  // Reads a file of raw 16-bit little-endian samples while it plays.
  void SetUpFromFile(File file, const SoundStretch& stretch);
  // True when every step succeeded. False without a word when nothing was set up.
  bool Start();
  // Kept: a longer stretch ends with what its buffers hold, also after Resume.
  void Pause();
  void Resume();
  // Silent at once; takes a fifth of a second, two more for a worker that is stuck.
  void Stop();

  bool isOpen() const { return isOpen_; }
  std::int64_t totalSamples() const { return playback_ ? playback_->totalSamples : 0; }
  // `playedSamples` counts the silence behind the stretch, too.
  WaveOutStatus Status() const { return device_->Status(); }

 private:
  void Load(std::unique_ptr<SoundSource> source, const SoundStretch& stretch);
  void StartSingle();
  void StartStreaming();
  void OpenDevice(std::shared_ptr<WaveEvent> event);
  void WriteBuffer(std::uint32_t which, std::uint32_t count);
  void Check(bool done, const char* text);

  std::shared_ptr<WaveOut> device_;
  std::shared_ptr<NoticeSink> notices_;
  Clock& clock_;
  const MemoryProbe& memory_;
  std::shared_ptr<PlaybackObserver> observer_;
  std::shared_ptr<PlaybackState> playback_;
  std::shared_ptr<WaveEvent> event_;  // while it streams
  WorkerThread worker_;
  std::uint32_t rateHz_ = 0;
  bool isSingle_ = false;
  bool isOpen_ = false;
  bool allDone_ = true;  // of the start
};

}  // namespace cantorix
