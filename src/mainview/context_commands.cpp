// context_commands.cpp - places and their commands.
#include "mainview/context_commands.h"

#include <algorithm>

#include "document/label.h"
#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_layout.h"
#include "mainview/label_moves.h"
#include "mainview/time_axis.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

using Group = std::vector<Command>;

bool OnSelection(CSonadexView& view, std::int32_t x, std::int32_t y) {
  if (!view.selectionShown() || y >= view.layout.timeAxis.top) return false;
  const CChannel& channel = view.channel();
  const AxisScale time = TimeAxisOf(view.channel(), view.layout.axisWidth());
  return time.X(channel.selectionStart.ms) <= x && x <= time.X(channel.selectionEnd.ms);
}

Group OfPane(const ViewLayout& layout, std::int32_t x, std::int32_t y) {
  if (y >= layout.timeAxis.top) return {Command::kDisplayOptions};
  if (Contains(layout.pitch, x, y)) return {Command::kPitchOptions, Command::kDisplayOptions};
  if (Contains(layout.intensity, x, y)) {
    return {Command::kIntensityOptions, Command::kDisplayOptions};
  }
  return {Command::kDisplayOptions};
}

bool OnTier(const ViewLayout& layout, std::int32_t x, std::int32_t y) {
  return std::any_of(layout.tiers.begin(), layout.tiers.end(), [&](const PixelRect& tier) {
    // The name in the margin belongs to its tier.
    return y >= tier.top && y < tier.bottom && x < tier.right;
  });
}

PixelPoint Middle(const PixelRect& box) {
  return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

}  // namespace

std::vector<std::vector<Command>> ContextCommands(CSonadexView& view, std::int32_t x,
                                                  std::int32_t y) {
  if (!view.document().loaded) return {};
  HitTestLabels(view, x, y);
  view.labelEntry.pressedLabel = -1;
  view.Redraw();
  std::vector<Group> groups;
  if (SelectedLabel(view) >= 0) {
    groups.push_back(
        {Command::kTypeLabel, Command::kEditLabel, Command::kPlayLabel, Command::kDeleteLabel});
  }
  if (OnSelection(view, x, y)) {
    groups.push_back({Command::kZoomSelection, Command::kPlaySelection});
    groups.push_back({Command::kCut, Command::kCopy});
    groups.push_back({Command::kSpectrogramSelection, Command::kFftLpcSelection,
                      Command::kPitchSelection, Command::kStatistics});
  }
  if (OnTier(view.layout, x, y)) {
    groups.push_back({Command::kNewLabel, Command::kSetTiers});
  } else {
    groups.push_back(OfPane(view.layout, x, y));
  }
  return groups;
}

PixelPoint ContextPoint(CSonadexView& view) {
  const ViewLayout& layout = view.layout;
  if (const Label* const label = FindLabel(view, CurrentTier(view), SelectedLabel(view))) {
    return Middle(LabelRectangle(view, CurrentTier(view), *label));
  }
  CChannel& channel = view.channel();
  const AxisScale time = TimeAxisOf(channel, layout.axisWidth());
  const auto inside = [&](double ms) { return std::clamp(time.X(ms), time.left, time.right()); };
  const double x = view.selectionShown()
                       ? (inside(channel.selectionStart.ms) + inside(channel.selectionEnd.ms)) / 2.0
                       : inside(channel.cursor.ms);
  return {TruncateToInt32(x), Middle(layout.audio).y};
}

}  // namespace cantorix
