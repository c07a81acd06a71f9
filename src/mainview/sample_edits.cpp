// sample_edits.cpp - the edits that change samples where they stand: clear, gain, smooth.
#include <algorithm>
#include <memory>
#include <string>

#include "document/sample_changes.h"
#include "mainview/edit_span.h"
#include "mainview/edit_steps.h"
#include "mainview/editing.h"
#include "mainview/option_commands.h"
#include "mainview/sample_rewrite.h"
#include "platform/numbers.h"
#include "platform/prompts.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

// Kept: neither Yes nor No saves the document; the question only warns.
bool GoesOn(CSonadexView& view) {
  const std::string question = "This operation will change the current data permanently.\nSave ' " +
                               view.document().title() + " ' before proceeding ?";
  return view.prompts().Ask(question, Buttons::kYesNoCancel) != Answer::kCancel;
}

}  // namespace

void ClearToReference(CSonadexView& view) {
  ViewEdit edit(view, UndoScope::kSamples);
  // Kept: refused only now, so that an undo file was written.
  if (view.document().samplesOnDisk()) Refuse(view, "long file error");
  // Kept: only the first channel is cleared.
  CChannel& channel = view.channel();
  const EditSpan span = SelectedSpan(channel);
  const auto samples = channel.samples.samples();
  const std::int16_t level = Low16(Truncate(channel.referenceLevel));
  std::fill(samples.begin() + span.firstSample(), samples.begin() + span.endSample(), level);
  view.document().TellSampleEdit({.kind = SampleEdit::Kind::kFill,
                                  .first = span.firstSample(),
                                  .end = span.endSample(),
                                  .value = level});
  FinishSampleEdit(view, edit);
}

void ReferenceAndGain(CSonadexView& view) {
  GainSettings& gain = view.document().settings.gain;
  const auto entered =
      view.services().dialogs.AskGain({static_cast<double>(TruncateToInt32(gain.gainPercent)),
                                       static_cast<double>(TruncateToInt32(gain.reference))});
  if (!entered) return;
  gain = *entered;
  KeepOptions(view, SettingsDialog::kGain);
  if (GoesOn(view)) ApplyReferenceAndGain(view, gain);
}

void ApplyReferenceAndGain(CSonadexView& view, const GainSettings& gain) {
  ViewEdit edit(view, UndoScope::kSamples);
  const auto table = std::make_unique<GainTable>(gain.gainPercent, gain.reference);
  const SampleEdit what{.kind = SampleEdit::Kind::kGain,
                        .gainPercent = gain.gainPercent,
                        .reference = gain.reference};
  RewriteSamples(view, edit, what, [&table](std::int64_t, std::span<std::int16_t> samples) {
    table->Apply(samples);
  });
  FinishSampleEdit(view, edit);
}

void Smooth(CSonadexView& view) {
  ViewEdit edit(view, UndoScope::kSamples);
  Smoother smoother(view.document().Samples());
  RewriteSamples(view, edit, {.kind = SampleEdit::Kind::kSmooth},
                 [&smoother](std::int64_t position, std::span<std::int16_t> block) {
                   smoother.Apply(position, block);
                 });
  FinishSampleEdit(view, edit);
}

}  // namespace cantorix
