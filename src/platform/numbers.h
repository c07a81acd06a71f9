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
// 17 significant digits, as printf "%.17g" in the C locale.
std::string FormatExact(double x);

}  // namespace cantorix
