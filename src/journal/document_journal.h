// document_journal.h - follows one open document and writes what is done to it into a journal: its
// labels, tiers, fields and settings as they differ from what was written last, its samples as the
// edits that changed them. The journal begins with the first change and ends when the document is
// saved, or closed with nothing unsaved.
#pragma once

#include <optional>
#include <string>

#include "document/document.h"
#include "journal/journal_file.h"
#include "journal/journal_guard.h"
#include "journal/recorded_state.h"
#include "journal/sample_payload.h"

namespace cantorix {

class DocumentJournal : public DocumentObserver, public SampleEditListener {
 public:
  // The document outlives the journal.
  DocumentJournal(CSonadexDoc& document, JournalPlace place);
  // The file goes, unless the document has changes that nobody gave up: they are offered at the
  // next start.
  ~DocumentJournal() override;
  DocumentJournal(const DocumentJournal&) = delete;
  DocumentJournal& operator=(const DocumentJournal&) = delete;

  // Writes what has happened since the last time, of many labels a part, and once a second at most
  // lets it go through to the disk, for which it does not wait. `nowMs` of a clock that goes on.
  // Gives a sentence for the user, once, when the work can no longer be written.
  std::optional<std::string> Tick(double nowMs);
  // Whether the next tick should come soon.
  bool isBehind() const { return isBehind_ && !guard_.failed(); }
  // Writes all of it and waits for the disk. False when it cannot be written, which Tick tells.
  bool WriteAll();

  // The document has just been made from a journal: goes on in it, behind its first `bytes` bytes.
  void GoOn(File file, std::int64_t bytes);
  // A journal of its own for a document that differs from its origin in all but the samples.
  void BeginAnew();
  // The same for one whose samples stand nowhere else.
  void BeginWithSamples();

  // Null without one.
  const File* file() const { return writer_ ? &writer_->file() : nullptr; }

  void DocumentChanged(DocumentChanges changes, const DocumentObserver* by) override;
  void SamplesEdited(const SampleEdit& edit) override;
  void OriginChanged() override;

 private:
  void Follow();
  void Begin();
  void Record(const SampleEdit& edit);
  void WriteChanges(std::size_t mostLabels);
  void Drop() noexcept;

  CSonadexDoc& document_;
  JournalPlace place_;
  std::optional<JournalWriter> writer_;
  RecordedState known_;    // as it was followed last; at first what the origin holds
  RecordedState written_;  // what stands in the journal
  DocumentChanges pending_;
  std::uint32_t changesToCount_ = 0;
  bool isBehind_ = false;
  FileState originState_;
  std::int64_t originSamples_ = 0;
  std::uint32_t fingerprint_ = 0;
  bool hasUndoPoint_ = false;
  std::uint32_t editsToCount_ = 0;
  JournalGuard guard_;
};

}  // namespace cantorix
