// numbers.cpp - std::to_chars prints what printf prints in the C locale, whatever the user's is.
#include "platform/numbers.h"

#include <locale.h>
#include <stdlib.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace cantorix {
namespace {

template <typename Int>
Int TruncateTo(double x) {
  constexpr double kLow = static_cast<double>(std::numeric_limits<Int>::min());
  constexpr double kHigh = -kLow;  // one past the largest value, exactly representable
  if (std::isnan(x)) return 0;
  if (x >= kHigh) return std::numeric_limits<Int>::max();
  if (x <= kLow) return std::numeric_limits<Int>::min();
  return static_cast<Int>(x);
}

std::string Format(double x, std::chars_format format, int precision) {
  if (std::isnan(x)) return "nan";
  if (std::isinf(x)) return x < 0 ? "-inf" : "inf";
  std::array<char, 400> text{};  // the largest double has 309 digits before its point
  const auto end = std::to_chars(text.data(), text.data() + text.size(), x, format, precision).ptr;
  return std::string(text.data(), end);
}

}  // namespace

std::int64_t Truncate(double x) { return TruncateTo<std::int64_t>(x); }
std::int32_t TruncateToInt32(double x) { return TruncateTo<std::int32_t>(x); }

std::string FormatOneDecimal(double x) { return FormatDecimals(x, 1); }
std::string FormatDecimals(double x, int decimals) {
  return Format(x, std::chars_format::fixed, decimals);
}
std::string FormatExact(double x) { return Format(x, std::chars_format::general, 17); }

double LeadingNumber(const std::string& text) {
  static const locale_t cLocale = ::newlocale(LC_ALL_MASK, "C", nullptr);  // cannot fail for "C"
  return ::strtod_l(text.c_str(), nullptr, cLocale);
}

}  // namespace cantorix
