// quefrency_range.cpp - truncated limits, and how many zeros beyond the half take part.
#include "analysis/quefrency_range.h"

#include <algorithm>
#include <cmath>

#include "platform/numbers.h"

namespace cantorix {
namespace {

// Zeros beyond the cepstrum's half that take part in the interpolation. The curve through them
// dies away by 0.27 a knot, so after a thousand of them it is exactly 0 and cannot hold the peak.
constexpr std::int64_t kZeroKnots = 1024;

}  // namespace

QuefrencyRange FindQuefrencyRange(double rateHz, double lowHz, double highHz, std::size_t points) {
  if (!(rateHz > 0.0 && lowHz > 0.0 && highHz > 0.0) || !std::isfinite(rateHz)) return {};
  const auto half = static_cast<std::int64_t>(points / 2);
  const std::int64_t low = Truncate(rateHz / highHz);
  const std::int64_t high = std::min(Truncate(rateHz / lowHz), half + kZeroKnots);
  if (low >= half || high - low < 2) return {};

  QuefrencyRange range;
  range.first = static_cast<std::size_t>(low);
  range.knots = static_cast<std::size_t>(high - low);
  // Kept: the fine index starts at the truncated tenths of the exact limit, the knots at its whole
  // samples, so a peak is reported up to 0.9 sample late. Published values carry the offset.
  range.fineFirst = Truncate(10.0 * rateHz / highHz);
  const std::int64_t fineEnd = Truncate(10.0 * rateHz / lowHz);
  const auto all = static_cast<std::int64_t>(kFinePerKnot) * (high - low);
  range.fineCount =
      static_cast<std::size_t>(std::clamp<std::int64_t>(fineEnd - range.fineFirst, 0, all));
  return range;
}

}  // namespace cantorix
