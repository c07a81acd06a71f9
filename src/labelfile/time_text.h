// time_text.h - times as label files write them, the same in every locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cantorix {

// The number that the whole of `token` is: a sign or none, digits with one point or decimal comma
// or none, an exponent or none. Nothing for anything else, a number beyond a double included. -0 is
// 0.
std::optional<double> ParseNumber(std::string_view token);
// The same for a count of samples or of 100 ns: digits alone, and a sign or none.
std::optional<std::int64_t> ParseCount(std::string_view token);

// `seconds` with `decimals` digits behind the point; those at the end that are 0 are left out, but
// for the first `least` of them.
std::string FormatSeconds(double seconds, int decimals, int least = 0);

}  // namespace cantorix
