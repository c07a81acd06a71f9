// sample_splice.cpp - the rest moved up over a cut, or three pieces laid end to end.
#include "document/sample_splice.h"

#include <algorithm>
#include <cstring>

namespace cantorix {

void RemoveSamples(SampleBlock& block, std::int64_t first, std::int64_t end) {
  const auto samples = block.samples();
  const auto rest = samples.subspan(static_cast<std::size_t>(end));
  std::memmove(samples.data() + first, rest.data(), rest.size_bytes());
  block.Shrink(block.size() - (end - first));
}

SampleBlock Spliced(std::span<const std::int16_t> old, std::int64_t first, std::int64_t end,
                    std::span<const std::int16_t> inserted) {
  const auto before = old.first(static_cast<std::size_t>(first));
  const auto after = old.subspan(static_cast<std::size_t>(end));
  SampleBlock block(std::ssize(before) + std::ssize(inserted) + std::ssize(after));
  auto at = block.samples().begin();
  for (const auto piece : {before, inserted, after}) at = std::copy(piece.begin(), piece.end(), at);
  return block;
}

}  // namespace cantorix
