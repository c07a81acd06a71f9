// one_decimal.cpp - tenths as a whole number, in exact arithmetic:
//
//   p + e = 10 x,  p = fl(8 x + 2 x),  e = 2 x - (p - 8 x)     e is exact, as |8 x| >= |2 x|
//
// p is rounded to the nearest whole number n. Only where p lies in the middle of two does the sign
// of e decide, and without e the even one holds.
// Source: [1] T. J. Dekker, "A floating-point technique for extending the available precision",
// 1971.
#include "platform/one_decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr double kMostWithTenths = 1e14;  // tenths up to here are exact whole numbers

std::uint64_t Tenths(double x) {
  const double p = 8.0 * x + 2.0 * x;
  const double e = 2.0 * x - (p - 8.0 * x);
  const double below = std::floor(p);
  const double rest = p - below;
  const auto whole = static_cast<std::uint64_t>(below);
  if (rest != 0.5) return whole + (rest > 0.5 ? 1 : 0);
  if (e != 0.0) return whole + (e > 0.0 ? 1 : 0);
  return whole + whole % 2;
}

}  // namespace

void AppendOneDecimal(double x, std::string& text) {
  if (!(std::fabs(x) < kMostWithTenths)) {
    text += FormatOneDecimal(x);
    return;
  }
  std::array<char, 24> digits;
  char* end = digits.data();
  if (std::signbit(x)) *end++ = '-';
  const std::uint64_t tenths = Tenths(std::fabs(x));
  end = std::to_chars(end, digits.data() + digits.size(), tenths / 10).ptr;
  *end++ = '.';
  *end++ = static_cast<char>('0' + tenths % 10);
  text.append(digits.data(), end);
}

}  // namespace cantorix
