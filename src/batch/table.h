// table.h - rows of tab-separated numbers in one of the two styles of the tables.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "batch/text_sink.h"

namespace cantorix::batch {

class TableRows {
 public:
  // `exact`: 17 significant digits, else one decimal. With a `fileName` every row begins with it.
  TableRows(TextSink& sink, bool exact, const std::string& fileName);
  TableRows(const TableRows&) = delete;
  TableRows& operator=(const TableRows&) = delete;

  void Append(std::initializer_list<double> values);
  // The header line of a table whose columns depend on the file, naming the file's column, too.
  void Header(std::initializer_list<std::string_view> names);
  void BeginHeader();
  // A row or header cell by cell; EndRow closes it. Texts are made printable.
  void Cell(double value);
  void Cell(std::string_view text);
  void EndRow();
  // A line without cells.
  void EmptyLine();
  // Writes what is still held back; to be called after the last row.
  void Flush();

 private:
  void BeginCell();

  TextSink& sink_;
  bool exact_;
  std::string fileName_;
  std::string pending_;
  bool inRow_ = false;
};

}  // namespace cantorix::batch
