// log_journal.cpp - rows as the stretch of the table between what is the same before and behind it.
#include "app/log_journal.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "app/unsaved_recordings.h"
#include "journal/list_change.h"
#include "platform/claimed_file.h"
#include "platform/file_error.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

using Row = LogTable::Row;

constexpr std::size_t kRowsOfATick = 500;  // far below a millisecond of work
constexpr std::size_t kPiece = 4096;       // rows of one record

void PutTexts(PayloadWriter& out, const std::vector<std::string>& texts) {
  out.Put(static_cast<std::uint32_t>(texts.size()));
  for (const std::string& text : texts) out.PutText(text);
}

std::vector<std::string> TakeTexts(PayloadReader& in) {
  std::vector<std::string> texts(in.TakeCount(sizeof(std::uint32_t)));
  for (std::string& text : texts) text = in.TakeText();
  return texts;
}

void AppendRows(JournalWriter& writer, const std::vector<Row>& rows, const ListChange& change) {
  PayloadWriter out;
  out.Put(static_cast<std::uint32_t>(change.first));
  out.Put(static_cast<std::uint32_t>(change.removed));
  out.Put(static_cast<std::uint32_t>(change.added));
  for (std::size_t i = 0; i < change.added; ++i) PutTexts(out, rows[change.first + i]);
  writer.Append(RecordKind::kRows, out.bytes());
}

struct LogContent {
  std::string title;
  std::vector<std::string> captions;
  std::vector<Row> rows;
};

void TakeRows(PayloadReader& in, std::vector<Row>& rows) {
  const std::size_t first = in.Take<std::uint32_t>();
  const std::size_t removed = in.Take<std::uint32_t>();
  if (first > rows.size() || removed > rows.size() - first) throw BadRecord();
  std::vector<Row> added(in.TakeCount(sizeof(std::uint32_t)));
  for (Row& row : added) row = TakeTexts(in);
  const auto at = rows.begin() + static_cast<std::ptrdiff_t>(first);
  rows.insert(rows.erase(at, at + static_cast<std::ptrdiff_t>(removed)),
              std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
}

void TakeRecord(const JournalRecord& record, LogContent& content) {
  PayloadReader in(record.content);
  switch (record.kind) {
    case RecordKind::kLog:
      content.title = in.TakeText();
      break;
    case RecordKind::kCaptions:
      content.captions = TakeTexts(in);
      break;
    case RecordKind::kRows:
      TakeRows(in, content.rows);
      break;
    default:
      throw BadRecord();
  }
  in.RequireEnd();
}

std::string QuestionAbout(const LogContent& content, const Committed& committed) {
  const std::size_t rows = content.rows.size();
  return "The log ' " + content.title + " ' from " + DateOf(committed.stamp) +
         " was not saved: " + std::to_string(rows) + (rows == 1 ? " row" : " rows") +
         ".\nWould you like to restore it ?";
}

// No row has more cells than there are captions, and there is a caption.
bool IsTable(const LogContent& content) {
  return !content.captions.empty() &&
         std::all_of(content.rows.begin(), content.rows.end(),
                     [&](const Row& row) { return row.size() <= content.captions.size(); });
}

// False when the user wants to be asked no more.
bool Offer(Application& application, File& file, std::optional<File>& restored) {
  LogContent content;
  const auto committed = ReadCommitted(
      file, [&] { content = {}; },
      [&](const JournalRecord& record) { TakeRecord(record, content); });
  if (!committed || !IsTable(content)) return true;
  const Answer answer =
      application.prompts().Ask(QuestionAbout(content, *committed), Buttons::kYesNoCancel);
  if (answer == Answer::kNo) DeleteClaimed(file);
  if (answer != Answer::kYes) return true;
  application.log.emplace().Restore(std::move(content.captions), std::move(content.rows));
  restored = std::move(file);
  return false;
}

}  // namespace

LogJournal::LogJournal(std::optional<LogTable>& log, JournalPlace place)
    : log_(log), place_(std::move(place)) {}

LogJournal::~LogJournal() {
  if (!log_ || !log_->isModified()) Drop();
}

std::optional<std::string> LogJournal::Tick(double nowMs) {
  if (!log_ || !log_->isModified()) {
    Drop();
    return std::nullopt;
  }
  guard_.Do([&] {
    WriteChanges(kRowsOfATick);
    writer_->SyncNowAndThen(nowMs);
  });
  return guard_.Tell([] {
    return std::string("What is entered into the log from here on would be lost in a crash. ");
  });
}

bool LogJournal::WriteAll() {
  return guard_.Do([this] {
    if (!log_) return;
    WriteChanges(std::numeric_limits<std::size_t>::max());
    writer_->Sync();
  });
}

void LogJournal::WriteChanges(std::size_t mostRows) {
  const std::vector<Row>& rows = log_->rows();
  ListChange change = log_->TakeChange();
  if (!writer_) {
    writer_.emplace(place_, kLogJournals);
    PayloadWriter title;
    title.PutText(log_->title());
    writer_->Append(RecordKind::kLog, title.bytes());
    change = {0, 0, rows.size()};
  }
  change.removed =
      std::min(change.removed, writtenRows_ + unwritten_.added - unwritten_.removed - change.first);
  changesToCount_ += static_cast<std::uint32_t>(change.touched());
  unwritten_ = Joined(unwritten_, change);
  if (captions_ != log_->captions()) {
    PayloadWriter out;
    PutTexts(out, log_->captions());
    writer_->Append(RecordKind::kCaptions, out.bytes());
    captions_ = log_->captions();
  }
  while (!unwritten_.empty() && mostRows > 0) {
    ListChange piece = unwritten_;
    piece.added = std::min({piece.added, kPiece, mostRows});
    AppendRows(*writer_, rows, piece);
    mostRows -= std::max<std::size_t>(1, piece.added);
    writtenRows_ += piece.added - piece.removed;
    unwritten_ = {piece.first + piece.added, 0, unwritten_.added - piece.added};
  }
  if (!unwritten_.empty() || !writer_->hasUncommitted()) return;
  writer_->Commit(changesToCount_, place_.stamp());
  changesToCount_ = 0;
}

void LogJournal::Drop() noexcept {
  if (writer_) writer_->Delete();
  writer_.reset();
  captions_.clear();
  writtenRows_ = 0;
  unwritten_ = {};
  changesToCount_ = 0;
  guard_ = {};
}

std::optional<File> OfferLeftLog(Application& application) {
  std::optional<File> restored;
  for (File& file : OpenLeftJournals(application.temporaryDirectory, kLogJournals)) {
    if (application.log) break;
    try {
      if (!Offer(application, file, restored)) break;
    } catch (const FileError& error) {
      application.prompts().Message(CouldNotBeOpened(file.path(), error.what()));
    }
  }
  return restored;
}

}  // namespace cantorix
