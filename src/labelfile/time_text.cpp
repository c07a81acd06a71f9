// time_text.cpp - numbers by <charconv>, which knows no locale.
#include "labelfile/time_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace cantorix {
namespace {

constexpr std::size_t kLongestNumber = 400;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Whether it is written in the characters of a decimal number; <charconv> takes "inf", too.
bool LooksLikeANumber(std::string_view token) {
  return !token.empty() && token.size() <= kLongestNumber &&
         token.find_first_not_of("0123456789.,eE+-") == std::string_view::npos &&
         token.find_first_of("0123456789") != std::string_view::npos;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view token) {
  if (!LooksLikeANumber(token)) return std::nullopt;
  if (token.front() == '+') token.remove_prefix(1);
  std::string plain(token);
  const std::size_t comma = plain.find(',');
  if (comma != std::string::npos) {
    // A comma is one between digits: "1,5", but not "1,", "1,234,567" or "1.5,".
    const bool between = comma > 0 && IsDigit(plain[comma - 1]) && comma + 1 < plain.size() &&
                         IsDigit(plain[comma + 1]);
    if (!between || plain.find_first_of(",.", comma + 1) != std::string::npos ||
        plain.find('.') != std::string::npos) {
      return std::nullopt;
    }
    plain[comma] = '.';
  }
  double value = 0.0;
  const char* const end = plain.data() + plain.size();
  const auto [stop, fault] = std::from_chars(plain.data(), end, value);
  if (fault != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
  return value + 0.0;  // -0 becomes 0
}

std::optional<std::int64_t> ParseCount(std::string_view token) {
  if (token.starts_with('+')) token.remove_prefix(1);
  std::int64_t value = 0;
  const auto [stop, fault] = std::from_chars(token.data(), token.data() + token.size(), value);
  if (fault != std::errc() || stop != token.data() + token.size()) return std::nullopt;
  return value;
}

std::string FormatSeconds(double seconds, int decimals, int least) {
  std::array<char, 400> digits{};
  const auto [stop, fault] = std::to_chars(digits.data(), digits.data() + digits.size(), seconds,
                                           std::chars_format::fixed, decimals);
  std::string text(digits.data(), fault == std::errc() ? stop : digits.data());
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return text;
  while (text.back() == '0' && text.size() > point + 1 + static_cast<std::size_t>(least)) {
    text.pop_back();
  }
  if (text.back() == '.') text.pop_back();
  return text;
}

}  // namespace cantorix
