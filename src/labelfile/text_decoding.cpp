// text_decoding.cpp - UTF-16 here; what is a byte a unit is converted as everywhere.
#include "labelfile/text_decoding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/text.h"

namespace cantorix {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLowFirstMark = "\xFF\xFE";
constexpr std::string_view kHighFirstMark = "\xFE\xFF";
constexpr char32_t kReplacement = 0xFFFD;

struct Units {
  std::string_view bytes;
  bool highFirst;

  std::size_t size() const { return bytes.size() / 2; }
  std::uint16_t operator[](std::size_t i) const {
    const auto first = static_cast<unsigned char>(bytes[2 * i]);
    const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
    return static_cast<std::uint16_t>(highFirst ? first << 8 | second : second << 8 | first);
  }
};

void Append(std::string& text, char32_t c) {
  const auto byte = [&](char32_t value) { text += static_cast<char>(value); };
  const auto tail = [&](int shift) { byte(0x80 | (c >> shift & 0x3F)); };
  if (c < 0x80) return byte(c);
  if (c < 0x800) {
    byte(0xC0 | c >> 6);
    return tail(0);
  }
  if (c < 0x10000) {
    byte(0xE0 | c >> 12);
  } else {
    byte(0xF0 | c >> 18);
    tail(12);
  }
  tail(6);
  tail(0);
}

bool IsHigh(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
bool IsLow(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

std::string Decode(const Units& units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t c = units[i];
    if (IsHigh(c) && i + 1 < units.size() && IsLow(units[i + 1])) {
      c = 0x10000 + ((c & 0x3FF) << 10 | (units[++i] & 0x3FFU));
    } else if (IsHigh(c) || IsLow(c)) {
      c = kReplacement;
    }
    Append(text, c);
  }
  return text;
}

// The order of UTF-16 without a mark: every label file begins with some letters or digits, which
// have a zero byte each.
std::optional<bool> HighFirstByZeros(std::string_view bytes) {
  const std::size_t looked = std::min<std::size_t>(bytes.size() / 2, 4);
  if (looked < 2) return std::nullopt;
  bool lowZeros = true;
  bool highZeros = true;
  for (std::size_t i = 0; i < looked; ++i) {
    highZeros = highZeros && bytes[2 * i] == '\0' && bytes[2 * i + 1] != '\0';
    lowZeros = lowZeros && bytes[2 * i] != '\0' && bytes[2 * i + 1] == '\0';
  }
  if (highZeros == lowZeros) return std::nullopt;
  return highZeros;
}

}  // namespace

std::string DecodeText(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) return ToUtf8(bytes.substr(kUtf8Mark.size()));
  if (bytes.starts_with(kLowFirstMark)) return Decode({bytes.substr(2), false});
  if (bytes.starts_with(kHighFirstMark)) return Decode({bytes.substr(2), true});
  if (const auto highFirst = HighFirstByZeros(bytes)) return Decode({bytes, *highFirst});
  return ToUtf8(bytes);
}

}  // namespace cantorix
