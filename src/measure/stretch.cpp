// stretch.cpp - the one rule for every verb, and the line that names the recording's length.
#include "measure/stretch.h"

#include <cmath>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "measure/wrong_usage.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

// A time taken from a table with one decimal may lie so far behind the end.
constexpr double kRoundingMs = 0.1;

[[noreturn]] void Refuse(const CChannel& channel, const std::string& fault) {
  throw WrongUsage(fault + "; the recording is " + FormatOneDecimal(channel.totalDurationMs) +
                   " ms long");
}

}  // namespace

bool IsInRecording(const CChannel& channel, double ms) {
  return ms >= 0.0 && ms <= channel.totalDurationMs + kRoundingMs;
}

void RequireStretch(const MeasureOptions& options, const CChannel& channel) {
  using Option = std::pair<std::string, std::optional<double>>;
  for (const auto& [name, ms] : {Option{"--at", options.atMs}, Option{"--from", options.fromMs},
                                 Option{"--to", options.toMs}}) {
    if (!ms) continue;
    if (std::isnan(*ms)) Refuse(channel, name + " is not a number");
    if (!IsInRecording(channel, *ms)) Refuse(channel, name + " is outside the recording");
  }
  if (!options.fromMs && !options.toMs) return;
  if (options.fromMs && options.toMs && *options.toMs < *options.fromMs) {
    Refuse(channel, "--to is before --from");
  }
  if (StretchOf(options, channel).length() < 1.0) Refuse(channel, "the stretch holds no sample");
}

SampleRange StretchOf(const MeasureOptions& options, const CChannel& channel) {
  SampleRange range{0.0, channel.totalLength};
  if (options.fromMs) range.start = channel.PointAtTime(*options.fromMs).samples;
  if (options.toMs) range.end = channel.PointAtTime(*options.toMs).samples;
  return range;
}

}  // namespace cantorix
