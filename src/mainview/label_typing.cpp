// label_typing.cpp - a label between its first letter and its end.
#include "mainview/label_typing.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_moves.h"
#include "mainview/time_axis.h"
#include "mainview/view_edit.h"
#include "platform/numbers.h"
#include "settings/settings.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

constexpr int kFirstSlot = 1;
constexpr std::int32_t kLeastField = 60;  // pixels
constexpr std::int32_t kFieldPadding = 14;
constexpr std::int32_t kFieldHeight = 20;  // where the tiers are not drawn

Tier& TierAt(CSonadexView& view, int tier) {
  return view.channel().tiers[static_cast<std::size_t>(tier)];
}

// The slot that "words" has, or can have.
int SlotForWords(const Tiers& tiers) {
  const auto slotNamed = [&tiers](const char* name) {
    for (int i = 0; i < kTierCount; ++i) {
      if (tiers[static_cast<std::size_t>(i)].name == name) return i;
    }
    return -1;
  };
  const int named = slotNamed(kFirstTierName);
  const int unnamed = slotNamed("");
  if (named >= 0) return named;
  return unnamed >= 0 ? unnamed : kFirstSlot;
}

void Take(Tier& tier) {
  tier.inUse = true;
  if (tier.name.empty()) tier.name = kFirstTierName;
}

// A tier that is shown for the typing alone goes again.
void Untake(CSonadexView& view, const LabelTyping& typing) {
  if (!typing.takesTier) return;
  Tier& tier = TierAt(view, typing.tier);
  tier.inUse = false;
  if (typing.namesTier) tier.name.clear();
}

void ShowTyping(CSonadexView& view, LabelTyping typing) {
  const ViewEdit edit(view, Playback::kGoesOn);
  view.labelEntry.chosenTier = typing.tier;
  view.labelEntry.selectedLabel = typing.index;
  if (!view.selectionShown()) view.SetMarker();
  if (typing.takesTier) view.Changed(DocumentChange::kSettings);
  view.labelEntry.typing = std::move(typing);
  view.Redraw();
}

Label LabelLikeLastOf(const Tier& tier) {
  Label label;
  if (tier.labels.empty()) return label;
  const Label& last = tier.labels.back();
  label.font = last.font;
  label.colour = last.colour;
  label.alignment = last.alignment;
  return label;
}

// A label of the tier within a pixel of the cursor.
int LabelAtCursor(CSonadexView& view, int tier) {
  const AxisScale time = TimeAxisOf(view.channel(), view.layout.axisWidth());
  const double cursor = time.X(view.channel().cursor.ms);
  const auto& labels = TierAt(view, tier).labels;
  const auto found = std::find_if(labels.begin(), labels.end(), [&](const Label& label) {
    return std::abs(time.X(label.timeMs) - cursor) <= 1.0;
  });
  return found == labels.end() ? -1 : static_cast<int>(found - labels.begin());
}

// What the typing puts into the tier.
void Store(CSonadexView& view, const LabelTyping& typing, bool withEnd) {
  if (typing.index >= 0) return EditLabel(view, typing.tier, typing.index, typing.label);
  std::vector<Label> labels{typing.label};
  if (withEnd && typing.endMs) {
    Label end = typing.label;
    end.text.clear();
    end.timeMs = *typing.endMs;
    end.flag = 1;
    labels.push_back(std::move(end));
  }
  AddLabelsToTier(view, typing.tier, std::move(labels));
}

bool Keep(CSonadexView& view, bool withEnd) {
  auto& typing = view.labelEntry.typing;
  if (!typing) return true;
  if (!typing->refusal.empty()) {
    view.Say(typing->refusal);
    return false;
  }
  const bool unchanged = typing->index >= 0 && typing->label.text == typing->before;
  if (unchanged || IsBlank(typing->label.text)) {
    DropTyping(view);
    return true;
  }
  const LabelTyping kept = *std::exchange(typing, std::nullopt);
  Untake(view, kept);
  try {
    Store(view, kept, withEnd);
  } catch (...) {
    if (kept.takesTier) Take(TierAt(view, kept.tier));
    view.labelEntry.typing = kept;
    throw;
  }
  const int last = TierAt(view, kept.tier).labelCount() - 1;
  SelectLabel(view, kept.tier, withEnd && kept.endMs ? last - 1 : last);
  view.Say(TextOfLabel(view, kept.tier, kept.label));
  return true;
}

}  // namespace

void BeginTyping(CSonadexView& view, std::string_view text) {
  if (!view.document().loaded || !KeepTyping(view)) return;
  const ViewEdit edit(view, Playback::kGoesOn);
  CChannel& channel = view.channel();
  LabelTyping typing;
  typing.tier = CurrentTier(view);
  if (typing.tier < 0) {
    typing.tier = SlotForWords(channel.tiers);
    typing.takesTier = true;
    Tier& tier = TierAt(view, typing.tier);
    typing.namesTier = tier.name.empty();
    Take(tier);
  }
  typing.label = LabelLikeLastOf(TierAt(view, typing.tier));
  const bool over = view.selectionShown();
  typing.label.timeMs =
      InsideRecordingMs(channel, (over ? channel.selectionStart : channel.cursor).ms);
  if (over) typing.endMs = InsideRecordingMs(channel, channel.selectionEnd.ms);
  ShowTyping(view, std::move(typing));
  TypeText(view, text);
}

void BeginNewLabel(CSonadexView& view) { BeginTyping(view, {}); }

void TypeOverLabel(CSonadexView& view) {
  if (!KeepTyping(view)) return;
  const int tier = CurrentTier(view);
  int index = SelectedLabel(view);
  if (index < 0 && tier >= 0) index = LabelAtCursor(view, tier);
  if (index < 0) return view.Say("No label stands at the cursor. A letter begins one.");
  LabelTyping typing;
  typing.tier = tier;
  typing.index = index;
  typing.label = TierAt(view, tier).labels[static_cast<std::size_t>(index)];
  typing.before = typing.label.text;
  ShowTyping(view, std::move(typing));
}

bool TypeText(CSonadexView& view, std::string_view text) {
  auto& typing = view.labelEntry.typing;
  if (!typing) return true;
  const bool fits = text.size() <= kMaxLabelBytes;
  if (fits) typing->label.text = text;
  typing->refusal = fits ? "" : "A label holds at most 255 bytes. Delete something, or press Esc.";
  if (fits) {
    view.Redraw();
  } else {
    view.Say(typing->refusal);
  }
  return fits;
}

bool KeepTyping(CSonadexView& view) { return Keep(view, false); }

bool KeepTypingWithEnd(CSonadexView& view) { return Keep(view, true); }

void DropTyping(CSonadexView& view) {
  auto& typing = view.labelEntry.typing;
  if (!typing) return;
  const LabelTyping dropped = *std::exchange(typing, std::nullopt);
  Untake(view, dropped);
  view.Changed(dropped.takesTier ? DocumentChanges(DocumentChange::kSettings) : DocumentChanges());
}

void ForgetTyping(CSonadexView& view) {
  view.labelEntry.selectedLabel = -1;
  const auto typing = std::exchange(view.labelEntry.typing, std::nullopt);
  if (typing && TierAt(view, typing->tier).labels.empty()) Untake(view, *typing);
}

void KeepTypingAndStep(CSonadexView& view, int direction) {
  if (KeepTyping(view) && StepLabel(view, direction)) TypeOverLabel(view);
}

std::optional<PixelRect> TypingPlace(CSonadexView& view, std::int32_t textWidth) {
  const auto& typing = view.labelEntry.typing;
  if (!typing) return std::nullopt;
  const AxisScale time = TimeAxisOf(view.channel(), view.layout.axisWidth());
  const double right = std::max(time.right(), time.left + kLeastField);
  const double start = std::clamp(time.X(typing->label.timeMs), time.left, right - kLeastField);
  double width = std::max(textWidth + kFieldPadding, kLeastField);
  if (typing->endMs) {
    width = std::max(std::min(time.X(*typing->endMs), right) - start, double{kLeastField});
  }
  const double left = std::max(std::min(start, right - width), time.left);
  PixelRect strip = view.layout.tier(typing->tier);
  if (strip.bottom <= strip.top) strip = {0, 0, 0, kFieldHeight};
  return PixelRect{TruncateToInt32(left), strip.top, TruncateToInt32(std::min(left + width, right)),
                   strip.bottom};
}

std::string TypingHint(const CSonadexView& view) {
  if (!view.labelEntry.enabled) return {};
  const int tier = CurrentTier(view);
  if (tier < 0) return "No tier in use. Type to use 'words', or set tiers...";
  const CChannel& channel = view.channel();
  const double ms = view.selectionShown() ? channel.selectionStart.ms : channel.cursor.ms;
  return "Type a label for '" + channel.tiers[static_cast<std::size_t>(tier)].name + "' at " +
         TimeWithUnit(ms, view.document().settings.display.timeBase);
}

}  // namespace cantorix
