// writers_fuzz.cpp - names, labels and numbers of any bytes in what the batch program writes: a
// line of JSON that its library reads back, a row of a table that stays one line with its cells,
// and a quoted cell that a plain reader takes apart again.
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "batch/json.h"
#include "batch/table.h"
#include "fuzz_input.h"
#include "measure/printable.h"
#include "platform/text.h"

namespace {

using namespace cantorix;
using nlohmann::json;

// By the judgement of the library alone.
bool IsWellFormed(const std::string& bytes) {
  try {
    return json::parse(json(bytes).dump()) == bytes;
  } catch (const json::exception&) {
    return false;
  }
}

std::size_t Characters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

bool HasControls(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
  });
}

// Well-formed text is itself; of any other every byte becomes one character.
void RequireShown(const std::string& shown, const std::string& bytes) {
  Require(IsWellFormed(shown));
  if (IsWellFormed(bytes)) {
    Require(shown == bytes);
  } else {
    Require(Characters(shown) == bytes.size());
  }
}

void RequireSame(const json& read, double number) {
  if (std::isfinite(number)) {
    Require(read.get<double>() == number);
  } else {
    Require(read.is_string());
  }
}

void CheckJson(const std::string& name, const std::string& text, double number,
               std::int64_t integer) {
  std::string line = batch::JsonLine()
                         .BeginObject()
                         .Text("text", text)
                         .Number("number", number)
                         .Flag("negative", number < 0)
                         .BeginArray("list")
                         .Integer({}, integer)
                         .Text({}, name)
                         .EndArray()
                         .BeginObject("inner")
                         .Text("k" + name, name)
                         .EndObject()
                         .EndObject()
                         .Take();
  Require(line.back() == '\n');
  line.pop_back();
  Require(!HasControls(line));
  const json read = json::parse(line);
  RequireShown(read.at("text"), text);
  RequireSame(read.at("number"), number);
  Require(read.at("negative") == (number < 0));
  Require(read.at("list").at(0) == integer);
  RequireShown(read.at("list").at(1), name);
  RequireShown(read.at("inner").begin().value(), name);
}

class StringSink : public batch::TextSink {
 public:
  void Write(std::string_view piece) override { text += piece; }
  void Finish() override {}

  std::string text;
};

void CheckTable(const std::string& name, const std::string& text, double number) {
  StringSink sink;
  batch::TableRows rows(sink, true, name);
  rows.Header({"a", text});
  rows.Cell(number);
  rows.Cell(std::string_view(text));
  rows.EndRow();
  rows.Flush();
  std::string shown = sink.text;
  Require(std::count(shown.begin(), shown.end(), '\n') == 2);
  Require(std::count(shown.begin(), shown.end(), '\t') == (name.empty() ? 2 : 4));
  if (IsWellFormed(name) && IsWellFormed(text)) Require(IsWellFormed(shown));
  std::erase_if(shown, [](char c) { return c == '\n' || c == '\t'; });
  Require(!HasControls(shown));
  const std::string cell = sink.text.substr(sink.text.find('\n') + 1);
  const std::string digits = name.empty() ? cell : cell.substr(cell.find('\t') + 1);
  const double back = std::strtod(digits.c_str(), nullptr);
  Require(back == number || std::isnan(number));
}

// A row of numbers with one decimal, each as the C library prints it, and an empty line.
void CheckDecimals(double number, double other) {
  StringSink sink;
  batch::TableRows rows(sink, false, {});
  rows.Append({number, other});
  rows.EmptyLine();
  rows.Flush();
  std::array<char, 1024> expected;
  std::snprintf(expected.data(), expected.size(), "%.1f\t%.1f\n\n", number, other);
  Require(sink.text == expected.data());
}

// The cells of one line of a table, by the rule that a quote in quotes is doubled.
std::array<std::string, 2> CellsOf(std::string_view line, char separator) {
  std::array<std::string, 2> cells;
  std::size_t cell = 0;
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"') {
      cells[cell] += line[i++];
    } else if (line[i] == '"') {
      quoted = !quoted;
    } else if (line[i] == separator && !quoted) {
      Require(++cell < cells.size());
    } else {
      cells[cell] += line[i];
    }
  }
  Require(!quoted);
  return cells;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const auto number = input.Take<double>();
  const auto integer = input.Take<std::int64_t>();
  const std::string name = input.Text();
  const std::string text = input.Text();
  RequireShown(ToUtf8(text), text);
  CheckJson(name, text, number, integer);
  CheckTable(name, text, number);
  // What tables have: numbers of sound, and none that is not one.
  if (std::isfinite(number)) CheckDecimals(number, static_cast<double>(integer) / 64.0);
  for (const char separator : {'\t', ',', ';'}) {
    const auto cells =
        CellsOf(TableCell(name, separator) + separator + TableCell(text, separator), separator);
    Require(cells[0] == name && cells[1] == text);
  }
  return 0;
}
