// table.cpp - rows are collected and written in larger pieces.
#include "batch/table.h"

#include <utility>

#include "measure/printable.h"
#include "platform/numbers.h"
#include "platform/one_decimal.h"

namespace cantorix::batch {
TableRows::TableRows(TextSink& sink, bool exact, const std::string& fileName)
    : sink_(sink), exact_(exact), fileName_(Printable(fileName)) {}

void TableRows::Append(std::initializer_list<double> values) {
  for (const double value : values) Cell(value);
  EndRow();
}

void TableRows::Cell(double value) {
  BeginCell();
  if (exact_) {
    pending_ += FormatExact(value);
  } else {
    AppendOneDecimal(value, pending_);
  }
}

void TableRows::Cell(std::string_view text) {
  BeginCell();
  pending_.append(Printable(text));
}

void TableRows::Header(std::initializer_list<std::string_view> names) {
  BeginHeader();
  for (const std::string_view name : names) Cell(name);
  EndRow();
}

void TableRows::BeginHeader() {
  if (fileName_.empty()) return;
  pending_.append("file");
  inRow_ = true;
}

void TableRows::BeginCell() {
  if (!inRow_ && !fileName_.empty()) {
    pending_.append(fileName_);
    inRow_ = true;
  }
  if (inRow_) pending_.push_back('\t');
  inRow_ = true;
}

void TableRows::EndRow() {
  pending_.push_back('\n');
  inRow_ = false;
  if (pending_.size() >= kPieceBytes) Flush();
}

void TableRows::EmptyLine() { pending_.push_back('\n'); }

void TableRows::Flush() {
  sink_.Write(pending_);
  pending_.clear();
}

}  // namespace cantorix::batch
