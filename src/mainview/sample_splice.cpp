// sample_splice.cpp
#include "mainview/sample_splice.h"

#include <algorithm>
#include <cstring>

namespace cantorix {
namespace {

// Copies as much of `source` as `target` takes; gives the rest of `target`.
std::span<std::int16_t> Put(std::span<const std::int16_t> source, std::span<std::int16_t> target) {
  const std::size_t count = std::min(source.size(), target.size());
  std::copy_n(source.begin(), count, target.begin());
  return target.subspan(count);
}

}  // namespace

void RemoveSamples(SampleBlock& block, std::int64_t first, std::int64_t end,
                   std::int64_t newCount) {
  const std::int64_t size = block.size();
  const std::int64_t to = std::clamp<std::int64_t>(first, 0, size);
  const std::int64_t from = std::clamp<std::int64_t>(end, to, size);
  const auto samples = block.samples();
  const auto rest = samples.subspan(static_cast<std::size_t>(from));
  std::memmove(samples.data() + to, rest.data(), rest.size_bytes());
  const std::int64_t remaining = to + std::ssize(rest);
  for (std::int64_t i = remaining; i < std::min(newCount, size); ++i) {
    samples[static_cast<std::size_t>(i)] = 0;
  }
  block.Shrink(newCount);
}

SampleBlock Spliced(std::span<const std::int16_t> old, std::int64_t first, std::int64_t end,
                    std::span<const std::int16_t> inserted, std::int64_t newCount) {
  const auto size = static_cast<std::int64_t>(old.size());
  const std::int64_t before = std::clamp<std::int64_t>(first, 0, size);
  const std::int64_t after = std::clamp<std::int64_t>(end, before, size);
  SampleBlock block(std::max<std::int64_t>(newCount, 0));
  std::span<std::int16_t> rest = Put(old.first(static_cast<std::size_t>(before)), block.samples());
  rest = Put(inserted, rest);
  Put(old.subspan(static_cast<std::size_t>(after)), rest);
  return block;
}

}  // namespace cantorix
