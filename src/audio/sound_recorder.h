// sound_recorder.h - records from a sound input: two buffers that a worker thread gives back to the
// device as they fill, handing each to a consumer. Sixteen-bit mono. The texts of failing calls go
// to the notices; a failing call does not end a start, the later ones are still tried.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "audio/capture_worker.h"
#include "audio/recording_consumer.h"
#include "audio/wave_device.h"
#include "audio/worker_thread.h"
#include "platform/services.h"

namespace cantorix {

struct RecorderSetup {
  std::uint32_t rateHz = 0;
  std::uint16_t bits = 16;
  std::string folder;  // of the recording file; empty: no file, the sound is only watched
  std::string stamp;   // date and time, for the name of the file
  std::shared_ptr<RecordingBlock> block;  // to record into memory instead
  std::shared_ptr<ScopeSink> scope;
};

struct RecorderStatus {
  WaveInStatus device;
  std::int64_t deliveredSamples = 0;  // that the consumer has taken
  bool hasFailed = false;             // it cannot go on; what was delivered is whole
};

class SoundRecorder {
 public:
  // `clock` and `memory` live as long as the program.
  SoundRecorder(std::shared_ptr<WaveIn> device, std::shared_ptr<NoticeSink> notices, Clock& clock,
                const MemoryProbe& memory);
  ~SoundRecorder();
  SoundRecorder(const SoundRecorder&) = delete;
  SoundRecorder& operator=(const SoundRecorder&) = delete;

  // For a recorder that is stopped. Makes the recording file; without one after a failure.
  void SetUp(const RecorderSetup& setup);
  // True when every step succeeded.
  bool Start();
  // Kept: ends the worker, so that nothing more is delivered after Resume.
  void Pause();
  void Resume();
  // Ends the recording with the last whole buffer. Takes half a second; up to five more while a
  // consumer that fell behind works off what waits, and two for one that is stuck.
  void Stop();

  RecorderStatus Status() const;
  bool isOpen() const { return isOpen_; }
  // Set up with a recording file, which has not been taken.
  bool hasFile() const { return consumer_ && consumer_->hasFile(); }
  // The file of a stopped recording, closed when the caller lets go of it; none when there is none
  // or a stuck worker still has it.
  std::unique_ptr<RecordingFile> TakeFile();
  // Zeroes the beginning of the buffer that completes next and gives the number of samples.
  int SilenceCurrentBuffer();

 private:
  void OpenDevice();
  void LendBuffer(std::uint32_t which);
  void WorkOff();
  void Check(bool done, const char* text);

  std::shared_ptr<WaveIn> device_;
  std::shared_ptr<NoticeSink> notices_;
  Clock& clock_;
  const MemoryProbe& memory_;
  std::shared_ptr<RecordingConsumer> consumer_;
  std::shared_ptr<Capture> capture_;
  std::shared_ptr<WaveEvent> event_;  // while started
  WorkerThread worker_;
  WaveFormat format_;
  bool isOpen_ = false;
  bool allDone_ = true;  // of the start
};

}  // namespace cantorix
