// numbers.h - truncation and the texts of numbers, the same on every machine and in every locale.
#pragma once

#include <cstdint>
#include <string>

namespace cantorix {

// Toward zero. NaN gives 0, values beyond the range of the result give its nearest end.
std::int64_t Truncate(double x);
std::int32_t TruncateToInt32(double x);

// One decimal with a point, "inf", "-inf" or "nan": the digits of printf "%.1f" in the C locale.
std::string FormatOneDecimal(double x);
// The same with another number of decimals.
std::string FormatDecimals(double x, int decimals);
// 17 significant digits, as printf "%.17g" in the C locale.
std::string FormatExact(double x);

// The number that `text` begins with, as atof reads it in the C locale: what follows it counts for
// nothing. 0 where there is none, infinite where it is too large.
double LeadingNumber(const std::string& text);

}  // namespace cantorix
