// recording_consumer.h - what becomes of a recorded buffer: it is appended to the recording file
// or, with offset and gain, to a block of memory, and shown to the scope. Called by the recorder's
// worker thread; the recorder's owner looks at it only when that thread has ended.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "audio/recording_file.h"
#include "audio/sound_notices.h"
#include "platform/services.h"

namespace cantorix {

class BufferConsumer {
 public:
  virtual ~BufferConsumer() = default;
  // The buffer is back in the device's queue already: its data must be taken at once. The consumer
  // may change it. May throw; the samples are lost then.
  virtual void BufferReady(std::span<std::int16_t> samples) = 0;
};

// Sees every recorded buffer. Called on the worker thread: it must not draw, only keep.
class ScopeSink {
 public:
  virtual ~ScopeSink() = default;
  virtual void Trace(std::span<const std::int16_t> samples) = 0;
};

// A recording that is kept in memory.
struct RecordingBlock {
  std::vector<std::int16_t> samples;
  std::int16_t offset = 0;  // added to every sample, then
  double gain = 1.0;        // multiplied in
};

class RecordingConsumer : public BufferConsumer {
 public:
  struct Targets {
    std::unique_ptr<RecordingFile> file;    // or none
    std::shared_ptr<RecordingBlock> block;  // or none; goes before the file
    std::shared_ptr<ScopeSink> scope;       // or none
  };
  // `memory` lives as long as the program.
  RecordingConsumer(Targets targets, std::shared_ptr<NoticeSink> notices,
                    const MemoryProbe& memory);

  void BufferReady(std::span<std::int16_t> samples) override;

  // A sample could not be kept: from then on nothing is, so that what there is has no hole.
  bool hasFailed() const { return hasFailed_.load(std::memory_order_acquire); }
  bool hasFile() const { return targets_.file != nullptr; }
  std::unique_ptr<RecordingFile> TakeFile() { return std::move(targets_.file); }

 private:
  void AppendToBlock(std::span<std::int16_t> samples);
  void AppendToFile(std::span<const std::int16_t> samples);

  Targets targets_;
  std::shared_ptr<NoticeSink> notices_;
  const MemoryProbe& memory_;
  std::int64_t bufferCount_ = 0;
  std::atomic<bool> hasFailed_{false};
};

}  // namespace cantorix
