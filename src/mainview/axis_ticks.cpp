// axis_ticks.cpp - the step that fits, then the ticks within the axis.
#include "mainview/axis_ticks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "settings/time_base.h"

namespace cantorix {
namespace {

// A step may miss the wanted length by this part, so that rounding skips no fitting one; ticks may
// lie outside the span by this part of a step.
constexpr double kSlack = 1e-9;
constexpr int kMostDecimals = 9;

int DecimalsOf(double step) {
  double scaled = step;
  for (int decimals = 0; decimals < kMostDecimals; ++decimals, scaled *= 10.0) {
    if (std::abs(scaled - std::round(scaled)) <= kSlack * scaled) return decimals;
  }
  return kMostDecimals;
}

}  // namespace

double NiceStep(const AxisSpan& span, double leastPixels) {
  const double least = (span.high - span.low) / span.pixels * leastPixels;
  if (!(span.pixels > 0.0) || !(least > 0.0) || !std::isfinite(least)) return 0.0;
  const double decade = std::pow(10.0, std::floor(std::log10(least)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * decade >= least * (1.0 - kSlack)) return factor * decade;
  }
  return 10.0 * decade;
}

double StepBesideGrid(const AxisSpan& span, double leastPixels, double gridStep) {
  const double nice = NiceStep(span, leastPixels);
  if (!(gridStep > 0.0) || !(nice > 0.0)) return nice;
  const double parts = gridStep / nice;
  if (parts >= 1.0 && std::abs(parts - std::round(parts)) <= kSlack * parts) return nice;
  // Counted in steps of the grid.
  const AxisSpan steps{0.0, (span.high - span.low) / gridStep, span.pixels};
  return gridStep * std::max(NiceStep(steps, leastPixels), 1.0);
}

std::vector<AxisTick> TicksEvery(const AxisSpan& span, double step) {
  std::vector<AxisTick> ticks;
  if (!(step > 0.0) || !(span.high > span.low)) return ticks;
  const double first = std::ceil(span.low / step - kSlack);
  const double last = std::floor(span.high / step + kSlack);
  if (!(last - first < static_cast<double>(kMostTicks))) return ticks;
  const auto count = static_cast<std::int64_t>(last - first) + 1;
  for (std::int64_t i = 0; i < count; ++i) {
    const double value = (first + static_cast<double>(i)) * step;
    ticks.push_back({value, TickText(value, step)});
  }
  return ticks;
}

std::vector<AxisTick> NiceTicks(const AxisSpan& span, double leastPixels) {
  return TicksEvery(span, NiceStep(span, leastPixels));
}

std::vector<AxisTick> TimeTicks(const AxisSpan& span, double leastPixels, std::int32_t timeBase) {
  std::vector<AxisTick> ticks;
  const double step = NiceStep(span, leastPixels);
  for (AxisTick& tick : TicksEvery(span, step)) {
    if (timeBase != 0) {
      tick.text = TickText(InTimeBase(tick.value, timeBase), InTimeBase(step, timeBase));
    }
    ticks.push_back(std::move(tick));
  }
  return ticks;
}

std::string TickText(double value, double step) {
  std::array<char, 64> text{};
  const double shown = std::abs(value) < std::abs(step) * 0.5 ? 0.0 : value;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), shown,
                                 std::chars_format::fixed, DecimalsOf(std::abs(step)));
  return end.ec == std::errc{} ? std::string(text.data(), end.ptr) : std::string("?");
}

}  // namespace cantorix
