// paste_command.cpp - the clipboard into a recording, or as the recording of an empty document.
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "document/label.h"
#include "document/sample_splice.h"
#include "mainview/clipboard.h"
#include "mainview/edit_span.h"
#include "mainview/edit_steps.h"
#include "mainview/editing.h"
#include "mainview/tiers_rollback.h"
#include "mainview/view_commands.h"
#include "platform/numbers.h"
#include "platform/prompts.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr const char* kTooLongToPaste = "For very long files, pasting is not permitted.";
constexpr const char* kOtherChannelCount =
    "Pasting of files with different number of channels is not allowed.";
constexpr const char* kOtherRate =
    "Pasting files with different sample rates for channels is not allowed.";

constexpr std::size_t kSlots = std::tuple_size_v<decltype(Clipboard::slots)>;

[[noreturn]] void BeepAndRefuse(CSonadexView& view, const char* text) {
  view.prompts().Beep();
  Refuse(view, text);
}

void RequireItFits(CSonadexView& view) {
  const Clipboard& clipboard = view.services().clipboard;
  CSonadexDoc& document = view.document();
  // Kept: refused only now, so that an undo file was written.
  if (document.samplesOnDisk()) Refuse(view, kTooLongToPaste);
  if (document.channelCount != clipboard.channelCount) BeepAndRefuse(view, kOtherChannelCount);
  const auto channels = ChannelsInUse(document);
  for (std::size_t i = 0; i < channels.size(); ++i) {
    if (channels[i].sampleRateHz != clipboard.slots[i].sampleRateHz) {
      BeepAndRefuse(view, kOtherRate);
    }
  }
}

// A channel as it will be after the paste. The samples are put together before anything changes.
struct Pasted {
  EditSpan replaced;
  TimePoint total;
  SampleBlock samples;
};

Pasted Prepare(CSonadexView& view, const CChannel& channel, const CChannel& slot) {
  Pasted pasted;
  pasted.replaced = view.selectionShown() ? SelectedSpan(channel) : CursorSpan(channel);
  if (view.selectionShown()) RequireSomethingLeft(channel, pasted.replaced);
  pasted.total = {
      channel.totalLength - pasted.replaced.length.samples + slot.totalLength,
      channel.totalDurationMs - pasted.replaced.length.ms + slot.totalDurationMs,
  };
  const std::int64_t count = Truncate(pasted.total.samples);
  RequireMemoryFor(view, count);
  pasted.samples = Spliced(channel.samples.samples(), pasted.replaced.firstSample(),
                           pasted.replaced.endSample(), slot.samples.samples());
  return pasted;
}

// The labels of slot `index`, with their times in the recording that they come to.
Tiers LabelsAt(const Clipboard& clipboard, std::size_t index, double atMs) {
  const CChannel& slot = clipboard.slots[index];
  if (atMs == slot.selectionStart.ms) return clipboard.tiersAsCopied[index];
  Tiers tiers = slot.tiers;
  for (Tier& tier : tiers) {
    for (Label& label : tier.labels) label.timeMs += atMs;
  }
  return tiers;
}

// A tier that receives labels comes into use: they would be neither seen nor saved.
void AddLabels(CChannel& channel, const Tiers& added) {
  for (std::size_t i = 0; i < added.size(); ++i) {
    if (added[i].labels.empty()) continue;
    Tier& tier = channel.tiers[i];
    tier.inUse = true;
    if (tier.name.empty()) tier.name = added[i].name;
    tier.labels.insert(tier.labels.end(), added[i].labels.begin(), added[i].labels.end());
  }
}

// May be left by an exception; what follows may not.
void InsertLabels(CChannel& channel, const Clipboard& clipboard, std::size_t index,
                  const Pasted& pasted) {
  const double atMs = pasted.replaced.start.ms;
  CloseLabels(channel, pasted.replaced);
  SpreadLabels(channel, atMs, clipboard.slots[index].totalDurationMs);
  AddLabels(channel, LabelsAt(clipboard, index, atMs));
}

void TakeSamples(CChannel& channel, Pasted& pasted) {
  channel.samples = std::move(pasted.samples);
  channel.totalLength = pasted.total.samples;
  channel.totalDurationMs = pasted.total.ms;
}

void PasteIntoRecording(CSonadexView& view) {
  ViewEdit edit(view, UndoScope::kSamples);
  RequireItFits(view);
  const Clipboard& clipboard = view.services().clipboard;
  const auto channels = ChannelsInUse(view.document());
  std::array<Pasted, kSlots> pasted;
  for (std::size_t i = 0; i < channels.size(); ++i) {
    pasted[i] = Prepare(view, channels[i], clipboard.slots[i]);
  }
  const EditSpan replaced = pasted.front().replaced;
  std::array<std::optional<TiersRollback>, kSlots> rollbacks;
  for (std::size_t i = 0; i < channels.size(); ++i) {
    rollbacks[i].emplace(channels[i]);
    InsertLabels(channels[i], clipboard, i, pasted[i]);
  }
  for (std::size_t i = 0; i < channels.size(); ++i) TakeSamples(channels[i], pasted[i]);
  for (auto& rollback : rollbacks) rollback.reset();
  view.document().TellSampleEdit({.kind = SampleEdit::Kind::kSplice,
                                  .first = replaced.firstSample(),
                                  .end = replaced.endSample(),
                                  .inserted = clipboard.slots.front().samples.samples()});
  DropSelection(view);
  FollowScrollBar(view);
  FinishSampleEdit(view, edit);
}

void Place(CSonadexDoc& document, std::size_t index, CChannel& copy, const CChannel& slot) {
  CChannel& channel = document.channels[index];
  channel.CopyFields(copy);
  channel.tiers = slot.tiers;
  channel.ShowWholeFile();
  if (index == 0) return document.HoldInMemory(std::move(copy.samples));
  channel.samples = std::move(copy.samples);
}

void PasteAsRecording(CSonadexView& view) {
  ViewEdit edit(view, Playback::kStops);
  const Clipboard& clipboard = view.services().clipboard;
  CSonadexDoc& document = view.document();
  const auto count = static_cast<std::size_t>(clipboard.channelCount);
  std::array<CChannel, kSlots> copies;
  for (std::size_t i = 0; i < count; ++i) {
    AssignOrReport(copies[i], clipboard.slots[i], document.host().memory, view.prompts());
  }
  for (std::size_t i = 0; i < count; ++i) Place(document, i, copies[i], clipboard.slots[i]);
  document.channelCount = clipboard.channelCount;
  document.settings.referenceRateHz = clipboard.slots[0].sampleRateHz;
  document.loaded = true;
  document.TellSampleEdit(
      {.kind = SampleEdit::Kind::kSplice, .inserted = clipboard.slots[0].samples.samples()});
  view.undoAvailable = false;
  DropSelection(view);
  view.FollowStretch();
  FinishSampleEdit(view, edit);
}

}  // namespace

void Paste(CSonadexView& view) {
  if (!view.services().clipboard.clipboardFull) return;
  if (view.document().loaded) return PasteIntoRecording(view);
  PasteAsRecording(view);
}

}  // namespace cantorix
