// log_table.h - the measurement log: captioned columns of texts, one row per measurement.
// A table without a window: the log is open while its table exists. Files are log_file.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "journal/list_change.h"
#include "mainview/log_entry.h"

namespace cantorix {

class LogTable : public LogSink {
 public:
  // The first cells of a row; the cells of the columns after them hold no value.
  using Row = std::vector<std::string>;
  static constexpr std::size_t kHoweverMany = std::numeric_limits<std::size_t>::max();

  // A new log: no rows, the columns "Source" and "Entry Type".
  LogTable();

  // One caption per column, at least one.
  const std::vector<std::string>& captions() const { return captions_; }
  const std::vector<Row>& rows() const { return rows_; }
  // Null for a cell without a value. Throws std::out_of_range for a row that does not exist.
  const std::string* Cell(std::size_t row, std::size_t column) const;

  // Source, heading and values.
  static Row RowOf(const LogEntry& entry);

  // Adds a row of source, heading and values, with as many columns "Entry 1", "Entry 2", ... as it
  // needs, and marks the log modified. Always wants more.
  bool Append(const LogEntry& entry) override;

  // Takes rows out, by their indices in ascending order, and marks the log modified. Throws
  // std::out_of_range, with nothing removed, for a row that does not exist.
  void RemoveRows(std::span<const std::size_t> rows);

  // Another text in a cell, which gets one with that if it has none; TABs and line ends become
  // blanks. Marks the log modified. Throws std::out_of_range for a cell that does not exist.
  void SetCell(std::size_t row, std::size_t column, const std::string& text);

  // Takes the last removal or the last other text back; rows added since stay behind the others.
  bool canUndo() const { return !removed_.empty() || edited_.has_value(); }
  void Undo();

  // The path last saved to or opened from; empty for a new log.
  const std::string& path() const { return path_; }
  // The file name of the path, "Untitled Log" for a new log.
  std::string title() const;
  bool isModified() const { return modified_; }
  // Grows with every change of rows and captions.
  std::uint64_t revision() const { return revision_; }

  // The rows that have changed since the last call, for one who follows; at the first all of them
  // are new, and `removed` stands for as many as the follower has.
  ListChange TakeChange();

  // Takes the content of a file: as many columns as captions, and no row with more cells.
  void Replace(std::vector<std::string> captions, std::vector<Row> rows);
  // The same of what is in no file.
  void Restore(std::vector<std::string> captions, std::vector<Row> rows);
  // The file at `path` holds this table now.
  void SetStoredAt(std::string path);

 private:
  void MarkModified();
  // The rows [first, first + removed) of before are [first, first + added) now.
  void Note(const ListChange& change);

  std::vector<std::string> captions_;
  std::vector<Row> rows_;
  struct RemovedRow {
    std::size_t index = 0;  // before the removal
    Row cells;
  };
  struct EditedCell {
    std::size_t row = 0;
    Row cells;  // of the whole row, before
  };
  std::vector<RemovedRow> removed_;
  std::optional<EditedCell> edited_;
  std::string path_;
  bool modified_ = false;
  std::uint64_t revision_ = 0;
  ListChange untaken_{0, kHoweverMany, 0};
};

}  // namespace cantorix
