// log_journal.h - the measurement log's journal: its rows, as far as no file holds them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/application.h"
#include "journal/journal_file.h"

namespace cantorix {

class LogJournal {
 public:
  // `log` outlives the journal.
  LogJournal(const std::optional<LogTable>& log, JournalPlace place);
  // The file goes, unless a log with unsaved rows is still open.
  ~LogJournal();
  LogJournal(const LogJournal&) = delete;
  LogJournal& operator=(const LogJournal&) = delete;

  // Writes the rows that have changed since the last time; the file goes when the log is saved or
  // closed. Gives a sentence for the user, once, when they can no longer be written.
  std::optional<std::string> Tick(double nowMs);

 private:
  void WriteChanges();
  void Drop() noexcept;

  const std::optional<LogTable>& log_;
  JournalPlace place_;
  std::optional<JournalWriter> writer_;
  std::vector<std::string> captions_;  // as they were written, and so are these:
  std::vector<LogTable::Row> rows_;
  std::optional<std::uint64_t> revision_;
  std::optional<double> syncedAtMs_;
  bool failed_ = false;
};

// Asks of the log journals that killed programs left, the oldest first, whether to restore them,
// until one is wanted: it becomes the open log, modified and without a file. Those refused are
// deleted, the others stay. Nothing is asked while a log is open. Gives the journal of what was
// restored: delete it when the rows stand in a new one.
std::optional<File> OfferLeftLog(Application& application);

}  // namespace cantorix
