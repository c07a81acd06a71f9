// log_row_sink.h - where views enter their rows: into the open log, until the user presses the
// mouse.
#pragma once

#include "app/application.h"
#include "desktop/qt_progress.h"

namespace cantorix {

class LogRowSink : public LogSink {
 public:
  LogRowSink(Application& application, QtProgress& progress)
      : application_(application), progress_(progress) {}

  bool Append(const LogEntry& entry) override {
    const bool full = application_.log->Append(entry);
    return progress_.Step(0.0) || full;
  }

 private:
  Application& application_;
  QtProgress& progress_;
};

}  // namespace cantorix
