// sample_changes.cpp - gain by a table, the moving average by three running samples.
#include "document/sample_changes.h"

#include "platform/numbers.h"

namespace cantorix {

std::int16_t Low16(std::int64_t value) {
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
}

GainTable::GainTable(double gainPercent, double reference) {
  const std::int32_t moves = TruncateToInt32(reference);
  const double factor = gainPercent * 0.01 + 1.0;
  for (std::size_t i = 0; i < results_.size(); ++i) {
    const std::int16_t moved = Low16(Low16(static_cast<std::int64_t>(i)) + std::int64_t{moves});
    // Kept: the factor is what the binary numbers make of it; a gain of 15 makes 114 of 100.
    results_[i] = Low16(Truncate(factor * moved));
  }
}

void GainTable::Apply(std::span<std::int16_t> samples) const {
  for (std::int16_t& sample : samples) sample = (*this)[sample];
}

void Smoother::Apply(std::int64_t position, std::span<std::int16_t> block) {
  if (block.empty()) return;
  const std::int64_t end = position + std::ssize(block);
  std::int16_t after = 0;
  source_.Read(end, std::span(&after, 1));
  const std::int16_t first = block.front();
  const std::int16_t last = block.back();
  for (std::size_t i = 0; i < block.size(); ++i) {
    const std::int16_t here = block[i];
    const std::int16_t next = i + 1 < block.size() ? block[i + 1] : after;
    block[i] = static_cast<std::int16_t>((before_ + here + next) / 3);
    before_ = here;
  }
  // Those have no two neighbours.
  if (position == 0) block.front() = first;
  if (end == source_.length()) block.back() = last;
  before_ = last;
}

}  // namespace cantorix
