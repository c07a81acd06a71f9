// table.h - rows of tab-separated numbers in one of the two styles of the tables.
#pragma once

#include <initializer_list>
#include <string>

#include "batch/text_sink.h"

namespace cantorix::batch {

class TableRows {
 public:
  // `exact`: 17 significant digits, else one decimal. With a `fileName` every row begins with it.
  TableRows(TextSink& sink, bool exact, std::string fileName);
  TableRows(const TableRows&) = delete;
  TableRows& operator=(const TableRows&) = delete;

  void Append(std::initializer_list<double> values);
  // Writes what is still held back; to be called after the last row.
  void Flush();

 private:
  TextSink& sink_;
  bool exact_;
  std::string fileName_;
  std::string pending_;
};

}  // namespace cantorix::batch
