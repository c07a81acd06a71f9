// listening.cpp - stretches as samples.
#include "mainview/listening.h"

#include <algorithm>
#include <optional>

#include "document/label.h"
#include "mainview/label_entry_state.h"

namespace cantorix {
namespace {

const Label* LabelAt(const CChannel& channel, int tier, int index) {
  if (tier < 0 || tier >= kTierCount) return nullptr;
  const auto& labels = channel.tiers[static_cast<std::size_t>(tier)].labels;
  const bool exists = index >= 0 && index < std::ssize(labels);
  return exists ? &labels[static_cast<std::size_t>(index)] : nullptr;
}

// Labels stand in the order in which they were entered.
double EndMs(const CChannel& channel, int tier, const Label& label) {
  double endMs = channel.totalDurationMs;
  for (const Label& other : channel.tiers[static_cast<std::size_t>(tier)].labels) {
    if (other.timeMs > label.timeMs) endMs = std::min(endMs, other.timeMs);
  }
  return endMs;
}

}  // namespace

void BeginRecording(CSonadexView& view) { view.services().sound.Record(); }

void PlaySamples(CSonadexView& view, const SampleRange& range) {
  view.services().sound.Play(range);
}

void PlayStretch(CSonadexView& view, Stretch stretch) {
  PlaySamples(view, StretchOf(view, stretch));
}

void PlayOrStop(CSonadexView& view) {
  if (StopSound(view)) return;
  PlayStretch(view, view.selectionShown() ? Stretch::kSelection : Stretch::kWindow);
}

bool StopSound(CSonadexView& view) {
  if (view.services().sound.EndRecording()) return true;
  if (!view.services().sound.Sound().playingHere) return false;
  view.StopPlayback();
  return true;
}

void PlayLabel(CSonadexView& view, int tier, int index) {
  const CChannel& channel = view.channel();
  const Label* const label = LabelAt(channel, tier, index);
  if (label == nullptr) return;
  PlaySamples(view, {channel.PointAtTime(label->timeMs).samples,
                     channel.PointAtTime(EndMs(channel, tier, *label)).samples});
}

void PlayPressedLabel(CSonadexView& view) {
  const LabelEntryState& entry = view.labelEntry;
  if (!entry.enabled) PlayLabel(view, entry.currentTier, entry.pressedLabel);
}

}  // namespace cantorix
