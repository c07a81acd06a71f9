// sample_window.cpp - a piece is served from the block at hand, or a block is read from it on.
#include "analysis/sample_window.h"

#include <algorithm>

namespace cantorix {

std::span<const std::int16_t> SampleWindow::View(std::int64_t first, std::int64_t count) {
  const std::int64_t from = std::max<std::int64_t>(origin_ + first, 0);
  const std::int64_t to = std::min(origin_ + first + count, samples_.length());
  if (from >= to) return {};
  const std::int64_t blockEnd = blockStart_ + static_cast<std::int64_t>(block_.size());
  if (from < blockStart_ || to > blockEnd) {
    block_ = {};  // holds nothing when the read fails
    blockStart_ = from;
    block_ = samples_.View(from, std::min(kBlockSamples, samples_.length() - from), scratch_);
  }
  return block_.subspan(static_cast<std::size_t>(from - blockStart_),
                        static_cast<std::size_t>(to - from));
}

}  // namespace cantorix
