// json.cpp - escaping and the commas between members.
#include "batch/json.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <utility>

#include "platform/numbers.h"
#include "platform/text.h"

namespace cantorix::batch {
namespace {

std::string Quoted(std::string_view bytes) {
  std::string quoted = "\"";
  for (const char c : ToUtf8(bytes)) {
    if (c == '"' || c == '\\') {
      quoted += '\\';
      quoted += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      quoted += escape;
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

// The shortest text that reads back as the same double.
std::string Shortest(double number) {
  if (!std::isfinite(number)) return '"' + FormatExact(number) + '"';
  char text[40];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

}  // namespace

JsonLine& JsonLine::BeginObject(std::string_view key) { return Open(key, '{'); }
JsonLine& JsonLine::EndObject() { return Close('}'); }
JsonLine& JsonLine::BeginArray(std::string_view key) { return Open(key, '['); }
JsonLine& JsonLine::EndArray() { return Close(']'); }

JsonLine& JsonLine::Text(std::string_view key, std::string_view text) {
  return Raw(key, Quoted(text));
}

JsonLine& JsonLine::Number(std::string_view key, double number) {
  return Raw(key, Shortest(number));
}

std::string JsonLine::Take() {
  line_ += '\n';
  return std::exchange(line_, {});
}

void JsonLine::Begin(std::string_view key) {
  if (!line_.empty() && line_.back() != '{' && line_.back() != '[') line_ += ", ";
  if (!key.empty()) line_ += Quoted(key) + ": ";
}

JsonLine& JsonLine::Raw(std::string_view key, std::string_view value) {
  Begin(key);
  line_ += value;
  return *this;
}

JsonLine& JsonLine::Open(std::string_view key, char bracket) {
  Begin(key);
  line_ += bracket;
  return *this;
}

JsonLine& JsonLine::Close(char bracket) {
  line_ += bracket;
  return *this;
}

}  // namespace cantorix::batch
