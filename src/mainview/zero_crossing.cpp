// zero_crossing.cpp - a search outward in blocks, to both sides in turn.
#include "mainview/zero_crossing.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace cantorix {
namespace {

constexpr std::int64_t kBlock = 1 << 16;  // samples

// Samples [first, last) with the crossings in them.
class Stretch {
 public:
  Stretch(const SampleSource& samples, double reference)
      : samples_(samples), reference_(reference) {}

  // The crossing nearest to `from` of those whose two samples lie in [first, last).
  std::optional<std::int64_t> Nearest(std::int64_t first, std::int64_t last, double from) {
    std::optional<std::int64_t> nearest;
    if (last <= first) return nearest;
    const auto values = samples_.View(first, last - first, scratch_);
    for (std::size_t i = 0; i < values.size(); ++i) {
      const double value = values[i] - reference_;
      std::size_t at = i;
      if (value != 0.0) {
        if (i + 1 == values.size()) break;
        const double next = values[i + 1] - reference_;
        if (next == 0.0 || (value < 0.0) == (next < 0.0)) continue;
        if (std::abs(next) < std::abs(value)) ++at;
      }
      const auto found = first + static_cast<std::int64_t>(at);
      if (!nearest || Distance(found, from) < Distance(*nearest, from)) nearest = found;
    }
    return nearest;
  }

  static double Distance(std::int64_t sample, double from) {
    return std::abs(static_cast<double>(sample) - from);
  }

 private:
  const SampleSource& samples_;
  double reference_;
  std::vector<std::int16_t> scratch_;
};

}  // namespace

std::optional<std::int64_t> NearestZeroCrossing(const SampleSource& samples, double from,
                                                double reference,
                                                const std::function<void(double)>& step) {
  const std::int64_t length = samples.length();
  if (length <= 0) return std::nullopt;
  const auto middle =
      static_cast<std::int64_t>(std::clamp(std::floor(from), 0.0, static_cast<double>(length - 1)));
  Stretch stretch(samples, reference);
  std::int64_t left = middle;  // [left, right) has been looked at
  std::int64_t right = middle;
  while (left > 0 || right < length) {
    // A pair of samples belongs to both of the stretches that meet in it.
    const std::int64_t before = std::max<std::int64_t>(left - kBlock, 0);
    const std::int64_t after = std::min(right + kBlock, length);
    const auto onLeft = stretch.Nearest(before, std::min(left + 1, length), from);
    const auto onRight = stretch.Nearest(std::max<std::int64_t>(right - 1, 0), after, from);
    left = before;
    right = after;
    if (onLeft &&
        (!onRight || Stretch::Distance(*onLeft, from) <= Stretch::Distance(*onRight, from)))
      return onLeft;
    if (onRight) return onRight;
    step(static_cast<double>(right - left));
  }
  return std::nullopt;
}

}  // namespace cantorix
