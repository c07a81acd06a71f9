// axis_ticks.h - where the ticks of an axis are and what they say: steps of 1, 2 or 5 times a power
// of ten, texts with as many decimals as the step needs. Plain numbers; the pictures measure texts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cantorix {

// A stretch of an axis, low < high, and its length on screen.
struct AxisSpan {
  double low = 0.0;
  double high = 1.0;
  double pixels = 0.0;
};

struct AxisTick {
  double value = 0.0;  // in the unit of the span
  std::string text;
};

// The smallest step of 1, 2 or 5 times a power of ten that is `leastPixels` or more long; 0 when
// the span or its length is empty or not finite.
double NiceStep(const AxisSpan& span, double leastPixels);

// The multiples of `step` (> 0) inside the span, both ends included, from low to high. At most
// kMostTicks; more of them would be no help to the eye, so there are none then.
inline constexpr std::int64_t kMostTicks = 1000;
std::vector<AxisTick> TicksEvery(const AxisSpan& span, double step);

// Ticks at the nice step for texts `leastPixels` apart.
std::vector<AxisTick> NiceTicks(const AxisSpan& span, double leastPixels);

// The step for texts `leastPixels` apart beside a grid every `gridStep`, so that lines and texts
// agree: the nice step when it divides the grid's, else 1, 2, 5, 10, ... times the grid's. The nice
// step without a grid (0 and less).
double StepBesideGrid(const AxisSpan& span, double leastPixels, double gridStep);

// Ticks of a time axis in ms with texts in the time base: 0 milliseconds, 1 seconds.
std::vector<AxisTick> TimeTicks(const AxisSpan& span, double leastPixels, std::int32_t timeBase);

// The value with as many decimals as multiples of `step` need, in the C locale; never "-0".
std::string TickText(double value, double step);

}  // namespace cantorix
