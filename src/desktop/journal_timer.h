// journal_timer.h - lets the journals of the open documents and of the log write what was done,
// several times a second.
#pragma once

#include <QTimer>
#include <string>

#include "app/log_journal.h"

namespace cantorix {

class Clock;
class OpenDocuments;
class QtProgress;

class JournalTimer {
 public:
  // All of it outlives the timer.
  JournalTimer(Application& application, OpenDocuments& documents, const Clock& clock,
               const QtProgress& progress);

  // What is due now.
  void Tick();
  // The rows of the log, all and down to the disk. False when that failed.
  bool WriteLog() { return log_.WriteAll(); }

 private:
  Application& application_;
  OpenDocuments& documents_;
  const Clock& clock_;
  const QtProgress& progress_;
  LogJournal log_;
  std::string untold_;  // until no box and no operation runs
  QTimer timer_;
};

}  // namespace cantorix
