// cepstral_peak.cpp - the search of the fine grid, and the proof that a faster search agrees.
//
// The faster search evaluates the ten phases between two knots with constant weights. Let Y be the
// greatest knot value, u = 2^-53 and e the error allowed for each knot. Second derivatives solve
// M[j-1] + 4 M[j] + M[j+1] = 6 (y[j-1] - 2 y[j] + y[j+1]), so values off by e move them by at most
// 24 e / (4 - 2) = 12 e. A point between knots then moves by at most (1 + 12 * 2 * 0.385 / 6) e
// < 3 e, a point up to 0.9 beyond the last knot by at most (2.8 + 12 * 0.385 / 6) e < 4 e.
// Rounding: eliminating and substituting back contract by 0.27 a knot, so their errors stay below
// 600 u Y and those of the evaluation below 700 u Y, extrapolated or not; a position of the fine
// grid is off by up to u times its size, on a slope of at most 14 Y. Together the values of both
// searches differ by at most 4 e + (2048 + 32 knots) u Y. A point that leads all others by more
// than twice that leads them in the exact search, too.
#include "analysis/cepstral_peak.h"

#include <algorithm>
#include <array>

#include "analysis/extremes.h"
#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr double kRounding = 0x1p-53;

// Weights of the two values and the two second derivatives around a point.
struct Weights {
  double lowY, highY, lowSecond, highSecond;
};

constexpr Weights WeightsAt(double b) {
  const double a = 1.0 - b;
  return {a, b, (a * a * a - a) / 6.0, (b * b * b - b) / 6.0};
}

constexpr auto kPhases = [] {
  std::array<Weights, kFinePerKnot> phases{};
  for (std::size_t r = 0; r < phases.size(); ++r) {
    phases[r] = WeightsAt(static_cast<double>(r) / static_cast<double>(kFinePerKnot));
  }
  return phases;
}();

inline double Value(const Weights& w, const double* y, const double* second) {
  return w.lowY * y[0] + w.highY * y[1] + (w.lowSecond * second[0] + w.highSecond * second[1]);
}

// The greatest of the ten fine values from each knot to the next one.
CANTORIX_CLONES void FindHighest(const double* __restrict y, const double* __restrict second,
                                 std::size_t intervals, double* __restrict highest) {
  for (std::size_t j = 0; j < intervals; ++j) {
    double top = y[j];
#pragma GCC unroll 9
    for (std::size_t r = 1; r < kFinePerKnot; ++r) {
      const double value = Value(kPhases[r], y + j, second + j);
      top = value > top ? value : top;
    }
    highest[j] = top;
  }
}

std::vector<double> FinePositions(std::size_t knots) {
  std::vector<double> positions(kFinePerKnot * knots);
  for (std::size_t k = 0; k < positions.size(); ++k) positions[k] = static_cast<double>(k) * 0.1;
  return positions;
}

}  // namespace

CepstralPeak::CepstralPeak(const QuefrencyRange& range)
    : range_(range),
      spline_(range.knots),
      grid_(range.knots, FinePositions(range.knots)),
      second_(range.knots),
      fine_(grid_.size()),
      highest_(range.knots) {}

std::optional<std::size_t> CepstralPeak::Find(std::span<const double> cepstrum) {
  spline_.Fit(cepstrum, second_);
  grid_.Evaluate(cepstrum, second_, fine_);
  double best = 0.0;
  std::optional<std::size_t> peak;
  for (std::size_t k = 0; k < range_.fineCount; ++k) {
    if (fine_[k] > best) {
      best = fine_[k];
      peak = k;
    }
  }
  return peak;
}

double CepstralPeak::FineValue(std::span<const double> y, std::size_t fine) const {
  const std::size_t knot = std::min(fine / kFinePerKnot, y.size() - 2);
  const double b = static_cast<double>(fine - kFinePerKnot * knot) / 10.0;
  return Value(WeightsAt(b), &y[knot], &second_[knot]);
}

// Nothing when several points reach the limit, or a value is no number.
std::optional<std::size_t> CepstralPeak::OnlyPointAbove(std::span<const double> y,
                                                        double limit) const {
  std::optional<std::size_t> only;
  for (std::size_t j = 0; j < highest_.size(); ++j) {
    if (highest_[j] < limit) continue;
    const std::size_t end = std::min((j + 1) * kFinePerKnot, range_.fineCount);
    for (std::size_t k = j * kFinePerKnot; k < end; ++k) {
      if (FineValue(y, k) < limit) continue;
      if (only) return std::nullopt;
      only = k;
    }
  }
  return only;
}

std::optional<std::size_t> CepstralPeak::FindCertain(std::span<const double> cepstrum,
                                                     double error) {
  const std::size_t knots = range_.knots;
  if (knots < 2) return std::nullopt;
  spline_.FitFast(cepstrum, second_);
  FindHighest(cepstrum.data(), second_.data(), knots - 1, highest_.data());
  highest_.back() = 0.0;
  for (std::size_t k = (knots - 1) * kFinePerKnot; k < range_.fineCount; ++k) {
    highest_.back() = std::max(highest_.back(), FineValue(cepstrum, k));
  }
  const double top = Greatest(highest_);
  const double greatestKnot = Greatest(cepstrum);
  const double rounding = (2048.0 + 32.0 * static_cast<double>(knots)) * kRounding * greatestKnot;
  const double margin = 2.0 * (4.0 * error + rounding);
  if (!(top > margin)) return std::nullopt;
  return OnlyPointAbove(cepstrum, top - margin);
}

}  // namespace cantorix
