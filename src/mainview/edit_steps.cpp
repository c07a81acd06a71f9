// edit_steps.cpp
#include "mainview/edit_steps.h"

#include <algorithm>
#include <string>

#include "mainview/analysis_commands.h"
#include "platform/abandon.h"
#include "platform/prompts.h"
#include "platform/services.h"

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

void FinishSampleEdit(CSonadexView& view) {
  view.document().SetModified(true);
  try {
    AnalyseAfterEdit(view);
  } catch (...) {
    view.Changed(DocumentChange::kSamples);
    throw;
  }
  view.Changed(DocumentChange::kSamples);
}

void FinishBrokenEdit(CSonadexView& view) {
  view.document().SetModified(true);
  view.pitch = {};
  view.channel().intensity = {};
  view.Changed(DocumentChange::kSamples);
}

}  // namespace cantorix
