// extremes.cpp - eight running extremes side by side, so that none waits for the one before.
#include "analysis/extremes.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr std::size_t kRunning = 8;

CANTORIX_CLONES double LeastOf(const double* values, std::size_t count) {
  std::array<double, kRunning> least;
  least.fill(values[0]);
  std::size_t i = 0;
  for (; i + kRunning <= count; i += kRunning) {
    for (std::size_t lane = 0; lane < kRunning; ++lane) {
      least[lane] = values[i + lane] < least[lane] ? values[i + lane] : least[lane];
    }
  }
  for (; i < count; ++i) least[0] = values[i] < least[0] ? values[i] : least[0];
  return *std::min_element(least.begin(), least.end());
}

CANTORIX_CLONES double GreatestOf(const double* values, std::size_t count) {
  std::array<double, kRunning> greatest;
  greatest.fill(values[0]);
  std::size_t i = 0;
  for (; i + kRunning <= count; i += kRunning) {
    for (std::size_t lane = 0; lane < kRunning; ++lane) {
      greatest[lane] = values[i + lane] > greatest[lane] ? values[i + lane] : greatest[lane];
    }
  }
  for (; i < count; ++i) greatest[0] = values[i] > greatest[0] ? values[i] : greatest[0];
  return *std::max_element(greatest.begin(), greatest.end());
}

}  // namespace

double Least(std::span<const double> values) { return LeastOf(values.data(), values.size()); }

double Greatest(std::span<const double> values) { return GreatestOf(values.data(), values.size()); }

}  // namespace cantorix
