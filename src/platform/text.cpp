// text.cpp - recognising UTF-8, converting Windows-1252, cutting lines.
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace cantorix {
namespace {

// The characters at 0x80 to 0x9F of Windows-1252; the five unused places keep their number.
constexpr std::array<std::uint16_t, 32> kWindows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Bytes of the well-formed character at the front of `bytes`, 0 when there is none.
std::size_t CharacterAtFront(std::string_view bytes) {
  const auto at = [&](std::size_t i) {
    return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
  };
  const unsigned lead = at(0);
  if (lead < 0x80) return 1;
  const std::size_t count = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  for (std::size_t i = 1; i < count; ++i) {
    if ((at(i) & 0xC0U) != 0x80U) return 0;
  }
  // Overlong forms, surrogates and numbers beyond the last character show in the second byte.
  if (lead == 0xE0 && at(1) < 0xA0) return 0;
  if (lead == 0xED && at(1) > 0x9F) return 0;
  if (lead == 0xF0 && at(1) < 0x90) return 0;
  if (lead == 0xF4 && at(1) > 0x8F) return 0;
  return count;
}

void AppendCharacter(std::string& text, std::uint16_t character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0 | character >> 6);
    text += static_cast<char>(0x80 | (character & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | character >> 12);
    text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (character & 0x3F));
  }
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t count = CharacterAtFront(bytes);
    if (count == 0) return false;
    bytes.remove_prefix(count);
  }
  return true;
}

std::string ToUtf8(std::string_view bytes) {
  if (IsUtf8(bytes)) return std::string(bytes);
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool inTable = byte >= 0x80 && byte < 0xA0;
    AppendCharacter(text, inTable ? kWindows1252[byte - 0x80U] : byte);
  }
  return text;
}

std::string_view TakeLine(std::string_view& rest) {
  constexpr std::string_view kEnds = "\r\n";
  rest.remove_prefix(std::min(rest.find_first_not_of(kEnds), rest.size()));
  const std::string_view line = rest.substr(0, rest.find_first_of(kEnds));
  rest.remove_prefix(line.size());
  return line;
}

std::string TableCell(std::string_view text, char separator) {
  const bool isPlain = std::none_of(text.begin(), text.end(), [separator](char c) {
    return c == separator || c == '"' || c == '\r' || c == '\n';
  });
  if (isPlain) return std::string(text);
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace cantorix
