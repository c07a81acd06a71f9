// sample_block.h - an owned block of 16-bit samples in memory.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace cantorix {

class SampleBlock {
 public:
  SampleBlock() = default;
  // `count` zeros; pages are taken when they are first touched. Throws Abandoned (out of memory).
  explicit SampleBlock(std::int64_t count);
  SampleBlock(const SampleBlock& other);
  SampleBlock& operator=(const SampleBlock& other);
  SampleBlock(SampleBlock&& other) noexcept;
  SampleBlock& operator=(SampleBlock&& other) noexcept;

  // Keeps the first `count` samples, in place; at most size().
  void Shrink(std::int64_t count);

  bool empty() const { return count_ == 0; }
  std::int64_t size() const { return count_; }
  std::span<std::int16_t> samples() { return {data_.get(), static_cast<std::size_t>(count_)}; }
  std::span<const std::int16_t> samples() const {
    return {data_.get(), static_cast<std::size_t>(count_)};
  }

 private:
  struct Free {
    void operator()(std::int16_t* block) const { std::free(block); }
  };
  std::unique_ptr<std::int16_t[], Free> data_;
  std::int64_t count_ = 0;
};

}  // namespace cantorix
