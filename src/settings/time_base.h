// time_base.h - times as the time base of the display settings shows them: 0 milliseconds, 1
// seconds.
#pragma once

#include <cstdint>

namespace cantorix {

// What a time in ms is multiplied by.
constexpr double TimeFactor(std::int32_t timeBase) { return timeBase != 0 ? 0.001 : 1.0; }

constexpr double InTimeBase(double ms, std::int32_t timeBase) { return ms * TimeFactor(timeBase); }

}  // namespace cantorix
