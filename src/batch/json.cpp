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

void AppendEscape(std::string& quoted, unsigned number) {
  char escape[8];
  std::snprintf(escape, sizeof escape, "\\u%04x", number);
  quoted += escape;
}

std::string Quoted(std::string_view bytes) {
  const std::string text = ToUtf8(bytes);
  std::string quoted = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    // Control characters are escaped, those from 128 to 159, which some terminals obey, too.
    const auto next = static_cast<unsigned char>(text[i + 1]);
    if (byte == '"' || byte == '\\') {
      quoted += '\\';
      quoted += text[i];
    } else if (byte < 0x20 || byte == 0x7F) {
      AppendEscape(quoted, byte);
    } else if (byte == 0xC2 && next < 0xA0) {
      AppendEscape(quoted, next);
      ++i;
    } else {
      quoted += text[i];
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
