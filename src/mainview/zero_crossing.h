// zero_crossing.h - where the signal crosses its reference level next to a sample.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/sample_source.h"

namespace cantorix {

// The whole sample nearest to `from` at which the signal, less `reference` (sample units), is 0 or
// changes its sign to a neighbour, of these two the one nearer to 0; the left one of two as near.
// Looks as far as it takes: `step`, with the samples looked at so far, is called between blocks.
// Nothing when the signal never crosses. Throws FileError, and what `step` throws.
std::optional<std::int64_t> NearestZeroCrossing(const SampleSource& samples, double from,
                                                double reference,
                                                const std::function<void(double)>& step);

}  // namespace cantorix
