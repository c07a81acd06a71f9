// table_records.h - the records of a table of texts: cells between separators, in quotes where they
// hold separators, quotes (doubled then) or line ends.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cantorix {

class TableRecords {
 public:
  // The separator is the tab, semicolon or comma that the first line has most of outside quotes.
  explicit TableRecords(std::string_view text);

  // Takes the next record; false when none is left. Throws LabelFileError for a cell whose closing
  // quote is missing.
  bool Next(std::vector<std::string>& cells);
  // In which the record taken last begins, counted from 1.
  std::size_t line() const { return line_; }
  char separator() const { return separator_; }

 private:
  std::string TakeCell();
  std::string TakeQuoted();

  std::string_view rest_;
  char separator_;
  std::size_t line_ = 0;
  std::size_t nextLine_ = 1;
};

}  // namespace cantorix
