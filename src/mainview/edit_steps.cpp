// edit_steps.cpp - refusals before an edit, the steps after it.
#include "mainview/edit_steps.h"

#include <algorithm>
#include <string>

#include "mainview/analysis_commands.h"
#include "platform/abandon.h"
#include "platform/prompts.h"
#include "platform/services.h"
#include "settings/settings.h"

namespace cantorix {

void Refuse(CSonadexView& view, std::string_view text) {
  view.prompts().Message(std::string(text));
  throw Abandoned(AbandonReason::kFailed);
}

void RequireMemoryFor(CSonadexView& view, std::int64_t sampleCount) {
  const auto bytes = static_cast<std::uint64_t>(sampleCount) * sizeof(std::int16_t);
  if (!view.document().host().memory.CanAllocate(bytes)) {
    throw Abandoned(AbandonReason::kOutOfMemory);
  }
}

void RequireSomethingLeft(const CChannel& channel, const EditSpan& span) {
  if (!(channel.totalLength - span.length.samples >= 1.0)) {
    throw Abandoned(AbandonReason::kFailed);
  }
}

std::span<CChannel> ChannelsInUse(CSonadexDoc& document) {
  const auto count = std::clamp<std::int32_t>(document.channelCount, 0, kChannelSlots);
  return std::span(document.channels).first(static_cast<std::size_t>(count));
}

void NoteSampleEdit(CSonadexView& view, ViewEdit& edit) {
  edit.MarkModified();
  view.pitch = {};
  view.channel().intensity = {};
  view.Changed(DocumentChange::kSamples);
}

void FinishSampleEdit(CSonadexView& view, ViewEdit& edit) {
  NoteSampleEdit(view, edit);
  AnalyseIfAutomatic(view, edit);
}

void AnalyseIfAutomatic(CSonadexView& view, ViewEdit& edit) {
  if (view.document().settings.display.automaticAnalysis == 0) return;
  edit.TellNow();
  AnalysePitch(view, Stretch::kAll);
}

}  // namespace cantorix
