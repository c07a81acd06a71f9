// extremes.h - the least and the greatest of many values, several at a time.
#pragma once

#include <span>

namespace cantorix {

// Of at least one value, none of which is not-a-number.
double Least(std::span<const double> values);
double Greatest(std::span<const double> values);

}  // namespace cantorix
