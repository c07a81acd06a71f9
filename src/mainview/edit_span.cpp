// edit_span.cpp - clamping, and times that stand for whole samples.
#include "mainview/edit_span.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "document/label.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

TimePoint Clamped(const CChannel& channel, const TimePoint& point) {
  return {std::clamp(point.samples, 0.0, std::max(channel.totalLength, 0.0)),
          std::clamp(point.ms, 0.0, std::max(channel.totalDurationMs, 0.0))};
}

// `ms` without the digits that a time at the end of the recording has no place for: adding the rest
// to a time of the recording or taking it away is exact.
double Representable(const CChannel& channel, double ms) {
  if (!(channel.totalDurationMs > 0.0)) return 0.0;
  const double digit = std::ldexp(1.0, std::ilogb(channel.totalDurationMs) - 52);
  return std::floor(ms / digit) * digit;
}

EditSpan SpanOf(const CChannel& channel, const TimePoint& from, const TimePoint& to) {
  EditSpan span{Clamped(channel, from), Clamped(channel, to), {}};
  const auto count = static_cast<double>(span.sampleCount());
  span.length = {count, Representable(channel, count * channel.msPerSample())};
  // What stands before the start must not come to stand behind the end of the recording, and what
  // stood behind the end not before the start.
  span.start.ms = std::min(span.start.ms, std::max(channel.totalDurationMs, 0.0) - span.length.ms);
  span.end.ms = std::max(span.end.ms, span.start.ms + span.length.ms);
  return span;
}

}  // namespace

std::int64_t EditSpan::firstSample() const { return Truncate(start.samples); }
std::int64_t EditSpan::endSample() const { return Truncate(end.samples); }

bool EditSpan::Holds(const Label& label) const {
  return end.ms > start.ms && LabelInRange(label, start.ms, end.ms);
}

EditSpan SelectedSpan(const CChannel& channel) {
  return SpanOf(channel, channel.selectionStart, channel.selectionEnd);
}

EditSpan VisibleSpan(const CChannel& channel) {
  return SpanOf(channel, channel.visibleStart, channel.visibleEnd);
}

EditSpan CursorSpan(const CChannel& channel) {
  return SpanOf(channel, channel.cursor, channel.cursor);
}

void CloseLabels(CChannel& channel, const EditSpan& span) {
  for (Tier& tier : channel.tiers) {
    if (!tier.inUse) continue;
    std::erase_if(tier.labels, [&](const Label& label) { return span.Holds(label); });
    for (Label& label : tier.labels) {
      if (label.timeMs > span.end.ms) label.timeMs -= span.length.ms;
    }
  }
}

void SpreadLabels(CChannel& channel, double atMs, double lengthMs) {
  for (Tier& tier : channel.tiers) {
    if (!tier.inUse) continue;
    for (Label& label : tier.labels) {
      if (label.timeMs > atMs) label.timeMs += lengthMs;
    }
  }
}

Tiers TiersInside(const CChannel& channel, const EditSpan& span) {
  Tiers tiers;
  for (std::size_t i = 0; i < tiers.size(); ++i) {
    const Tier& source = channel.tiers[i];
    tiers[i].name = source.name;
    tiers[i].tierWord = source.tierWord;
    tiers[i].inUse = source.inUse;
    if (!source.inUse) continue;
    std::copy_if(source.labels.begin(), source.labels.end(), std::back_inserter(tiers[i].labels),
                 [&](const Label& label) { return span.Holds(label); });
  }
  return tiers;
}

}  // namespace cantorix
