// cepstral_peak.h - the highest point of an interpolated stretch of a cepstrum.
// Relies on the spline. Two searches: the plain one, which evaluates every tenth of a sample, and a
// faster one that answers only when no rounding can have changed the answer.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "analysis/quefrency_range.h"
#include "analysis/spline.h"

namespace cantorix {

// Scratch included: one per run. The values passed to its functions are those at the range's
// knots, `range.knots` of them.
class CepstralPeak {
 public:
  explicit CepstralPeak(const QuefrencyRange& range);

  // The first fine point, counted from knot 0, with the greatest value above 0; nothing when no
  // value is above 0.
  std::optional<std::size_t> Find(std::span<const double> cepstrum);

  // What Find gives for any cepstrum within `error` (>= 0) of this one at every knot, when it is
  // the same point for all of them; nothing when that is not certain.
  std::optional<std::size_t> FindCertain(std::span<const double> cepstrum, double error);

 private:
  double FineValue(std::span<const double> y, std::size_t fine) const;
  std::optional<std::size_t> OnlyPointAbove(std::span<const double> y, double limit) const;

  QuefrencyRange range_;
  NaturalSpline spline_;
  SplineGrid grid_;  // the fine points
  std::vector<double> second_, fine_, highest_;
};

}  // namespace cantorix
