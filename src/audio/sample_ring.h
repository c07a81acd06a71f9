// sample_ring.h - 16-bit samples on their way from one thread to another. One thread writes, one
// reads; neither ever waits, allocates or locks.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace cantorix {

class SampleRing {
 public:
  explicit SampleRing(std::size_t capacitySamples) : store_(capacitySamples) {}

  std::size_t readable() const {
    return static_cast<std::size_t>(written_.load(std::memory_order_acquire) -
                                    read_.load(std::memory_order_acquire));
  }
  std::size_t writable() const { return store_.size() - readable(); }

  // Writes as many of `samples` as there is room for, from the first on, and gives their number.
  std::size_t Write(std::span<const std::int16_t> samples) {
    const std::uint64_t at = written_.load(std::memory_order_relaxed);
    const std::size_t count = std::min(samples.size(), writable());
    const std::size_t first = std::min(count, store_.size() - Index(at));
    std::copy_n(samples.data(), first, store_.data() + Index(at));
    std::copy_n(samples.data() + first, count - first, store_.data());
    written_.store(at + count, std::memory_order_release);
    return count;
  }

  // Fills `out` from its beginning with what there is and gives the number of samples.
  std::size_t Read(std::span<std::int16_t> out) {
    const std::uint64_t at = read_.load(std::memory_order_relaxed);
    const std::size_t count = std::min(out.size(), readable());
    const std::size_t first = std::min(count, store_.size() - Index(at));
    std::copy_n(store_.data() + Index(at), first, out.data());
    std::copy_n(store_.data(), count - first, out.data() + first);
    read_.store(at + count, std::memory_order_release);
    return count;
  }

 private:
  std::size_t Index(std::uint64_t position) const {
    return store_.empty() ? 0 : static_cast<std::size_t>(position % store_.size());
  }

  std::vector<std::int16_t> store_;
  std::atomic<std::uint64_t> written_{0};  // samples since the beginning
  std::atomic<std::uint64_t> read_{0};
};

}  // namespace cantorix
