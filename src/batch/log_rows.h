// log_rows.h - rows of the measurement log as lines of its text file, written as they come, so that
// a long track takes no memory.
#pragma once

#include <span>
#include <string>

#include "analysisview/spectrogram_log.h"
#include "batch/text_sink.h"
#include "document/document.h"
#include "mainview/log_entry.h"

namespace cantorix::batch {

// The line of captions of a log whose widest row has `values` values.
std::string LogCaptions(std::size_t values);

class LogRows : public LogSink {
 public:
  // Every line gets the cells of `values` values.
  LogRows(TextSink& sink, std::size_t values) : sink_(sink), values_(values) {}
  LogRows(const LogRows&) = delete;
  LogRows& operator=(const LogRows&) = delete;

  bool Append(const LogEntry& entry) override;
  // Writes what is still held back; to be called after the last row.
  void Flush();

 private:
  TextSink& sink_;
  std::size_t values_;
  std::string pending_;
};

void AppendAll(std::span<const LogEntry> entries, LogRows& rows);

// Source and time base of the rows of a document's spectrogram.
SpectrogramLogContext LogContextOf(const CSonadexDoc& document);

}  // namespace cantorix::batch
