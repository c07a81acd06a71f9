// verb_edit.cpp - the verbs that change a recording with the commands of the desktop and save it.
#include <algorithm>

#include "batch/run_step.h"
#include "batch/verbs.h"
#include "document/label.h"
#include "mainview/commands.h"
#include "mainview/label_commands.h"
#include "mainview/label_import.h"
#include "platform/file.h"
#include "platform/file_error.h"

namespace cantorix::batch {

bool Edit(Session& session) {
  BatchView batch(session);
  const auto& steps = session.request().steps;
  return std::all_of(steps.begin(), steps.end(),
                     [&](const EditStep& step) { return RunStep(batch, step); }) &&
         Convert(session);
}

bool ImportLabels(Session& session) {
  const LabelImport& import = session.request().labelImport;
  std::string bytes;
  try {
    bytes = ReadWholeFile(import.textFile);
  } catch (const FileError& error) {
    session.prompts().Say(CouldNotBeOpened(import.textFile, error.what()));
    return false;
  }
  if (ReadLabelLines(bytes, import.options).empty()) {
    session.prompts().Say(import.textFile + " holds no labels.");
    return false;
  }
  BatchView batch(session);
  CSonadexView& view = batch.view();
  const int tier = TierFor(view, import.tier);
  if (tier < 0) {
    session.prompts().Say("All tiers are in use, none is named " + import.tier + ".");
    return false;
  }
  return Guarded(view, [&] { ImportLabelLines(view, tier, bytes, import.options); }) &&
         Convert(session);
}

}  // namespace cantorix::batch
