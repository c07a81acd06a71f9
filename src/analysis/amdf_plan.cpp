// amdf_plan.cpp - lags and frames from rate, range and length, in integer divisions.
#include "analysis/amdf_plan.h"

#include <algorithm>

namespace cantorix {
namespace {

// Keeps the lag arithmetic inside 32 bits and a block inside memory.
constexpr std::int32_t kLongestLag = std::int32_t{1} << 24;

std::vector<std::int32_t> LagTable(std::int32_t minLag, std::int32_t maxLag) {
  std::vector<std::int32_t> lags{minLag - 1, minLag};
  std::int64_t fixed = std::int64_t{minLag} * 256;  // 8 fractional bits
  while (lags.back() != maxLag) {
    fixed = fixed * 105 / 100;  // grows by 12 at least, so the table ends
    const std::int64_t lag = std::min<std::int64_t>(fixed / 256, maxLag);
    if (lag != lags.back()) lags.push_back(static_cast<std::int32_t>(lag));
  }
  lags.push_back(maxLag + 1);
  return lags;
}

}  // namespace

std::optional<AmdfPlan> MakeAmdfPlan(const AutoCorrelationOptions& options, std::int64_t length) {
  if (options.rateHz < 1000 || options.lowHz < 1 || options.highHz < 1) return std::nullopt;

  AmdfPlan plan;
  plan.tenthsOfRate = std::int64_t{options.rateHz} * 10;
  plan.averageLength = options.rateHz / 1000;
  plan.minLag = options.rateHz / options.highHz;
  plan.maxLag = options.rateHz / options.lowHz;
  // A lag at either end is unvoiced, so a range without an inside has nothing to find.
  if (plan.minLag < 1 || plan.minLag >= plan.maxLag) return std::nullopt;
  if (plan.maxLag > kLongestLag) return std::nullopt;

  const std::int64_t margin = (std::int64_t{plan.averageLength} + plan.maxLag) / 2 + 155;
  plan.firstFrame = margin / kFrameStep + 1;
  plan.lastFrame = length < margin ? -1 : (length - margin) / kFrameStep;
  if (plan.lastFrame < plan.firstFrame) return std::nullopt;

  plan.lags = LagTable(plan.minLag, plan.maxLag);
  return plan;
}

}  // namespace cantorix
