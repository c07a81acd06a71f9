// verb_import_labels.cpp - labels of a file into the tiers of a recording, which is saved then.
#include <optional>

#include "batch/batch_view.h"
#include "batch/option_texts.h"
#include "batch/outcome.h"
#include "batch/verbs.h"
#include "document/label.h"
#include "mainview/commands.h"
#include "mainview/label_commands.h"
#include "mainview/label_import.h"
#include "mainview/label_transfer.h"
#include "measure/labels.h"
#include "platform/file.h"
#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

// The lines "TIME<tab>LABEL" in a unit that the user knows, as the desktop takes them into a tier.
bool AddPlainText(Session& session, const std::string& bytes) {
  const LabelImport& import = session.request().labelImport;
  LabelImportOptions options = import.options;
  options.unit = *import.unit;
  if (ReadLabelLines(bytes, options).empty()) {
    session.prompts().Say(import.file + " holds no labels.");
    return false;
  }
  BatchView batch(session);
  CSonadexView& view = batch.view();
  const int tier = TierFor(view.channel().tiers, import.tier);
  if (tier < 0) {
    session.prompts().Say("All tiers are in use, none is named " + import.tier + ".");
    return false;
  }
  return Guarded(view, [&] { ImportLabelLines(view, tier, bytes, options); });
}

// What the labels of the file become; what does not come in is said.
std::optional<LabelImportPlan> PlanFor(Session& session, const std::string& bytes) {
  const LabelImport& import = session.request().labelImport;
  LabelChoice choice;
  choice.tier = import.tier;
  choice.emptyIntervals = import.emptyIntervals;
  choice.alignment = import.options.alignment;
  choice.addLine = import.options.addLine;
  const LabelFormat* const format = LabelFormatOf(import.format);
  try {
    auto read = ReadLabelFile(bytes, import.file, format, ReadingFor(session.document()));
    if (format == nullptr && read.format->key == "text") {
      throw LabelFileError("plain text does not say the unit of its times (--unit answers)");
    }
    auto plan = PlanLabelImport(std::move(read), session.document().channel(), choice);
    if (!plan.losses.empty()) session.prompts().Say(import.file + ": " + InOneLine(plan.losses));
    if (plan.labelCount > 0) return plan;
    session.prompts().Say(import.file + " holds no labels.");
  } catch (const LabelFileError& error) {
    session.prompts().Say(CouldNotBeOpened(import.file, error.what()));
  }
  return std::nullopt;
}

bool AddLabelFile(Session& session, const std::string& bytes) {
  auto plan = PlanFor(session, bytes);
  if (!plan) return false;
  BatchView batch(session);
  return Guarded(batch.view(), [&] { CarryOut(batch.view(), std::move(*plan)); });
}

bool AddLabels(Session& session) {
  const LabelImport& import = session.request().labelImport;
  std::string bytes;
  try {
    bytes = ReadWholeFile(import.file);
  } catch (const FileError& error) {
    session.prompts().Say(CouldNotBeOpened(import.file, error.what()));
    return false;
  }
  const bool plain = import.unit && (import.format.empty() || import.format.starts_with("text"));
  return plain ? AddPlainText(session, bytes) : AddLabelFile(session, bytes);
}

}  // namespace

bool ImportLabels(Session& session) { return AddLabels(session) && Convert(session); }

bool ConvertWithLabels(Session& session) {
  const Request& request = session.request();
  if (request.labelImport.file.empty()) return Convert(session);
  if (request.asWave.value_or(HasEnding(request.output, ".wav"))) {
    throw WrongUsage("a WAV file holds no labels");
  }
  return AddLabels(session) && Convert(session);
}

}  // namespace cantorix::batch
