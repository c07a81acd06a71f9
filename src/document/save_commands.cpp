// save_commands.cpp - names asked for, writers called, failures shown.
#include "document/save_commands.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "document/native_file.h"
#include "document/wav_file.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "platform/progress.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr const char* kSaveError = "Error in save operation.";
constexpr const char* kNativeFilter = "Cantorix files (*.qrv)|*.qrv|";
constexpr const char* kWaveFilter = "Wave files (*.wav)|*.wav|";

FileRequest SaveAsRequest() {
  FileRequest request;
  request.title = "Save file As";
  request.proposedName = "Untitled";
  request.defaultExtension = "qrv";
  request.filter = kNativeFilter;
  request.hideReadOnly = true;
  request.overwritePrompt = true;
  return request;
}

// The dialogs that propose a name made from the document's title.
FileRequest DerivedRequest(const CSonadexDoc& document, const std::string& title,
                           const std::string& prefix) {
  FileRequest request = SaveAsRequest();
  request.title = title;
  request.proposedName = prefix + document.title();
  std::replace(request.proposedName.begin(), request.proposedName.end(), '.', '_');
  // Kept: these dialogs carry the flag although the file is a new one as a rule.
  request.fileMustExist = true;
  return request;
}

// The user is shown that it takes its time.
Durability WriteInSight(CSonadexDoc& document, const std::function<Durability()>& write) {
  const WaitScope wait(document.host().progress);
  return write();
}

enum class Outcome { kWritten, kFailed, kRefused };

// Runs `write`, and reports when the file at `path` was not written, or perhaps not for good.
Outcome Write(CSonadexDoc& document, const std::string& path,
              const std::function<Durability()>& write) {
  Outcome outcome = Outcome::kFailed;
  std::string reason;
  try {
    if (WriteInSight(document, write) == Durability::kPerhapsNotYet) {
      document.host().prompts.Message(SavedButPerhapsNotOnDisk(path));
    }
    return Outcome::kWritten;
  } catch (const SaveRefused& refusal) {
    outcome = Outcome::kRefused;
    reason = refusal.what();
  } catch (const FileError& error) {
    reason = error.what();
  }
  document.host().prompts.Message(CouldNotBeSaved(path, reason));
  return outcome;
}

// The native file of the whole recording, or of its selection when one is noted for saving.
bool WriteTo(CSonadexDoc& document, const std::string& path) {
  std::optional<NativeRange> range;
  if (document.hasSelection) range = SelectionRange(document.channel());
  if (Write(document, path, [&] { return SaveNative(document, path, range); }) !=
      Outcome::kWritten) {
    return false;
  }
  if (!range) document.SetOrigin({SampleOrigin::Kind::kFile, path});
  return true;
}

void CountAsNative(CSonadexDoc& document) {
  document.foreignSource = false;
  document.newRecording = false;
  document.SetModified(false);
}

bool Export(CSonadexDoc& document, const std::string& title,
            const std::optional<SampleRange>& range) {
  FileRequest request = DerivedRequest(document, title, "Export ");
  request.defaultExtension = "wav";
  request.filter = kWaveFilter;
  Prompts& prompts = document.host().prompts;
  const auto choice = prompts.ChooseFileToSave(request);
  if (!choice) return false;
  const Outcome outcome =
      Write(document, choice->path, [&] { return ExportWave(document, choice->path, range); });
  if (outcome == Outcome::kRefused) prompts.Message(kSaveError);
  return outcome == Outcome::kWritten;
}

}  // namespace

bool SaveDocument(CSonadexDoc& document) {
  document.hasSelection = false;
  if (document.newRecording || document.foreignSource || document.pathIsForeign ||
      document.pathName().empty()) {
    return SaveDocumentAs(document);
  }
  if (!WriteTo(document, document.pathName())) throw Abandoned(AbandonReason::kFailed);
  CountAsNative(document);
  return true;
}

bool SaveDocumentAs(CSonadexDoc& document) {
  DocumentHost& host = document.host();
  const auto choice = host.prompts.ChooseFileToSave(SaveAsRequest());
  if (!choice) return false;
  document.hasSelection = false;
  if (!WriteTo(document, choice->path)) {
    host.prompts.Message(kSaveError);
    throw Abandoned(AbandonReason::kFailed);
  }
  document.pathIsForeign = false;
  document.SetPathName(choice->path);
  if (host.rememberFile) host.rememberFile(choice->path);
  CountAsNative(document);
  return true;
}

bool SaveCopyAs(CSonadexDoc& document) {
  FileRequest request = DerivedRequest(document, "Save a Copy As", "Copy of ");
  // Kept: this dialog has the extension of another format.
  request.defaultExtension = "pmf";
  Prompts& prompts = document.host().prompts;
  const auto choice = prompts.ChooseFileToSave(request);
  if (!choice) return false;
  const bool hadSelection = document.hasSelection;
  document.hasSelection = false;
  if (!WriteTo(document, choice->path)) {
    // Kept: after a failure no selection is noted for saving.
    prompts.Message(kSaveError);
    return false;
  }
  document.foreignSource = false;
  document.SetModified(false);
  document.hasSelection = hadSelection;
  return true;
}

bool SaveSelectionAs(CSonadexDoc& document) {
  Prompts& prompts = document.host().prompts;
  const auto choice =
      prompts.ChooseFileToSave(DerivedRequest(document, "Save Selection As", "Selection of "));
  if (!choice) return false;
  if (WriteTo(document, choice->path)) return true;
  prompts.Message(kSaveError);
  return false;
}

bool ExportAsWave(CSonadexDoc& document) {
  return Export(document, "Save a Data Channel As", std::nullopt);
}

bool ExportSelectionAsWave(CSonadexDoc& document) {
  std::optional<SampleRange> range;
  const CChannel& channel = document.channel();
  if (document.hasSelection) {
    range = SampleRange{channel.selectionStart.samples, channel.selectionEnd.samples};
  }
  return Export(document, "Save Selection of a Data Channel As", range);
}

CloseAnswer AskToClose(CSonadexDoc& document) {
  if (!document.isModified()) return CloseAnswer::kCloses;
  const std::string question = "Save Changes to ' " + document.title() + " ' before closing ?";
  const Answer answer = document.host().prompts.Ask(question, Buttons::kYesNoCancel);
  if (answer == Answer::kNo) return CloseAnswer::kGivesUp;
  if (answer != Answer::kYes) return CloseAnswer::kStays;
  try {
    // Kept: a Save As that the user cancels closes the document all the same.
    SaveDocument(document);
    return CloseAnswer::kCloses;
  } catch (const Abandoned&) {
    return CloseAnswer::kStays;
  }
}

}  // namespace cantorix
