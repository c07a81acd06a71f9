// output_feed.cpp - from headers through the ring to the callback.
#include "audio/output_feed.h"

#include <algorithm>
#include <utility>

namespace cantorix {
namespace {

constexpr std::size_t kLargestBufferSamples = 32768;
constexpr double kNsPerSecond = 1e9;

}  // namespace

OutputFeed::OutputFeed(std::uint32_t rateHz, std::shared_ptr<WaveEvent> event)
    : rateHz_(rateHz),
      event_(std::move(event)),
      ring_(std::size_t{rateHz} + 2 * kLargestBufferSamples) {}

bool OutputFeed::Write(WaveHeader& header) {
  const std::size_t count = header.lengthBytes / sizeof(std::int16_t);
  if (finished_.load(std::memory_order_acquire) || count > ring_.writable()) return false;
  header.flags = (header.flags | kHeaderQueued) & ~kHeaderDone;
  if (!queue_.Push(header)) {
    header.flags &= ~kHeaderQueued;
    return false;
  }
  ring_.Write({header.data, count});
  Announce();
  return true;
}

bool OutputFeed::WantsStart() const {
  const std::size_t enough = std::min(std::size_t{rateHz_} * 2 / 5, kLargestBufferSamples);
  return event_ == nullptr || storedSamples() >= enough;
}

void OutputFeed::Render(std::span<std::int16_t> out, std::int64_t heardAtNs) {
  callbacks_.fetch_add(1, std::memory_order_relaxed);
  const bool silent =
      paused_.load(std::memory_order_acquire) || finished_.load(std::memory_order_acquire);
  const std::size_t count = silent ? 0 : ring_.Read(out);
  std::fill(out.begin() + static_cast<std::ptrdiff_t>(count), out.end(), std::int16_t{0});
  if (count > 0) {
    const std::int64_t before = taken_.load(std::memory_order_relaxed);
    const double beginNs = static_cast<double>(before) / rateHz_ * kNsPerSecond;
    beginHeardNs_.store(heardAtNs - static_cast<std::int64_t>(beginNs), std::memory_order_release);
    taken_.store(before + static_cast<std::int64_t>(count), std::memory_order_release);
  }
  if (!silent) CountSilence(count, out.size() - count);
  Announce();
}

void OutputFeed::CountSilence(std::size_t taken, std::size_t silent) {
  // Silence behind the last sample is none; only when another sample comes was it a gap.
  if (taken > 0) starved_.fetch_add(std::exchange(silence_, 0), std::memory_order_relaxed);
  if (taken_.load(std::memory_order_relaxed) > 0) silence_ += static_cast<std::int64_t>(silent);
}

void OutputFeed::Announce() {
  gate_.RunWhile([this] { return CanAnnounce(); },
                 [this] {
                   while (CanAnnounce()) {
                     WaveHeader& header = queue_.front();
                     queue_.Pop();
                     Finish(header);
                   }
                 });
}

void OutputFeed::Finish(WaveHeader& header) {
  header.flags = (header.flags | kHeaderDone) & ~kHeaderQueued;
  if (event_ != nullptr) event_->Signal();
}

void OutputFeed::ReturnHeaders() {
  finished_.store(true, std::memory_order_release);
  gate_.RunAlone([this] {
    while (!queue_.isEmpty()) {
      WaveHeader& header = queue_.front();
      queue_.Pop();
      Finish(header);
    }
  });
}

WaveOutStatus OutputFeed::Status(std::int64_t nowNs) const {
  WaveOutStatus status;
  status.callbacks = callbacks_.load(std::memory_order_relaxed);
  status.starvedSamples = starved_.load(std::memory_order_relaxed);
  const std::int64_t taken = taken_.load(std::memory_order_acquire);
  const double sinceNs = static_cast<double>(nowNs - beginHeardNs_.load(std::memory_order_acquire));
  const double heard = sinceNs / kNsPerSecond * rateHz_;
  status.playedSamples =
      static_cast<std::int64_t>(std::clamp(heard, 0.0, static_cast<double>(taken)));
  return status;
}

}  // namespace cantorix
