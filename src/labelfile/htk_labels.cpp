// htk_labels.cpp - HTK's label files: "start end text" in units of 100 ns. A text with blanks in it
// stands in quotes, with a backslash before quotes and backslashes.
#include <cmath>
#include <optional>

#include "labelfile/format_readers.h"
#include "labelfile/format_writers.h"
#include "labelfile/lines.h"
#include "labelfile/time_text.h"
#include "platform/text.h"

namespace cantorix {
namespace {

constexpr double kUnitsPerSecond = 1e7;

bool IsOctal(char c) { return c >= '0' && c <= '7'; }

// Undoes "\"" and "\377" behind a backslash; `rest` begins there.
char TakeEscaped(std::string_view& rest) {
  const bool octal = rest.size() >= 3 && IsOctal(rest[0]) && IsOctal(rest[1]) && IsOctal(rest[2]);
  if (octal) {
    const int value = (rest[0] - '0') * 64 + (rest[1] - '0') * 8 + (rest[2] - '0');
    rest.remove_prefix(3);
    return static_cast<char>(value);
  }
  const char escaped = rest.front();
  rest.remove_prefix(1);
  return escaped;
}

// The text in front of `rest`: in quotes, or all that is left.
std::string TextIn(std::string_view rest) {
  rest = Trimmed(rest);
  if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) return std::string(rest);
  const std::string_view whole = rest;
  const char quote = rest.front();
  rest.remove_prefix(1);
  std::string text;
  while (!rest.empty()) {
    const char c = rest.front();
    rest.remove_prefix(1);
    if (c == quote) return text;
    text += c == '\\' && !rest.empty() ? TakeEscaped(rest) : c;
  }
  return std::string(whole);  // no closing quote: it is a text like others
}

std::string InQuotes(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

std::string Written(const std::string& text) {
  const bool plain = text.find_first_of(" \t\"'\\") == std::string::npos;
  return plain && !text.empty() ? text : InQuotes(text);
}

// The time in front of `rest`, if one is there.
std::optional<double> TakeTime(std::string_view& rest) {
  std::string_view behind = rest;
  const auto units = ParseCount(TakeField(behind));
  if (!units) return std::nullopt;
  rest = behind;
  return static_cast<double>(*units) / kUnitsPerSecond;
}

std::string UnitsAt(double seconds) {
  return std::to_string(std::llround(seconds * kUnitsPerSecond));
}

}  // namespace

LabelFile ReadHtk(std::string_view text, const LabelReading&) {
  if (text.starts_with("#!MLF!#")) {
    throw LabelFileError("a master label file of many recordings is not read");
  }
  LabelFile file;
  LabelFileTier& tier = file.tiers.emplace_back();
  tier.intervals = true;
  std::size_t timeless = 0;
  Lines lines(text);
  for (std::string_view line; lines.Next(line);) {
    // The alternatives behind "///" have times of their own.
    if (Trimmed(line).empty()) continue;
    if (Trimmed(line) == "///") break;
    TimedLabel label;
    const auto start = TakeTime(line);
    if (!start) {
      ++timeless;
      continue;
    }
    label.startS = *start;
    label.endS = TakeTime(line).value_or(*start);
    label.text = ToUtf8(TextIn(line));
    tier.labels.push_back(std::move(label));
  }
  if (timeless > 0) file.notes.push_back(CountOf(timeless, "line") + " without a time left out.");
  return file;
}

std::string WriteHtk(const LabelFile& file) {
  std::string out;
  for (const LabelFileTier& tier : file.tiers) {
    for (const TimedLabel& label : tier.labels) {
      out += UnitsAt(label.startS) + ' ' + UnitsAt(label.endS) + ' ' + Written(label.text) + '\n';
    }
  }
  return out;
}

}  // namespace cantorix
