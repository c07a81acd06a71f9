// lines.cpp - cutting lines and fields.
#include "labelfile/lines.h"

#include <algorithm>

#include "labelfile/label_file.h"

namespace cantorix {
namespace {

constexpr std::string_view kBlanks = " \t";

}  // namespace

bool Lines::Next(std::string_view& line) {
  if (rest_.empty()) return false;
  ++number_;
  line = rest_.substr(0, rest_.find_first_of("\r\n"));
  rest_.remove_prefix(line.size());
  if (rest_.starts_with("\r\n")) rest_.remove_prefix(1);
  if (!rest_.empty()) rest_.remove_prefix(1);
  return true;
}

std::string_view TakeField(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
  const std::string_view field = rest.substr(0, rest.find_first_of(kBlanks));
  rest.remove_prefix(field.size());
  return field;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

void RefuseLine(std::size_t number, const std::string& reason) {
  throw LabelFileError("line " + std::to_string(number) + ": " + reason);
}

}  // namespace cantorix
