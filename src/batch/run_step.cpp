// run_step.cpp - each step of `edit` to the command that it names.
#include "batch/run_step.h"

#include <algorithm>
#include <iterator>

#include "document/label.h"
#include "document/sample_loader.h"
#include "mainview/commands.h"
#include "mainview/editing.h"
#include "mainview/label_commands.h"
#include "mainview/view_commands.h"
#include "measure/labels.h"
#include "measure/stretch.h"
#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix::batch {
namespace {

void SayStep(Session& session, const EditStep& step, const std::string& reason) {
  session.prompts().Say("step \"" + step.text + "\": " + reason);
}

bool InRecording(BatchView& batch, const EditStep& step, double ms) {
  const CChannel& channel = batch.view().channel();
  if (IsInRecording(channel, ms)) return true;
  SayStep(batch.session(), step,
          "the recording ends at " + FormatOneDecimal(channel.totalDurationMs) + " ms");
  return false;
}

// A step that ran and gave no reason against it is done.
bool Done(BatchView& batch, const EditStep& step, const std::function<void()>& action) {
  const BatchPrompts& prompts = batch.session().prompts();
  const int reasonsBefore = prompts.reasonsSaid();
  const bool ran = Guarded(batch.view(), action);
  if (prompts.reasonsSaid() != reasonsBefore) return false;
  if (!ran) SayStep(batch.session(), step, "could not be done");
  return ran;
}

bool RunByCommand(BatchView& batch, const EditStep& step, Command command) {
  CSonadexView& view = batch.view();
  const CommandRow& row = RowOf(command);
  const Facts missing = row.needs & ~FactsOf(&view);
  if (missing != 0U) {
    SayStep(batch.session(), step, "needs " + FactNames(missing));
    return false;
  }
  return Done(batch, step, [&] { row.carrier.RunOn(view); });
}

bool AddLabel(BatchView& batch, const EditStep& step) {
  CSonadexView& view = batch.view();
  if (!InRecording(batch, step, step.first)) return false;
  const int tier = TierFor(view.channel().tiers, step.tier);
  if (tier < 0) {
    SayStep(batch.session(), step, "all tiers are in use");
    return false;
  }
  Label label;
  label.text = step.label;
  label.timeMs = view.channel().PointAtTime(step.first).ms;
  return Done(batch, step, [&] { AddLabelToTier(view, tier, label); });
}

bool Select(BatchView& batch, const EditStep& step) {
  return InRecording(batch, step, step.first) && InRecording(batch, step, step.second) &&
         Done(batch, step, [&] { SelectSpan(batch.view(), step.first, step.second); });
}

bool PlaceCursor(BatchView& batch, const EditStep& step) {
  return InRecording(batch, step, step.first) &&
         Done(batch, step, [&] { PlaceMarker(batch.view(), step.first); });
}

// All but those that change no sample, or take them out only.
bool NeedsSamplesInMemory(EditStep::Kind kind) {
  constexpr EditStep::Kind kOthers[] = {EditStep::kSelect, EditStep::kCursor, EditStep::kLabel,
                                        EditStep::kCopy,   EditStep::kCut,    EditStep::kUndo};
  return std::find(std::begin(kOthers), std::end(kOthers), kind) == std::end(kOthers);
}

}  // namespace

bool RunStep(BatchView& batch, const EditStep& step) {
  if (NeedsSamplesInMemory(step.kind) &&
      !Done(batch, step, [&] { TakeIntoMemory(batch.view().document()); })) {
    return false;
  }
  switch (step.kind) {
    case EditStep::kSelect:
      return Select(batch, step);
    case EditStep::kCursor:
      return PlaceCursor(batch, step);
    case EditStep::kCut:
      return RunByCommand(batch, step, Command::kCut);
    case EditStep::kCopy:
      return RunByCommand(batch, step, Command::kCopy);
    case EditStep::kPaste:
      return RunByCommand(batch, step, Command::kPaste);
    case EditStep::kClear:
      return RunByCommand(batch, step, Command::kClearToReference);
    case EditStep::kSmooth:
      return RunByCommand(batch, step, Command::kSmooth);
    case EditStep::kUndo:
      return RunByCommand(batch, step, Command::kUndo);
    case EditStep::kGain:
      return Done(batch, step, [&] {
        ApplyReferenceAndGain(batch.view(), {step.first, step.second});
      });
    case EditStep::kLabel:
      return AddLabel(batch, step);
  }
  return false;
}

}  // namespace cantorix::batch
