// document_journal.cpp - changes are noted when they happen and written when the program is idle.
#include "journal/document_journal.h"

#include <utility>

#include "journal/journalled_work.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr double kSyncEveryMs = 900.0;

const SpanSource kNoSamples{{}};

}  // namespace

DocumentJournal::DocumentJournal(CSonadexDoc& document, JournalPlace place)
    : document_(document), place_(std::move(place)) {
  document_.Attach(*this);
  document_.FollowSamples(this);
  Follow();
}

DocumentJournal::~DocumentJournal() {
  document_.FollowSamples(nullptr);
  document_.Detach(*this);
  if (!document_.isModified()) Drop();
}

void DocumentJournal::Follow() {
  CaptureState(document_, kRecordedChanges, known_);
  pending_ = {};
  stateWritten_ = failed_ = hasUndoPoint_ = false;
  editsToCount_ = 0;
  originState_ = StateOf(document_.origin().path);
  try {
    originSamples_ = document_.Samples().length();
    fingerprint_ = Fingerprint(document_.Samples());
  } catch (const FileError& error) {
    Fail(error.what());
  }
}

void DocumentJournal::OriginChanged() {
  Drop();
  Follow();
}

void DocumentJournal::DocumentChanged(DocumentChanges changes, const DocumentObserver*) {
  if (changes.HasAny(kRecordedChanges)) pending_ |= changes;
}

void DocumentJournal::SamplesEdited(const SampleEdit& edit) {
  if (failed_) return;
  try {
    Record(edit);
  } catch (const FileError& error) {
    Fail(error.what());
  } catch (const std::bad_alloc&) {
    Fail("There is not enough memory.");
  }
}

void DocumentJournal::Record(const SampleEdit& edit) {
  using Kind = SampleEdit::Kind;
  if (edit.kind == Kind::kUndoPoint) {
    hasUndoPoint_ = true;
    if (writer_) AppendEdit(*writer_, edit, kNoSamples);
    return;
  }
  const bool isUndoOfEarlier = edit.kind == Kind::kUndo && !hasUndoPoint_;
  if (!writer_) Begin();
  if (isUndoOfEarlier) {
    // The edit that was taken back is part of what the origin holds.
    AppendEdit(*writer_, {.kind = Kind::kSplice, .end = originSamples_}, document_.Samples());
  } else {
    AppendEdit(*writer_, edit, SpanSource(edit.inserted));
  }
  ++editsToCount_;
  pending_ |= DocumentChange::kSamples;
}

void DocumentJournal::Begin() {
  writer_.emplace(place_, kDocumentJournals);
  const DocumentHeader header{.title = document_.title(),
                              .path = document_.pathName(),
                              .origin = document_.origin(),
                              .originState = originState_,
                              .originSamples = originSamples_,
                              .fingerprint = fingerprint_,
                              .onDisk = document_.samplesOnDisk(),
                              .loaded = document_.loaded,
                              .channel = document_.extractedChannel ? document_.fileChannel : 0,
                              .stamp = place_.stamp()};
  AppendHeader(*writer_, header);
  if (hasUndoPoint_) AppendEdit(*writer_, {}, kNoSamples);
}

std::optional<std::string> DocumentJournal::Tick(double nowMs) {
  if (untold_) return std::exchange(untold_, std::nullopt);
  if (failed_) return std::nullopt;
  try {
    if (!pending_.empty()) WriteChanges();
    const bool isTime = !syncedAtMs_ || nowMs - *syncedAtMs_ >= kSyncEveryMs;
    if (writer_ && writer_->needsSync() && isTime) {
      writer_->Sync();
      syncedAtMs_ = nowMs;
    }
  } catch (const FileError& error) {
    Fail(error.what());
  }
  return std::exchange(untold_, std::nullopt);
}

void DocumentJournal::WriteChanges() {
  RecordedState now = known_;
  CaptureState(document_, pending_, now);
  pending_ = {};
  // The labels that an edit moves belong to it.
  const std::uint32_t edits = std::exchange(editsToCount_, 0);
  const std::uint32_t changes = edits > 0 ? edits : CountChanges(known_, now);
  const bool nothingNew = changes == 0 && (!writer_ || now.settings == known_.settings);
  if (nothingNew && !(writer_ && !stateWritten_)) {
    known_ = std::move(now);
    return;
  }
  if (!writer_) Begin();
  AppendChanges(*writer_, stateWritten_ ? &known_ : nullptr, now);
  writer_->Commit(changes, place_.stamp());
  stateWritten_ = true;
  known_ = std::move(now);
}

void DocumentJournal::GoOn(File file, std::int64_t bytes) {
  Drop();
  Follow();
  writer_.emplace(std::move(file), bytes);
  stateWritten_ = true;
}

void DocumentJournal::BeginAnew() {
  known_ = {};
  pending_ = kRecordedChanges;
}

void DocumentJournal::BeginWithSamples() {
  document_.SetOrigin({});
  originSamples_ = 0;
  fingerprint_ = Fingerprint(kNoSamples);
  BeginAnew();
  try {
    Begin();
    AppendEdit(*writer_, {.kind = SampleEdit::Kind::kSplice}, document_.Samples());
  } catch (const FileError& error) {
    Fail(error.what());
  }
}

void DocumentJournal::Drop() noexcept {
  if (writer_) writer_->Delete();
  writer_.reset();
}

// What was committed stays: it is the work as it was then.
void DocumentJournal::Fail(const std::string& reason) {
  failed_ = true;
  untold_ = "What is done to ' " + document_.title() +
            " ' from here on would be lost in a crash. " + reason;
}

}  // namespace cantorix
