// log_rows.cpp - captions first, then rows as they come.
#include "batch/log_rows.h"

#include "app/log_file.h"
#include "measure/printable.h"
#include "settings/settings.h"
#include "settings/time_base.h"

namespace cantorix::batch {
namespace {

constexpr std::size_t kSourceAndHeading = 2;

}  // namespace

std::string LogCaptions(std::size_t values) {
  LogTable log;
  log.Append({"", "", std::vector<std::string>(values)});
  std::string line;
  AppendLogLine(line, log.captions(), log.captions().size());
  return line;
}

bool LogRows::Append(const LogEntry& entry) {
  LogTable::Row row = LogTable::RowOf(entry);
  for (std::string& cell : row) cell = Printable(cell, Tabs::kStay);
  AppendLogLine(pending_, row, kSourceAndHeading + values_);
  if (pending_.size() >= kPieceBytes) Flush();
  return false;
}

void LogRows::Flush() {
  sink_.Write(pending_);
  pending_.clear();
}

void AppendAll(std::span<const LogEntry> entries, LogRows& rows) {
  for (const LogEntry& entry : entries) rows.Append(entry);
}

SpectrogramLogContext LogContextOf(const CSonadexDoc& document) {
  return {document.title(), document.channel().msPerSample(),
          TimeFactor(document.settings.display.timeBase)};
}

}  // namespace cantorix::batch
