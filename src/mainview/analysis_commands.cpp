// analysis_commands.cpp - a stretch, the run, and where its result goes.
#include "mainview/analysis_commands.h"

#include <algorithm>
#include <string>

#include "analysis/intensity.h"
#include "mainview/view_edit.h"
#include "platform/prompts.h"
#include "settings/settings.h"

namespace cantorix {

SampleRange StretchOf(const CSonadexView& view, Stretch stretch) {
  const CChannel& channel = view.channel();
  const auto inside = [&channel](double samples) {
    return std::clamp(samples, 0.0, std::max(channel.totalLength, 0.0));
  };
  switch (stretch) {
    case Stretch::kSelection:
      return {inside(channel.selectionStart.samples), inside(channel.selectionEnd.samples)};
    case Stretch::kWindow:
      return {inside(channel.visibleStart.samples), inside(channel.visibleEnd.samples)};
    case Stretch::kAll:
      break;
  }
  return {0.0, channel.totalLength};
}

void AnalysePitch(CSonadexView& view, Stretch stretch) {
  AnalysePitch(view, StretchOf(view, stretch));
}

void AnalysePitch(CSonadexView& view, const SampleRange& range) {
  const ViewEdit run(view, Playback::kGoesOn);
  view.Changed(DocumentChange::kTracks);
  CSonadexDoc& document = view.document();
  const CChannel& channel = view.channel();
  view.pitch = {};
  view.pitch =
      ComputePitch(document.Samples(), range, channel.sampleRateHz, document.settings.pitch,
                   view.progress(), channel.totalLength, document.host().workers);
  if (view.pitch.badParameters) {
    view.prompts().Beep();
    view.prompts().Message(std::string(kBadParametersText));
  }
  // A pitch run that was given up or refused ends the command.
  if (view.pitch.PitchValid) AnalyseIntensity(view, range);
}

void AnalyseIntensity(CSonadexView& view, Stretch stretch) {
  AnalyseIntensity(view, StretchOf(view, stretch));
}

void AnalyseIntensity(CSonadexView& view, const SampleRange& range) {
  const ViewEdit run(view, Playback::kGoesOn);
  view.Changed(DocumentChange::kTracks);
  CSonadexDoc& document = view.document();
  CChannel& channel = view.channel();
  channel.intensity = {};
  channel.intensity =
      ComputeIntensity(document.Samples(), range, channel.sampleRateHz, document.settings.intensity,
                       view.progress(), document.host().workers);
}

}  // namespace cantorix
