// log_file.cpp - the file is read twice: the first pass decides whether it is a log and how wide.
#include "app/log_file.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "platform/file.h"
#include "platform/file_error.h"
#include "platform/prompts.h"
#include "platform/safe_file.h"
#include "platform/text.h"

namespace cantorix {
namespace {

constexpr char kTab = '\t';
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kTooLong = 1000;  // bytes of a line
constexpr const char* kOpenError = "Error in opening the file.";

// The texts before each TAB of a line.
LogTable::Row FieldsOf(std::string_view line) {
  LogTable::Row fields;
  for (std::size_t tab; (tab = line.find(kTab)) != std::string_view::npos;) {
    fields.emplace_back(line.substr(0, tab));
    line.remove_prefix(tab + 1);
  }
  return fields;
}

void BeepAndSay(Prompts& prompts, const char* message) {
  prompts.Beep();
  prompts.Message(message);
}

// The bytes of a file; nothing, after the message, when there are none to be had.
std::optional<std::string> ReadWhole(const std::string& path, Prompts& prompts) {
  try {
    std::string text = ReadWholeFile(path);
    if (!text.empty()) return text;
    BeepAndSay(prompts, "The file has zero length.");
    return std::nullopt;
  } catch (const FileError&) {
    BeepAndSay(prompts, kOpenError);
    return std::nullopt;
  }
}

// False, after a message, when the file could not be written.
bool WriteWhole(const std::string& text, const std::string& path, Prompts& prompts) {
  std::optional<SafeFile> file;
  try {
    file.emplace(path);
  } catch (const FileError&) {
    BeepAndSay(prompts, kOpenError);
    return false;
  }
  try {
    file->Write(std::as_bytes(std::span(text)));
    if (file->Commit() == Durability::kPerhapsNotYet) {
      prompts.Message(SavedButPerhapsNotOnDisk(path));
    }
  } catch (const FileError& error) {
    prompts.Message(CouldNotBeSaved(path, error.what()));
    return false;
  }
  return true;
}

void AppendCsvLine(std::string& text, const LogTable::Row& cells, std::size_t columns) {
  for (std::size_t column = 0; column < columns; ++column) {
    if (column > 0) text += ',';
    if (column < cells.size()) text += TableCell(ToUtf8(cells[column]), ',');
  }
  text += kLineEnd;
}

}  // namespace

// Kept: a TAB within a cell is written as it is. Programs that read these files know no quotes. A
// line end would break the row: it becomes a blank.
void AppendLogLine(std::string& text, const LogTable::Row& cells, std::size_t columns) {
  for (std::size_t column = 0; column < columns; ++column) {
    if (column < cells.size()) {
      const auto isEnd = [](char c) { return c == '\r' || c == '\n'; };
      std::replace_copy_if(cells[column].begin(), cells[column].end(), std::back_inserter(text),
                           isEnd, ' ');
    }
    text += kTab;
  }
  text += kLineEnd;
}

std::string LogText(const LogTable& log) {
  const std::size_t columns = log.captions().size();
  std::string text;
  AppendLogLine(text, log.captions(), columns);
  for (const LogTable::Row& row : log.rows()) AppendLogLine(text, row, columns);
  return text;
}

std::string LogCsv(const LogTable& log) {
  const std::size_t columns = log.captions().size();
  std::string text;
  AppendCsvLine(text, log.captions(), columns);
  for (const LogTable::Row& row : log.rows()) AppendCsvLine(text, row, columns);
  return text;
}

LogReading ReadLogText(std::string_view text, LogTable& log) {
  std::size_t columns = 0;
  std::string_view rest = text;
  for (std::string_view line; !(line = TakeLine(rest)).empty();) {
    if (line.size() >= kTooLong) return LogReading::kLineTooLong;
    const auto tabs = std::count(line.begin(), line.end(), kTab);
    columns = std::max(columns, static_cast<std::size_t>(tabs));
  }
  if (columns == 0) return LogReading::kNotALog;

  rest = text;
  std::vector<std::string> captions = FieldsOf(TakeLine(rest));
  captions.resize(columns);
  std::vector<LogTable::Row> rows;
  for (std::string_view line; !(line = TakeLine(rest)).empty();) rows.push_back(FieldsOf(line));
  log.Replace(std::move(captions), std::move(rows));
  return LogReading::kRead;
}

bool SaveLog(LogTable& log, const std::string& path, Prompts& prompts) {
  std::string stored = path;  // behind the writing nothing may fail
  if (!WriteWhole(LogText(log), path, prompts)) return false;
  log.SetStoredAt(std::move(stored));
  return true;
}

bool ExportLogAsCsv(const LogTable& log, const std::string& path, Prompts& prompts) {
  return WriteWhole(LogCsv(log), path, prompts);
}

bool OpenLog(LogTable& log, const std::string& path, Prompts& prompts) {
  const auto text = ReadWhole(path, prompts);
  if (!text) return false;
  const LogReading reading = ReadLogText(*text, log);
  if (reading == LogReading::kNotALog) prompts.Message("This is not a valid log file.");
  if (reading != LogReading::kRead) return false;
  log.SetStoredAt(path);
  return true;
}

}  // namespace cantorix
