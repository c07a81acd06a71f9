// recovery.h - work that a program which did not come to its end had not saved, at the next start.
#pragma once

#include <memory>
#include <vector>

#include "app/application.h"
#include "journal/document_journal.h"
#include "journal/journalled_work.h"

namespace cantorix {

// Where the journals of a program stand.
JournalPlace PlaceOfJournals(const Application& application);

// A journal that the user wants back. Held until it is restored.
struct LeftWork {
  File journal;
  JournalledWork work;
};

struct OfferedWork {
  std::vector<LeftWork> wanted;
  // Recordings that belong to journals which the user keeps for later: not asked for again.
  std::vector<std::string> recordingsForLater;
};

// Asks of each journal of a document, the oldest first: those refused are deleted, with the
// recording that they go on from; the others stay for the next time. What another program does is
// not among them.
OfferedWork OfferLeftWork(Application& application);

// Makes the work the content of a new document, modified, with a name of its own to be asked for
// when it is saved, and goes on in its journal. Where the samples are not what they were, the user
// is told, and the labels alone are restored. False when there was nothing to restore or it failed,
// which the user has been told; the journal stays then, and the document must be discarded.
bool RestoreWork(Application& application, LeftWork left, CSonadexDoc& document,
                 DocumentJournal& journal);

}  // namespace cantorix
