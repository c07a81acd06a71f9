// input_feed.cpp - from the callback through the ring into headers.
#include "audio/input_feed.h"

#include <utility>

namespace cantorix {
namespace {

constexpr std::size_t kStoreSeconds = 10;

}  // namespace

InputFeed::InputFeed(std::uint32_t rateHz, std::shared_ptr<WaveEvent> event)
    : event_(std::move(event)), ring_(kStoreSeconds * rateHz) {}

bool InputFeed::Add(WaveHeader& header) {
  if (header.lengthBytes < sizeof(std::int16_t)) return false;
  header.recordedBytes = 0;
  header.flags = (header.flags | kHeaderQueued) & ~kHeaderDone;
  if (!queue_.Push(header)) {
    header.flags &= ~kHeaderQueued;
    return false;
  }
  // Samples may be waiting that a device which has gone would never bring the callback for.
  Move();
  return true;
}

void InputFeed::Take(std::span<const std::int16_t> samples, LevelTap* tap) {
  callbacks_.fetch_add(1, std::memory_order_relaxed);
  if (capturing_.load(std::memory_order_acquire) && !isHeld_.load(std::memory_order_acquire)) {
    const auto taken = static_cast<std::int64_t>(ring_.Write(samples));
    const auto lost = static_cast<std::int64_t>(samples.size()) - taken;
    const std::int64_t accepted = accepted_.fetch_add(taken, std::memory_order_acq_rel) + taken;
    if (lost > 0) {
      std::int64_t none = -1;
      firstLossAt_.compare_exchange_strong(none, accepted);
      lost_.fetch_add(lost, std::memory_order_relaxed);
    }
  }
  if (tap != nullptr) tap->Put(samples);
  Move();
}

void InputFeed::Move() {
  gate_.RunWhile([this] { return CanMove(); }, [this] { FillHeaders(); });
}

void InputFeed::FillHeaders() {
  while (CanMove()) {
    WaveHeader& header = queue_.front();
    const std::uint32_t filled = header.recordedBytes / 2;
    const std::uint32_t wanted = header.lengthBytes / 2 - filled;
    const auto got = static_cast<std::uint32_t>(ring_.Read({header.data + filled, wanted}));
    header.recordedBytes = (filled + got) * 2;
    if (got < wanted) return;
    queue_.Pop();
    Finish(header);
  }
}

void InputFeed::Finish(WaveHeader& header) {
  header.flags = (header.flags | kHeaderDone) & ~kHeaderQueued;
  event_->Signal();
}

void InputFeed::ReturnHeaders() {
  SetCapturing(false);
  gate_.RunAlone([this] {
    while (!queue_.isEmpty()) {
      WaveHeader& header = queue_.front();
      queue_.Pop();
      Finish(header);
    }
  });
}

WaveInStatus InputFeed::Status() const {
  WaveInStatus status;
  status.callbacks = callbacks_.load(std::memory_order_relaxed);
  status.acceptedSamples = accepted_.load(std::memory_order_acquire);
  status.lostSamples = lost_.load(std::memory_order_relaxed);
  status.firstLossAt = firstLossAt_.load(std::memory_order_relaxed);
  return status;
}

}  // namespace cantorix
