// one_decimal.h - numbers with one decimal, many of them: the cells of the tables.
#pragma once

#include <string>

namespace cantorix {

// Appends what FormatOneDecimal gives: the exact value rounded, ties to the even digit, "-0.0" for
// small negative numbers.
void AppendOneDecimal(double x, std::string& text);

}  // namespace cantorix
