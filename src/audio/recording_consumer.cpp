// recording_consumer.cpp - keeping recorded buffers.
#include "audio/recording_consumer.h"

#include <new>
#include <utility>

#include "platform/file_error.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr const char* kNoMemory = "There is not enough memory to go on recording.";
constexpr const char* kKept = " What was recorded is kept.";

// Kept: a result beyond 16 bits wraps around instead of being clipped.
std::int16_t Low16(std::int64_t value) {
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
}

}  // namespace

RecordingConsumer::RecordingConsumer(Targets targets, std::shared_ptr<NoticeSink> notices,
                                     const MemoryProbe& memory)
    : targets_(std::move(targets)), notices_(std::move(notices)), memory_(memory) {}

void RecordingConsumer::BufferReady(std::span<std::int16_t> samples) {
  ++bufferCount_;
  if (hasFailed()) return;
  try {
    if (targets_.block) {
      AppendToBlock(samples);
    } else if (targets_.file) {
      AppendToFile(samples);
    }
  } catch (...) {
    hasFailed_.store(true, std::memory_order_release);
    throw;
  }
  if (targets_.scope) targets_.scope->Trace(samples);
}

void RecordingConsumer::AppendToBlock(std::span<std::int16_t> samples) {
  RecordingBlock& block = *targets_.block;
  const std::size_t total = static_cast<std::size_t>(bufferCount_) * samples.size();
  try {
    if (!memory_.CanAllocate(total * sizeof(std::int16_t))) throw std::bad_alloc();
    block.samples.resize(total);
  } catch (const std::bad_alloc&) {
    notices_->Notice(kNoMemory);
    throw;
  }
  std::int16_t* const place = block.samples.data() + (total - samples.size());
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const std::int16_t moved = Low16(samples[i] + block.offset);
    samples[i] = Low16(Truncate(moved * block.gain));
    place[i] = samples[i];
  }
}

void RecordingConsumer::AppendToFile(std::span<const std::int16_t> samples) {
  try {
    targets_.file->Append(samples);
  } catch (const FileError& error) {
    notices_->Notice(CouldNotBeSaved(targets_.file->path(), error.what()) + kKept);
    throw;
  }
}

}  // namespace cantorix
