// label_press.cpp - the mouse in label entry mode, and what it hits in the tiers.
#include <utility>

#include "mainview/label_commands.h"
#include "mainview/label_layout.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

double TimeUnder(const CSonadexView& view, std::int32_t x) {
  return PixelToTime(view.channel(), x - kLeftMargin).ms;
}

void HitTestTier(CSonadexView& view, const Tier& tier, std::int32_t x, std::int32_t y) {
  for (int i = 0; i < tier.labelCount(); ++i) {
    const Label& label = tier.labels[static_cast<std::size_t>(i)];
    if (!Contains(LabelRectangle(view, tier, label), x, y)) continue;
    view.labelEntry.pressedLabel = i;
    view.labelEntry.label = label;
    return;
  }
}

void AskForNewLabel(CSonadexView& view, int tier, double ms) {
  Label fresh;
  fresh.timeMs = ms;
  auto answer = view.services().dialogs.AskLabel(fresh, false);
  if (!answer || answer->remove) return;
  AddLabelToTier(view, tier, std::move(answer->label));
}

}  // namespace

void ToggleLabelEntry(CSonadexView& view) {
  view.labelEntry = {.enabled = !view.labelEntry.enabled, .label = {}};
  view.press.draggedLabel = false;
  view.Redraw();
}

void HitTestLabels(CSonadexView& view, std::int32_t x, std::int32_t y) {
  view.labelEntry.currentTier = -1;
  view.labelEntry.pressedLabel = -1;
  for (int i = 0; i < kTierCount; ++i) {
    const Tier& tier = *FindTier(view, i);
    if (!tier.inUse || !Contains(tier.rect, x, y)) continue;
    view.labelEntry.currentTier = i;
    HitTestTier(view, tier, x, y);
  }
}

void DragLabel(CSonadexView& view, std::int32_t x, std::int32_t y) {
  const Tier* const tier = FindTier(view, view.labelEntry.currentTier);
  if (tier == nullptr) return;
  view.labelEntry.label.timeMs = TimeUnder(view, x);
  view.labelEntry.label.verticalPosition = VerticalPositionAt(*tier, y);
}

void FinishLabelPress(CSonadexView& view, std::int32_t x, std::int32_t y) {
  const bool dragged = std::exchange(view.press.draggedLabel, false) && view.press.moved;
  const int label = std::exchange(view.labelEntry.pressedLabel, -1);
  const int tier = view.labelEntry.currentTier;
  const Tier* const pressed = FindTier(view, tier);
  if (pressed == nullptr) return;
  if (dragged) {
    return MoveLabel(view, tier, label, TimeUnder(view, x), VerticalPositionAt(*pressed, y));
  }
  if (label >= 0) return AskToEditLabel(view, tier, label);
  if (Contains(pressed->rect, x, y)) AskForNewLabel(view, tier, TimeUnder(view, x));
}

}  // namespace cantorix
