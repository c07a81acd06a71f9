// work_restoring.h - journalled work done again, on a document that was opened from the work's
// origin or has nothing yet.
#pragma once

#include <string>

#include "journal/journalled_work.h"

namespace cantorix {

class CSonadexDoc;

// Why the samples cannot be made again from those that `document` was opened with: a sentence for
// the user. Empty: they can.
std::string ObstacleTo(const JournalledWork& work, const CSonadexDoc& document);

// Makes the edits again and then gives the document everything else. There must be no obstacle;
// `journal` is the file that the work was read from. Throws FileError when samples cannot be read
// or written and Abandoned when the user cancels or memory runs out; discard the document then.
void Redo(const JournalledWork& work, const File& journal, CSonadexDoc& document);

// What is left without the samples: gives the document silence as long as the recording was, and
// everything else. False, with nothing changed, for a length that no recording has. Throws as Redo.
bool RestoreOverSilence(const JournalledWork& work, CSonadexDoc& document);

// The labels and tiers alone, on the samples that the document was opened with.
void RestoreLabels(const JournalledWork& work, CSonadexDoc& document);

// Whether the work changed samples.
bool ChangesSamples(const JournalledWork& work);

}  // namespace cantorix
