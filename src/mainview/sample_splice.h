// sample_splice.h - samples taken out of a block and put into one. Positions and lengths of a
// recording have fractions while its samples are whole, so the new number of samples is given and
// may differ by one from what the pieces hold: what is too much at the end goes, what is missing
// there is 0.
#pragma once

#include <cstdint>
#include <span>

#include "document/sample_block.h"

namespace cantorix {

// Takes out the samples [first, end), in place; `newCount` remain.
void RemoveSamples(SampleBlock& block, std::int64_t first, std::int64_t end, std::int64_t newCount);

// A block of `newCount` samples: `old` with [first, end) replaced by `inserted`. Throws Abandoned
// when memory runs out.
SampleBlock Spliced(std::span<const std::int16_t> old, std::int64_t first, std::int64_t end,
                    std::span<const std::int16_t> inserted, std::int64_t newCount);

}  // namespace cantorix
