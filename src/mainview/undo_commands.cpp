// undo_commands.cpp - the one step of undo: saving before an edit, and going back.
#include "mainview/edit_steps.h"
#include "mainview/editing.h"
#include "mainview/view_commands.h"
#include "platform/file_error.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr const char* kNotCreated = "Error in saving the temp file";
constexpr const char* kNotRead = "Error in reading the temp file";
constexpr const char* kWrongType = "Wrong temp file type";
// Kept: the text names 20 channels, the test stops at 1, so that a document of two is not restored.
constexpr const char* kWrongChannels = "Wrong channel number.\nEither is zero or is more than 20.";

// The file is named by the title that the document has at its first edit.
void ClaimUndoFile(CSonadexView& view) {
  if (!view.undoFile) {
    view.undoFile =
        std::make_unique<UndoFile>(view.services().temporaryDirectory, view.document().title());
  }
  try {
    view.undoFile->Claim();
  } catch (const FileError&) {
    Refuse(view, kNotCreated);
  }
}

void RestoreOrRefuse(CSonadexView& view) {
  if (!view.undoFile) Refuse(view, kNotRead);
  switch (view.undoFile->Restore(view.document(), view.undoScope)) {
    case UndoOutcome::kUnreadable:
      Refuse(view, kNotRead);
    case UndoOutcome::kWrongType:
      Refuse(view, kWrongType);
    case UndoOutcome::kWrongChannelCount:
      Refuse(view, kWrongChannels);
    case UndoOutcome::kRestored:
      break;
  }
}

}  // namespace

void SaveUndoFile(CSonadexView& view, UndoScope scope) {
  view.undoAvailable = false;
  view.undoScope = scope;
  const bool keepsUndo = view.services().keepsUndo;
  if (keepsUndo) ClaimUndoFile(view);
  if (scope == UndoScope::kSamples) view.document().TellSampleEdit({});
  if (!keepsUndo) return;
  try {
    view.undoFile->Save(view.document());
  } catch (const FileError&) {
    return view.prompts().Message(std::string(kUndoNotWritten));
  }
  view.undoAvailable = true;
}

void Undo(CSonadexView& view) {
  ViewEdit edit(view, Playback::kStops);
  RestoreOrRefuse(view);
  if (view.undoScope == UndoScope::kSamples) {
    view.document().TellSampleEdit({.kind = SampleEdit::Kind::kUndo});
  }
  edit.MarkModified();
  view.undoAvailable = false;
  DropSelection(view);
  view.FollowStretch();
  if (view.undoScope == UndoScope::kSamples) return FinishSampleEdit(view, edit);
  // No sample has changed, so the tracks stay.
  view.Changed(DocumentChange::kLabels | DocumentChange::kReference);
  AnalyseIfAutomatic(view, edit);
}

}  // namespace cantorix
