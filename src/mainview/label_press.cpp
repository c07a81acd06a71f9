// label_press.cpp - the mouse in label entry mode, and what it hits in the tiers.
#include <cmath>
#include <utility>

#include "document/label.h"
#include "mainview/dialog_answers.h"
#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_layout.h"
#include "mainview/label_snap.h"
#include "mainview/label_typing.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

double TimeUnder(const CSonadexView& view, std::int32_t x) {
  return PixelToTime(view.channel(), view.layout.axisWidth(), x - kLeftMargin).ms;
}

constexpr double kLongestText = 4000.0;  // pixels; a label further off cannot reach the point

// The first label whose box holds the point.
void HitTestTier(CSonadexView& view, int tier, std::int32_t x, std::int32_t y) {
  const AxisScale time = TimeAxisOf(view.channel(), view.layout.axisWidth());
  for (int i = 0; FindLabel(view, tier, i) != nullptr; ++i) {
    const Label& label = *FindLabel(view, tier, i);
    if (std::abs(time.X(label.timeMs) - x) > kLongestText) continue;
    if (!Contains(LabelRectangle(view, tier, label), x, y)) continue;
    view.labelEntry.pressedLabel = view.labelEntry.selectedLabel = i;
    view.labelEntry.label = label;
    return;
  }
}

void AskForNewLabel(CSonadexView& view, int tier, double ms) {
  Label fresh;
  fresh.timeMs = ms;
  auto answer = view.services().dialogs.AskLabel(fresh, false);
  if (!answer || answer->remove || IsBlank(answer->label.text)) return;
  AddLabelToTier(view, tier, std::move(answer->label));
}

}  // namespace

void ToggleLabelEntry(CSonadexView& view) {
  if (!KeepTyping(view)) return;
  LabelEntryState next;
  next.enabled = !view.labelEntry.enabled;
  next.chosenTier = view.labelEntry.chosenTier;
  next.selectedLabel = view.labelEntry.selectedLabel;
  view.labelEntry = std::move(next);
  view.press.draggedLabel = false;
  view.Say(TypingHint(view));
}

void HitTestLabels(CSonadexView& view, std::int32_t x, std::int32_t y) {
  view.labelEntry.currentTier = -1;
  view.labelEntry.pressedLabel = view.labelEntry.selectedLabel = -1;
  for (int i = 0; i < kTierCount; ++i) {
    if (!Contains(view.layout.tier(i), x, y)) continue;
    view.labelEntry.currentTier = view.labelEntry.chosenTier = i;
    HitTestTier(view, i, x, y);
  }
}

void DragLabel(CSonadexView& view, std::int32_t x, std::int32_t y) {
  const int tier = view.labelEntry.currentTier;
  if (FindTier(view, tier) == nullptr) return;
  LabelEntryState& entry = view.labelEntry;
  const double ms = TimeUnder(view, x);
  entry.snapMs = view.press.snaps ? SnapTime(view, tier, ms) : std::nullopt;
  entry.label.timeMs = entry.snapMs.value_or(ms);
  entry.label.verticalPosition = VerticalPositionAt(view.layout.tier(tier), y);
}

int DropDraggedLabel(CSonadexView& view) {
  LabelEntryState& entry = view.labelEntry;
  const bool dragged = std::exchange(view.press.draggedLabel, false) && view.press.moved;
  if (!entry.enabled || !dragged || FindTier(view, entry.currentTier) == nullptr) return -1;
  entry.snapMs.reset();
  const Label dropped = entry.label;
  const int index = std::exchange(entry.pressedLabel, -1);
  MoveLabel(view, entry.currentTier, index, dropped.timeMs, dropped.verticalPosition);
  return index;
}

void FinishLabelClick(CSonadexView& view, std::int32_t x, std::int32_t y) {
  const LabelEntryState& entry = view.labelEntry;
  const int tier = entry.currentTier;
  if (!entry.enabled || view.press.moved || FindTier(view, tier) == nullptr) return;
  const int label = std::exchange(view.labelEntry.pressedLabel, -1);
  if (label >= 0) return AskToEditLabel(view, tier, label);
  if (Contains(view.layout.tier(tier), x, y)) AskForNewLabel(view, tier, TimeUnder(view, x));
}

}  // namespace cantorix
