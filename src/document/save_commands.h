// save_commands.h - the save and export commands of the File menu, and the question before a
// modified document closes. Each asks for a name where it has to, writes through native_file.h or
// wav_file.h and changes path and flags as a user expects of it.
// A file that could not be written is reported here. The functions return whether a file was
// written: false also when the user cancelled the dialog. All leave by Abandoned when the user
// cancels the writing, and SaveDocument and SaveDocumentAs when it failed: what was to come after
// the save must not happen then.
#pragma once

#include "document/document.h"

namespace cantorix {

// Writes the whole recording to its own path. A recording made here, a foreign file and a document
// without a path run Save As instead. Afterwards no selection is noted for saving.
bool SaveDocument(CSonadexDoc& document);
// The chosen path becomes the document's, which is unmodified and native then.
bool SaveDocumentAs(CSonadexDoc& document);
// The document keeps path and title and counts as saved.
bool SaveCopyAs(CSonadexDoc& document);
// The selection as a recording of its own; the document stays as it is.
bool SaveSelectionAs(CSonadexDoc& document);

// Channel 0, or the selection of it, as a WAV file; the document stays as it is.
bool ExportAsWave(CSonadexDoc& document);
bool ExportSelectionAsWave(CSonadexDoc& document);

enum class CloseAnswer {
  kStays,    // cancelled, or the save failed
  kCloses,   // nothing is unsaved, or the user was asked for all that can be saved
  kGivesUp,  // closes without its changes, which it still has
};

// Asks whether a modified document is to be saved before it closes, and saves it. Gives nothing up
// by itself, because another document that was to close with this one may stay.
CloseAnswer AskToClose(CSonadexDoc& document);

}  // namespace cantorix
