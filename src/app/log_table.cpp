// log_table.cpp - rows keep only the cells that they have: a file with one wide line stays small.
#include "app/log_table.h"

#include <filesystem>
#include <stdexcept>
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

void LogTable::RemoveRows(std::span<const std::size_t> rows) {
  if (rows.empty()) return;
  if (rows.back() >= rows_.size()) throw std::out_of_range("a row that the log does not have");
  std::size_t kept = 0;
  std::size_t next = 0;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (next < rows.size() && rows[next] == row) {
      ++next;
    } else {
      if (kept != row) rows_[kept] = std::move(rows_[row]);
      ++kept;
    }
  }
  rows_.resize(kept);
  modified_ = true;
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
