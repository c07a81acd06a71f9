// log_documents.h - the Log menu's New, Open..., Save and Save As... on the application's one log,
// and closing it. A modified log is not dropped without asking. Messages of reading and writing are
// those of log_file.h.
#pragma once

#include "app/application.h"

namespace cantorix {

// Asks about a modified log, and saves it. True when the open log, if any, may go; it stays as it
// is until then.
bool MayDropLog(Application& application);

// A new, empty log, in place of one that is open. False when the user keeps that one.
bool NewLog(Application& application);

// Asks for a file and makes it the open log. False, with the log as it was, when the user cancels
// or the file cannot be read.
bool OpenLogFile(Application& application);

// Each returns whether the log is saved; without an open log false.
// Save writes the file that the log has, or asks for one, which may be new.
bool SaveOpenLog(Application& application);
// Save As asks for a file, which must exist: a new name is refused and asked for again.
bool SaveOpenLogAs(Application& application);

// Asks for a file and writes the log there as a table with commas; the log stays what it is. False
// when the user cancels or it could not be written.
bool ExportOpenLogAsCsv(Application& application);

// Closes the log, asking first when it is modified. False, with the log open, when the user cancels
// that question or the save, or when the save failed. True without a log.
bool CloseLog(Application& application);

// Where views enter their rows; null while no log is open.
LogSink* OpenLogSink(Application& application);

}  // namespace cantorix
