// label_file_commands.cpp - label files of other programs in and out: the options, the file, what
// will not be kept, and then the change.
#include <optional>
#include <span>

#include "document/label.h"
#include "mainview/dialog_answers.h"
#include "mainview/label_commands.h"
#include "mainview/label_transfer.h"
#include "platform/file.h"
#include "platform/file_error.h"
#include "platform/prompts.h"
#include "platform/safe_file.h"

namespace cantorix {
namespace {

// "Praat TextGrid|*.TextGrid|"
std::string FilterOf(const LabelFormat& format) {
  return std::string(format.name) + '|' + std::string(format.patterns) + '|';
}

std::string FilterOfAll() {
  std::string patterns;
  std::string rows;
  for (const LabelFormat& format : LabelFormats()) {
    patterns += (patterns.empty() ? "" : "; ") + std::string(format.patterns);
    rows += FilterOf(format);
  }
  return "All label files|" + patterns + '|' + rows + "All files|*.*|";
}

std::optional<std::string> ChooseLabelFile(CSonadexView& view, const LabelFormat* format) {
  FileRequest request;
  request.title = "Import Label File";
  request.filter = format == nullptr ? FilterOfAll() : FilterOf(*format) + "All files|*.*|";
  request.fileMustExist = true;
  const auto choice = view.prompts().ChooseFileToOpen(request);
  return choice ? std::optional(choice->path) : std::nullopt;
}

// Whether the user goes on although that much is not kept.
bool Accepted(CSonadexView& view, const std::vector<std::string>& losses, const char* question) {
  if (losses.empty()) return true;
  std::string text;
  for (const std::string& loss : losses) text += loss + '\n';
  return view.prompts().Ask(text + '\n' + question, Buttons::kOkCancel) == Answer::kOk;
}

// The plan for the file at `path`; nothing, after a message, for one that cannot be read.
std::optional<LabelImportPlan> PlanFor(CSonadexView& view, const std::string& path,
                                       const LabelFormat* format, const LabelChoice& choice) {
  std::string reason;
  try {
    auto read = ReadLabelFile(ReadWholeFile(path), path, format, ReadingFor(view.document()));
    if (format == nullptr && read.format->key == "text") {
      throw LabelFileError(
          "plain text does not say the unit of its times: choose it as the format");
    }
    auto plan = PlanLabelImport(std::move(read), view.channel(), choice);
    if (plan.labelCount > 0 || !plan.losses.empty()) return plan;
    reason = "It holds no labels.";
  } catch (const LabelFileError& error) {
    reason = error.what();
  } catch (const FileError& error) {
    reason = error.what();
  }
  view.prompts().Message(CouldNotBeOpened(path, reason));
  return std::nullopt;
}

std::optional<std::string> ChooseNewFile(CSonadexView& view, const LabelFormat& format,
                                         const std::string& recording) {
  FileRequest request;
  request.title = "Export Labels As";
  request.proposedName = FileStem(recording);
  request.defaultExtension = format.ending;
  request.filter = FilterOf(format);
  request.hideReadOnly = true;
  request.overwritePrompt = true;
  const auto choice = view.prompts().ChooseFileToSave(request);
  return choice ? std::optional(choice->path) : std::nullopt;
}

void Write(CSonadexView& view, const std::string& path, const std::string& bytes) {
  try {
    if (ReplaceFile(path, std::as_bytes(std::span(bytes))) == Durability::kPerhapsNotYet) {
      view.prompts().Message(SavedButPerhapsNotOnDisk(path));
    }
  } catch (const FileError& error) {
    view.prompts().Message(CouldNotBeSaved(path, error.what()));
  }
}

}  // namespace

void ImportLabelFile(CSonadexView& view) {
  CSonadexDoc& document = view.document();
  const auto options = view.services().dialogs.AskLabelFile(document.labelFiles);
  if (!options) return;
  document.labelFiles = *options;
  const LabelFormat* const format = LabelFormatOf(options->importFormat);
  const auto path = ChooseLabelFile(view, format);
  if (!path) return;
  LabelChoice choice;
  choice.emptyIntervals = options->emptyIntervals;
  auto plan = PlanFor(view, *path, format, choice);
  if (!plan || !Accepted(view, plan->losses, "Import the other labels ?")) return;
  if (plan->labelCount > 0) CarryOut(view, std::move(*plan));
}

void ExportLabels(CSonadexView& view) {
  CSonadexDoc& document = view.document();
  std::vector<std::string> names;
  for (const Tier& tier : view.channel().tiers) {
    if (tier.inUse) names.push_back(tier.name);
  }
  if (names.empty()) return view.prompts().Message("No tier is in use.");
  const auto answer = view.services().dialogs.AskLabelExport(names, document.labelFiles);
  if (!answer) return;
  document.labelFiles = answer->options;
  const LabelFormat* const format = LabelFormatOf(answer->options.exportFormat);
  if (format == nullptr) return;
  const FittedLabels fitted =
      LabelsFor(*format, document, answer->tierName, answer->options.asIntervals);
  if (!Accepted(view, fitted.losses, "Export the labels so ?")) return;
  const auto path = ChooseNewFile(view, *format, fitted.file.recordingName);
  if (path) Write(view, *path, format->write(fitted.file));
}

}  // namespace cantorix
