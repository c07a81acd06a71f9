// log_table.cpp - rows keep only the cells that they have: a file with one wide line stays small.
#include "app/log_table.h"

#include <filesystem>
#include <utility>

namespace cantorix {
namespace {

std::string CaptionOf(std::size_t column) {
  if (column == 0) return "Source";
  if (column == 1) return "Entry Type";
  return "Entry " + std::to_string(column - 1);
}

}  // namespace

LogTable::LogTable() : captions_{CaptionOf(0), CaptionOf(1)} {}

const std::string* LogTable::Cell(std::size_t row, std::size_t column) const {
  const Row& cells = rows_.at(row);
  return column < cells.size() ? &cells[column] : nullptr;
}

LogTable::Row LogTable::RowOf(const LogEntry& entry) {
  Row row{entry.source, entry.heading};
  row.insert(row.end(), entry.columns.begin(), entry.columns.end());
  return row;
}

bool LogTable::Append(const LogEntry& entry) {
  Row row = RowOf(entry);
  while (captions_.size() < row.size()) captions_.push_back(CaptionOf(captions_.size()));
  rows_.push_back(std::move(row));
  modified_ = true;
  return false;
}

std::string LogTable::title() const {
  return path_.empty() ? "Untitled Log" : std::filesystem::path(path_).filename().string();
}

void LogTable::Replace(std::vector<std::string> captions, std::vector<Row> rows) {
  captions_ = std::move(captions);
  rows_ = std::move(rows);
}

void LogTable::SetStoredAt(const std::string& path) {
  path_ = path;
  modified_ = false;
}

}  // namespace cantorix
