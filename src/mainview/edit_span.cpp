// edit_span.cpp
#include "mainview/edit_span.h"

#include <algorithm>

#include "platform/numbers.h"

namespace cantorix {
namespace {

TimePoint Clamped(const CChannel& channel, const TimePoint& point) {
  return {std::clamp(point.samples, 0.0, std::max(channel.totalLength, 0.0)),
          std::clamp(point.ms, 0.0, std::max(channel.totalDurationMs, 0.0))};
}

EditSpan SpanOf(const CChannel& channel, const TimePoint& from, const TimePoint& to) {
  const TimePoint start = Clamped(channel, from);
  const TimePoint end = Clamped(channel, to);
  return {start, end, {end.samples - start.samples, end.ms - start.ms}};
}

}  // namespace

std::int64_t EditSpan::firstSample() const { return Truncate(start.samples); }
std::int64_t EditSpan::endSample() const { return Truncate(end.samples); }

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
  if (!(span.length.ms > 0.0)) return;
  for (Tier& tier : channel.tiers) {
    if (!tier.inUse) continue;
    std::erase_if(tier.labels, [&](const Label& label) {
      return LabelInRange(label, span.start.ms, span.end.ms);
    });
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
    tiers[i] = {source.name, {}, source.rect, source.tierWord, source.inUse};
    if (!source.inUse) continue;
    for (const Label& label : source.labels) {
      if (!LabelInRange(label, span.start.ms, span.end.ms)) continue;
      tiers[i].labels.push_back(label);
      tiers[i].labels.back().timeMs = label.timeMs - span.start.ms;
    }
  }
  return tiers;
}

}  // namespace cantorix
