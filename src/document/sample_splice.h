// sample_splice.h - samples taken out of a block and put into one.
#pragma once

#include <cstdint>
#include <span>

#include "document/sample_block.h"

namespace cantorix {

// Takes out the samples [first, end) of the block, in place.
void RemoveSamples(SampleBlock& block, std::int64_t first, std::int64_t end);

// `old` with its samples [first, end) replaced by `inserted`. Throws Abandoned when memory runs
// out.
SampleBlock Spliced(std::span<const std::int16_t> old, std::int64_t first, std::int64_t end,
                    std::span<const std::int16_t> inserted);

}  // namespace cantorix
