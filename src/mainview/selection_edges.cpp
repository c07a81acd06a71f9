// selection_edges.cpp - two edges as pixels and as texts.
#include "mainview/selection_edges.h"

#include <cmath>

#include "mainview/label_entry_state.h"
#include "mainview/time_axis.h"
#include "platform/numbers.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

constexpr double kMsOfSecond = 1000.0;
constexpr double kFast = 100.0;  // Hz, from where one decimal is enough

bool MayBeHeld(const CSonadexView& view, std::int32_t y) {
  const ViewLayout& layout = view.layout;
  if (!view.selectionShown() || y < 0 || y >= layout.timeAxis.top) return false;
  return !view.labelEntry.enabled || y >= layout.audio.top;
}

}  // namespace

std::optional<SelectionEdge> EdgeUnder(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (!MayBeHeld(view, y)) return std::nullopt;
  CChannel& channel = view.channel();
  const AxisScale time = TimeAxisOf(channel, view.layout.axisWidth());
  const double start = std::abs(time.X(channel.selectionStart.ms) - x);
  const double end = std::abs(time.X(InsideRecordingMs(channel, channel.selectionEnd.ms)) - x);
  if (std::min(start, end) > kEdgePixels) return std::nullopt;
  return start < end ? SelectionEdge::kStart : SelectionEdge::kEnd;
}

void HoldEdge(CSonadexView& view, SelectionEdge edge) {
  CChannel& channel = view.channel();
  const bool isStart = edge == SelectionEdge::kStart;
  const TimePoint held = isStart ? channel.selectionStart : channel.selectionEnd;
  const TimePoint fixed = isStart ? channel.selectionEnd : channel.selectionStart;
  SetCursorAtPoint(view.document(), fixed);
  channel.dragPoint = held;
  UpdateSelection(channel);
}

SelectionEdge NearerEdge(const CSonadexView& view, double ms) {
  const CChannel& channel = view.channel();
  const bool isStart =
      std::abs(ms - channel.selectionStart.ms) < std::abs(ms - channel.selectionEnd.ms);
  return isStart ? SelectionEdge::kStart : SelectionEdge::kEnd;
}

SelectionTexts TextsOfSelection(double startMs, double endMs, std::int32_t timeBase) {
  const bool inSeconds = timeBase != 0;
  const auto text = [&](double ms) {
    return FormatDecimals(InTimeBase(ms, timeBase), inSeconds ? 3 : 1);
  };
  const double lengthMs = endMs - startMs;
  std::string length = text(lengthMs) + (inSeconds ? " s" : " ms");
  if (lengthMs > 0.0) {
    const double rateHz = kMsOfSecond / lengthMs;
    length += " (" + FormatDecimals(rateHz, rateHz < kFast ? 2 : 1) + " Hz)";
  }
  return {text(startMs), length, text(endMs)};
}

}  // namespace cantorix
