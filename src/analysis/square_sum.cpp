// square_sum.cpp - integers while they are exact in a double, doubles in order beyond.
#include "analysis/square_sum.h"

#include "platform/clones.h"

namespace cantorix {

CANTORIX_CLONES std::int64_t SumOfSquares(std::span<const std::int16_t> samples) {
  std::int64_t sum = 0;
  for (const std::int32_t x : samples) {
    const std::int32_t square = x * x;  // 2^30 at most
    sum += square;
  }
  return sum;
}

void AddSquares(std::span<const std::int16_t> samples, double& sum) {
  constexpr double kExact = 9007199254740992.0;  // 2^53: up to here every integer is a double
  const auto squares = static_cast<double>(SumOfSquares(samples));
  if (sum + squares < kExact) {
    sum += squares;
    return;
  }
  for (const double x : samples) sum += x * x;
}

}  // namespace cantorix
