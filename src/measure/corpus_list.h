// corpus_list.h - the recordings of a corpus one after the other: those of folders, single files,
// or the rows of a table that has a column of paths and any others, which are carried along. Their
// number takes no memory.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "measure/corpus_walk.h"
#include "measure/table_lines.h"

namespace cantorix {

struct CorpusEntry {
  std::string path;
  std::string leading;  // the first cells of its rows: name and carried columns
};

class CorpusReader {
 public:
  // Folders are walked in the order of their paths for names of recordings. A file that ends in
  // .tsv, .csv or .txt is a table, which stands alone: with a line of names, separated by tabs or,
  // when there is none in that line, by commas; `column` holds the paths (empty: the first), which
  // count from its folder. Throws FileError, and WrongUsage for a table without the column.
  CorpusReader(std::vector<std::string> sources, const std::string& column);

  // The names of the leading cells.
  const std::vector<std::string>& columns() const { return columns_; }
  // Throws FileError, and WrongUsage for a row of another width than the line of names.
  std::optional<CorpusEntry> Next();

 private:
  void BeginTable(const std::string& column);
  CorpusEntry EntryOf(std::string_view line) const;

  std::vector<std::string> sources_;
  std::size_t source_ = 0;  // the next one
  std::vector<std::string> columns_;
  std::optional<CorpusWalk> walk_;
  std::optional<TableLines> table_;
  char separator_ = '\t';
  std::size_t width_ = 0;  // of the table
  std::size_t pathColumn_ = 0;
};

}  // namespace cantorix
