// stretch.cpp - the one rule for every verb, and the line that names the recording's length.
#include "batch/stretch.h"

#include <cmath>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "batch/outcome.h"
#include "platform/numbers.h"

namespace cantorix::batch {
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

void RequireStretch(const Request& request, const CChannel& channel) {
  using Option = std::pair<std::string, std::optional<double>>;
  for (const auto& [name, ms] : {Option{"--at", request.atMs}, Option{"--from", request.fromMs},
                                 Option{"--to", request.toMs}}) {
    if (!ms) continue;
    if (std::isnan(*ms)) Refuse(channel, name + " is not a number");
    if (!IsInRecording(channel, *ms)) Refuse(channel, name + " is outside the recording");
  }
  if (!request.fromMs && !request.toMs) return;
  if (request.fromMs && request.toMs && *request.toMs < *request.fromMs) {
    Refuse(channel, "--to is before --from");
  }
  if (StretchOf(request, channel).length() < 1.0) Refuse(channel, "the stretch holds no sample");
}

SampleRange StretchOf(const Request& request, const CChannel& channel) {
  SampleRange range{0.0, channel.totalLength};
  if (request.fromMs) range.start = channel.PointAtTime(*request.fromMs).samples;
  if (request.toMs) range.end = channel.PointAtTime(*request.toMs).samples;
  return range;
}

}  // namespace cantorix::batch
