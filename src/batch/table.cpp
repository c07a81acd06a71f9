// table.cpp - rows are collected and written in larger pieces.
#include "batch/table.h"

#include <utility>

#include "platform/numbers.h"

namespace cantorix::batch {
namespace {

constexpr std::size_t kPieceBytes = 1U << 16U;

}  // namespace

TableRows::TableRows(TextSink& sink, bool exact, std::string fileName)
    : sink_(sink), exact_(exact), fileName_(std::move(fileName)) {}

void TableRows::Append(std::initializer_list<double> values) {
  if (!fileName_.empty()) pending_.append(fileName_).push_back('\t');
  for (const double value : values) {
    pending_.append(exact_ ? FormatExact(value) : FormatOneDecimal(value)).push_back('\t');
  }
  pending_.back() = '\n';  // in the place of the last tab
  if (pending_.size() >= kPieceBytes) Flush();
}

void TableRows::Flush() {
  sink_.Write(pending_);
  pending_.clear();
}

}  // namespace cantorix::batch
