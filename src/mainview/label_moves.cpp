// label_moves.cpp - labels in the order of their times.
#include "mainview/label_moves.h"

#include <limits>
#include <utility>

#include "document/label.h"
#include "mainview/cursor_moves.h"
#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/listening.h"
#include "mainview/view_edit.h"
#include "settings/settings.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

const Tier& TierAt(const CSonadexView& view, int tier) {
  return view.channel().tiers[static_cast<std::size_t>(tier)];
}

bool InUse(const CSonadexView& view, int tier) {
  return tier >= 0 && tier < kTierCount && TierAt(view, tier).inUse;
}

// By time, then as stored.
using Place = std::pair<double, int>;

// The label next to `from` on one side; -1 without one.
int NextTo(const std::vector<Label>& labels, const Place& from, int direction) {
  int found = -1;
  Place nearest;
  for (int i = 0; i < static_cast<int>(labels.size()); ++i) {
    const Place place(labels[static_cast<std::size_t>(i)].timeMs, i);
    const bool isAhead = direction > 0 ? place > from : place < from;
    const bool isNearer = found < 0 || (direction > 0 ? place < nearest : place > nearest);
    if (!isAhead || !isNearer) continue;
    found = i;
    nearest = place;
  }
  return found;
}

// A label exactly at the cursor is still to come on the way to the right.
Place PlaceOfCursor(const CSonadexView& view, int direction) {
  const int selected = SelectedLabel(view);
  if (selected >= 0) {
    const auto& labels = TierAt(view, CurrentTier(view)).labels;
    return {labels[static_cast<std::size_t>(selected)].timeMs, selected};
  }
  return {view.channel().cursor.ms, direction > 0 ? -1 : std::numeric_limits<int>::max()};
}

}  // namespace

int CurrentTier(const CSonadexView& view) {
  if (InUse(view, view.labelEntry.chosenTier)) return view.labelEntry.chosenTier;
  for (int i = 0; i < kTierCount; ++i) {
    if (InUse(view, i)) return i;
  }
  return -1;
}

int SelectedLabel(const CSonadexView& view) {
  const int tier = CurrentTier(view);
  const int index = view.labelEntry.selectedLabel;
  if (tier < 0 || tier != view.labelEntry.chosenTier) return -1;
  return index >= 0 && index < TierAt(view, tier).labelCount() ? index : -1;
}

void SelectLabel(CSonadexView& view, int tier, int index) {
  view.labelEntry.chosenTier = tier;
  view.labelEntry.selectedLabel = index;
  view.Redraw();
}

void StepTier(CSonadexView& view, int direction) {
  int tier = CurrentTier(view);
  if (tier < 0) return view.Say("No tier is in use.");
  for (int i = tier + direction; i >= 0 && i < kTierCount; i += direction) {
    if (!InUse(view, i)) continue;
    tier = i;
    break;
  }
  const ViewEdit edit(view, Playback::kGoesOn);
  if (tier != CurrentTier(view)) view.labelEntry.selectedLabel = -1;
  view.labelEntry.chosenTier = tier;
  view.Say("Current tier: '" + TierAt(view, tier).name + "'");
}

bool StepLabel(CSonadexView& view, int direction) {
  const int tier = CurrentTier(view);
  if (tier < 0) {
    view.Say("No tier is in use.");
    return false;
  }
  const Tier& slot = TierAt(view, tier);
  const int next = NextTo(slot.labels, PlaceOfCursor(view, direction), direction);
  if (next < 0) {
    view.Say(direction > 0 ? "No label of '" + slot.name + "' follows."
                           : "No label of '" + slot.name + "' stands before.");
    return false;
  }
  const ViewEdit edit(view, Playback::kGoesOn);
  const Label& label = slot.labels[static_cast<std::size_t>(next)];
  PlaceMarkerInSight(view, view.channel().PointAtTime(label.timeMs));
  SelectLabel(view, tier, next);
  view.Say(TextOfLabel(view, tier, label));
  return true;
}

void PlaySelectedLabel(CSonadexView& view) {
  PlayLabel(view, CurrentTier(view), SelectedLabel(view));
}

void EditSelectedLabel(CSonadexView& view) {
  AskToEditLabel(view, CurrentTier(view), SelectedLabel(view));
}

void DeleteSelectedLabel(CSonadexView& view) {
  DeleteLabel(view, CurrentTier(view), SelectedLabel(view));
}

std::string TextOfLabel(const CSonadexView& view, int tier, const Label& label) {
  const std::int32_t timeBase = view.document().settings.display.timeBase;
  return TierAt(view, tier).name + ": " + label.text + " at " +
         TimeWithUnit(label.timeMs, timeBase);
}

}  // namespace cantorix
