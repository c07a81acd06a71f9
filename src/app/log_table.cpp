// log_table.cpp - rows keep only the cells that they have: a file with one wide line stays small.
#include "app/log_table.h"

#include <algorithm>
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
  Note({rows_.size() - 1, 0, 1});
  MarkModified();
  return false;
}

void LogTable::RemoveRows(std::span<const std::size_t> rows) {
  if (rows.empty()) return;
  if (rows.back() >= rows_.size()) throw std::out_of_range("a row that the log does not have");
  edited_.reset();
  removed_.clear();
  std::size_t kept = 0;
  std::size_t next = 0;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (next < rows.size() && rows[next] == row) {
      ++next;
      removed_.push_back({row, std::move(rows_[row])});
    } else {
      if (kept != row) rows_[kept] = std::move(rows_[row]);
      ++kept;
    }
  }
  const std::size_t touched = rows.back() + 1 - rows.front();
  Note({rows.front(), touched, touched - rows.size()});
  rows_.resize(kept);
  MarkModified();
}

void LogTable::SetCell(std::size_t row, std::size_t column, const std::string& text) {
  Row& cells = rows_.at(row);
  if (column >= captions_.size()) throw std::out_of_range("a column that the log does not have");
  removed_.clear();
  edited_ = EditedCell{row, cells};
  if (cells.size() <= column) cells.resize(column + 1);
  cells[column] = text;
  const auto breaks = [](char c) { return c == '\t' || c == '\r' || c == '\n'; };
  std::replace_if(cells[column].begin(), cells[column].end(), breaks, ' ');
  Note({row, 1, 1});
  MarkModified();
}

void LogTable::Undo() {
  if (!canUndo()) return;
  if (edited_) rows_.at(edited_->row) = std::move(edited_->cells);
  std::vector<Row> rows;
  rows.reserve(rows_.size() + removed_.size());
  auto next = removed_.begin();
  const auto putBack = [&] {
    for (; next != removed_.end() && next->index == rows.size(); ++next) {
      rows.push_back(std::move(next->cells));
    }
  };
  for (Row& row : rows_) {
    putBack();
    rows.push_back(std::move(row));
  }
  putBack();
  if (edited_) {
    Note({edited_->row, 1, 1});
  } else {
    const std::size_t touched = removed_.back().index + 1 - removed_.front().index;
    Note({removed_.front().index, touched - removed_.size(), touched});
  }
  rows_ = std::move(rows);
  removed_.clear();
  edited_.reset();
  MarkModified();
}

std::string LogTable::title() const {
  return path_.empty() ? "Untitled Log" : std::filesystem::path(path_).filename().string();
}

void LogTable::Replace(std::vector<std::string> captions, std::vector<Row> rows) {
  removed_.clear();
  edited_.reset();
  captions_ = std::move(captions);
  rows_ = std::move(rows);
  untaken_ = {0, kHoweverMany, rows_.size()};
  ++revision_;
}

void LogTable::Restore(std::vector<std::string> captions, std::vector<Row> rows) {
  Replace(std::move(captions), std::move(rows));
  MarkModified();
}

ListChange LogTable::TakeChange() { return std::exchange(untaken_, {rows_.size(), 0, 0}); }

void LogTable::Note(const ListChange& change) { untaken_ = Joined(untaken_, change); }

void LogTable::MarkModified() {
  modified_ = true;
  ++revision_;
}

void LogTable::SetStoredAt(std::string path) {
  path_ = std::move(path);
  modified_ = false;
}

}  // namespace cantorix
