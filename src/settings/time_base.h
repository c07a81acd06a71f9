// time_base.h - times as the time base of the display settings shows them: 0 milliseconds, 1
// seconds.
#pragma once

#include <cstdint>
#include <string>

#include "platform/numbers.h"

namespace cantorix {

// What a time in ms is multiplied by.
constexpr double TimeFactor(std::int32_t timeBase) { return timeBase != 0 ? 0.001 : 1.0; }

constexpr double InTimeBase(double ms, std::int32_t timeBase) { return ms * TimeFactor(timeBase); }

// With its unit: "123.4 ms", "0.123 s".
inline std::string TimeWithUnit(double ms, std::int32_t timeBase) {
  return FormatDecimals(InTimeBase(ms, timeBase), timeBase != 0 ? 3 : 1) +
         (timeBase != 0 ? " s" : " ms");
}

}  // namespace cantorix
