// document_journal.cpp - changes are noted when they happen and written when the program is idle.
#include "journal/document_journal.h"

#include <utility>

#include "journal/journalled_work.h"

namespace cantorix {
namespace {

// Of one tick, so that it stays far below a millisecond.
constexpr std::size_t kLabelsOfATick = 500;

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
  pending_ = {};
  hasUndoPoint_ = isBehind_ = false;
  guard_ = {};
  editsToCount_ = changesToCount_ = 0;
  originSamples_ = 0;
  fingerprint_ = 0;
  guard_.Do([this] {
    written_ = {};
    Update(known_, document_, kRecordedChanges);
    originState_ = StateOf(document_.origin().path);
    originSamples_ = document_.Samples().length();
    fingerprint_ = Fingerprint(document_.Samples());
  });
}

void DocumentJournal::OriginChanged() {
  Drop();
  Follow();
}

void DocumentJournal::DocumentChanged(DocumentChanges changes, const DocumentObserver*) {
  if (changes.HasAny(kRecordedChanges)) pending_ |= changes;
}

void DocumentJournal::SamplesEdited(const SampleEdit& edit) {
  guard_.Do([&] { Record(edit); });
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
  guard_.Do([&] {
    if (isBehind_ || !pending_.empty()) WriteChanges(kLabelsOfATick);
    if (writer_) writer_->SyncNowAndThen(nowMs);
  });
  // What was committed stays: it is the work as it was then.
  return guard_.Tell([this] {
    return "What is done to ' " + document_.title() + " ' from here on would be lost in a crash. ";
  });
}

bool DocumentJournal::WriteAll() {
  return guard_.Do([this] {
    WriteChanges(kAllLabels);
    if (writer_) writer_->Sync();
  });
}

void DocumentJournal::WriteChanges(std::size_t mostLabels) {
  const std::uint32_t found = Update(known_, document_, pending_);
  pending_ = {};
  // The labels that an edit moves belong to it.
  const std::uint32_t edits = std::exchange(editsToCount_, 0);
  changesToCount_ += edits > 0 ? edits : found;
  if (!writer_ && changesToCount_ == 0) return;
  if (!writer_) Begin();
  isBehind_ = !AppendChanges(*writer_, written_, known_, mostLabels);
  if (isBehind_ || !writer_->hasUncommitted()) return;
  writer_->Commit(changesToCount_, place_.stamp());
  changesToCount_ = 0;
}

void DocumentJournal::GoOn(File file, std::int64_t bytes) {
  Drop();
  Follow();
  guard_.Do([&] {
    written_ = known_;
    writer_.emplace(std::move(file), bytes);
  });
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
  guard_.Do([this] {
    Begin();
    AppendEdit(*writer_, {.kind = SampleEdit::Kind::kSplice}, document_.Samples());
  });
}

void DocumentJournal::Drop() noexcept {
  if (writer_) writer_->Delete();
  writer_.reset();
}

}  // namespace cantorix
