// table_records.cpp - one record at a time.
#include "labelfile/table_records.h"

#include <algorithm>

#include "labelfile/label_file.h"
#include "labelfile/lines.h"

namespace cantorix {
namespace {

char SeparatorOf(std::string_view text) {
  const std::string_view first = text.substr(0, text.find_first_of("\r\n"));
  char best = ',';
  std::ptrdiff_t most = 0;
  for (const char separator : {'\t', ';', ','}) {
    const auto count = std::count(first.begin(), first.end(), separator);
    if (count > most) best = separator;
    most = std::max(most, count);
  }
  return best;
}

}  // namespace

TableRecords::TableRecords(std::string_view text) : rest_(text), separator_(SeparatorOf(text)) {}

std::string TableRecords::TakeQuoted() {
  std::string cell;
  rest_.remove_prefix(1);
  for (;;) {
    const std::size_t quote = rest_.find('"');
    if (quote == std::string_view::npos) RefuseLine(line_, "a quote is not closed");
    cell += rest_.substr(0, quote);
    rest_.remove_prefix(quote + 1);
    if (!rest_.starts_with('"')) break;
    cell += '"';
    rest_.remove_prefix(1);
  }
  nextLine_ += static_cast<std::size_t>(std::count(cell.begin(), cell.end(), '\n'));
  return cell;
}

std::string TableRecords::TakeCell() {
  std::string cell;
  if (rest_.starts_with('"')) cell = TakeQuoted();
  // What stands behind a closing quote belongs to the cell.
  const std::string ends{separator_, '\r', '\n'};
  const std::size_t end = std::min(rest_.find_first_of(ends), rest_.size());
  cell += rest_.substr(0, end);
  rest_.remove_prefix(end);
  return cell;
}

bool TableRecords::Next(std::vector<std::string>& cells) {
  cells.clear();
  if (rest_.empty()) return false;
  line_ = nextLine_++;
  cells.push_back(TakeCell());
  while (rest_.starts_with(separator_)) {
    rest_.remove_prefix(1);
    cells.push_back(TakeCell());
  }
  if (rest_.starts_with("\r\n")) rest_.remove_prefix(1);
  if (!rest_.empty()) rest_.remove_prefix(1);
  return true;
}

}  // namespace cantorix
