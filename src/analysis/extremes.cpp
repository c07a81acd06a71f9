// extremes.cpp - eight running extremes side by side, so that none waits for the one before.
#include "analysis/extremes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>

#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr std::size_t kRunning = 8;

// Of which no other is `beyond`. Inlined into the clones, to be compiled for their vectors.
template <typename Beyond>
[[gnu::always_inline]] inline double ExtremeOf(const double* values, std::size_t count,
                                               Beyond beyond) {
  std::array<double, kRunning> extreme;
  extreme.fill(values[0]);
  std::size_t i = 0;
  for (; i + kRunning <= count; i += kRunning) {
    for (std::size_t lane = 0; lane < kRunning; ++lane) {
      extreme[lane] = beyond(values[i + lane], extreme[lane]) ? values[i + lane] : extreme[lane];
    }
  }
  for (; i < count; ++i) extreme[0] = beyond(values[i], extreme[0]) ? values[i] : extreme[0];
  return *std::min_element(extreme.begin(), extreme.end(), beyond);
}

CANTORIX_CLONES double LeastOf(const double* values, std::size_t count) {
  return ExtremeOf(values, count, std::less<>());
}

CANTORIX_CLONES double GreatestOf(const double* values, std::size_t count) {
  return ExtremeOf(values, count, std::greater<>());
}

}  // namespace

double Least(std::span<const double> values) { return LeastOf(values.data(), values.size()); }

double Greatest(std::span<const double> values) { return GreatestOf(values.data(), values.size()); }

}  // namespace cantorix
