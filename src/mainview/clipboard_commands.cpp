// clipboard_commands.cpp - Copy and Cut.
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "document/label.h"
#include "document/sample_bytes.h"
#include "document/sample_splice.h"
#include "mainview/clipboard.h"
#include "mainview/edit_span.h"
#include "mainview/edit_steps.h"
#include "mainview/editing.h"
#include "mainview/view_commands.h"
#include "platform/abandon.h"
#include "platform/numbers.h"
#include "platform/progress.h"

namespace cantorix {
namespace {

constexpr const char* kTooLongToCut =
    "For very long files, cutting is not permitted.\n"
    "You may select a piece and save it to a smaller file for further editing.";

// From the disk store one second at a time, so that the user can cancel.
SampleBlock ReadFromStore(CSonadexView& view, std::int64_t first, std::int64_t count) {
  const SampleSource& source = view.document().Samples();
  const std::int64_t step = OneSecondOfSamples(view.channel().sampleRateHz);
  SampleBlock block(count);
  std::vector<std::int16_t> scratch;
  ProgressScope status(view.progress(), kFileStatusText, static_cast<double>(count));
  for (std::int64_t done = 0; done < count; done += step) {
    status.StepOrAbandon(static_cast<double>(done));
    const auto samples = source.View(first + done, std::min(step, count - done), scratch);
    std::copy(samples.begin(), samples.end(), block.samples().begin() + done);
  }
  return block;
}

SampleBlock CopySamples(CSonadexView& view, const CChannel& channel, const EditSpan& span) {
  const std::int64_t first = span.firstSample();
  const std::int64_t count = span.sampleCount();
  RequireMemoryFor(view, count);
  const bool isFirst = &channel == &view.channel();
  if (isFirst && view.document().samplesOnDisk()) return ReadFromStore(view, first, count);
  const SpanSource block(channel.samples.samples());
  const SampleSource& source = isFirst ? view.document().Samples() : block;
  SampleBlock copy(count);
  source.Read(first, copy.samples());
  return copy;
}

void CopyChannel(CSonadexView& view, std::size_t index) {
  const CChannel& channel = view.document().channels[index];
  CChannel& slot = view.services().clipboard.slots[index];
  Tiers& asCopied = view.services().clipboard.tiersAsCopied[index];
  const EditSpan span = SelectedSpan(channel);
  slot.CopyFields(channel);
  slot.selectionStart = span.start;
  slot.selectionEnd = span.end;
  slot.selectionLength = span.length;
  slot.totalLength = span.length.samples;
  slot.totalDurationMs = span.length.ms;
  asCopied = TiersInside(channel, span);
  slot.tiers = asCopied;
  for (Tier& tier : slot.tiers) {
    for (Label& label : tier.labels) label.timeMs -= span.start.ms;
  }
  slot.samples = CopySamples(view, channel, span);
}

// The second half of Cut. Everything that can be refused is looked at before a sample moves.
void DeleteSelection(CSonadexView& view) {
  CSonadexDoc& document = view.document();
  // Kept: refused only now, so that an undo file was written.
  if (document.samplesOnDisk()) Refuse(view, kTooLongToCut);
  const auto channels = ChannelsInUse(document);
  for (const CChannel& channel : channels) {
    RequireSomethingLeft(channel, SelectedSpan(channel));
  }
  const EditSpan cut = SelectedSpan(document.channel());
  for (CChannel& channel : channels) {
    const EditSpan span = SelectedSpan(channel);
    if (&channel == &document.channel()) {
      document.RemoveSamples(span.firstSample(), span.endSample());
    } else {
      RemoveSamples(channel.samples, span.firstSample(), span.endSample());
    }
    channel.totalLength -= span.length.samples;
    channel.totalDurationMs -= span.length.ms;
    CloseLabels(channel, span);
  }
  document.TellSampleEdit(
      {.kind = SampleEdit::Kind::kSplice, .first = cut.firstSample(), .end = cut.endSample()});
}

}  // namespace

void CopySelection(CSonadexView& view) {
  view.StopPlayback();
  Clipboard& clipboard = view.services().clipboard;
  clipboard.Empty();
  const std::size_t count = std::min(ChannelsInUse(view.document()).size(), clipboard.slots.size());
  try {
    for (std::size_t i = 0; i < count; ++i) CopyChannel(view, i);
  } catch (...) {
    clipboard.Empty();
    throw;
  }
  clipboard.channelCount = static_cast<std::int32_t>(count);
  clipboard.clipboardFull = true;
}

void CutSelection(CSonadexView& view) {
  CopySelection(view);
  ViewEdit edit(view, UndoScope::kSamples);
  DeleteSelection(view);
  FollowScrollBar(view);
  DropSelection(view);
  FinishSampleEdit(view, edit);
}

}  // namespace cantorix
