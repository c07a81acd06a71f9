// log_journal.h - the measurement log's journal: its rows, as far as no file holds them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/application.h"
#include "journal/journal_file.h"
#include "journal/journal_guard.h"

namespace cantorix {

class LogJournal {
 public:
  // `log` outlives the journal.
  LogJournal(std::optional<LogTable>& log, JournalPlace place);
  // The file goes, unless a log with unsaved rows is still open.
  ~LogJournal();
  LogJournal(const LogJournal&) = delete;
  LogJournal& operator=(const LogJournal&) = delete;

  // Writes the rows that have changed since the last time, of many a part; the file goes when the
  // log is saved or closed. Does not wait for the disk. Gives a sentence for the user, once, when
  // they can no longer be written.
  std::optional<std::string> Tick(double nowMs);
  // Whether the next tick should come soon.
  bool isBehind() const { return !unwritten_.empty() && !guard_.failed(); }
  // Writes all of them and waits for the disk. False when they cannot be written, which Tick tells.
  bool WriteAll();

 private:
  void WriteChanges(std::size_t mostRows);
  void Drop() noexcept;

  std::optional<LogTable>& log_;
  JournalPlace place_;
  std::optional<JournalWriter> writer_;
  std::vector<std::string> captions_;  // as they were written
  std::size_t writtenRows_ = 0;
  ListChange unwritten_;  // from the rows that were written to those that there are
  std::uint32_t changesToCount_ = 0;
  JournalGuard guard_;
};

// Asks of the log journals that killed programs left, the oldest first, whether to restore them,
// until one is wanted: it becomes the open log, modified and without a file. Those refused are
// deleted, the others stay. Nothing is asked while a log is open. Gives the journal of what was
// restored: delete it when the rows stand in a new one.
std::optional<File> OfferLeftLog(Application& application);

}  // namespace cantorix
