// square_sum.h - sums of squares of samples, the energy under every level.
#pragma once

#include <cstdint>
#include <span>

namespace cantorix {

// Exact for up to 2^33 samples. Below 2^53 its double equals the sum taken in doubles in any order.
std::int64_t SumOfSquares(std::span<const std::int16_t> samples);

// Adds the squares to `sum` one after the other in doubles; `sum` must be a sum of squares.
void AddSquares(std::span<const std::int16_t> samples, double& sum);

}  // namespace cantorix
