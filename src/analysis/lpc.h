// lpc.h - linear prediction of one frame by the autocorrelation method.
// The caller windows and pre-emphasises (framer.h); lpc_envelope.h and formants.h read the result.
//
//   R[l] = sum of y[i] y[i + l], i = 0 ... n - 1 - l            autocorrelation at lag l
//   sum of a[j] R[|i - j|], j = 0 ... p  =  0,  i = 1 ... p     normal equations, a[0] = 1
//   k[i] = -(R[i] + sum of a[j] R[i - j], j = 1 ... i - 1) / E  recursion, i = 1 ... p
//   a'[j] = a[j] + k[i] a[i - j],  a'[i] = k[i],  E' = E (1 - k[i]^2),  E = R[0] at first
//
// with the frame y of n samples, the order p, the coefficients a (a' those of the next order), the
// reflection coefficients k and the energy E of what is left, in squared sample units.
// Sources: [1] J. Makhoul, "Linear prediction: a tutorial review", 1975; [2] N. Levinson, "The
// Wiener RMS error criterion in filter design and prediction", 1947; [3] J. Durbin, "The fitting of
// time-series models", 1960.
#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <span>

namespace cantorix {

inline constexpr int kMaxLpcOrder = 400;

struct LpcResult {
  std::int32_t order = 0;                    // p, 0 ... kMaxLpcOrder
  std::array<double, kMaxLpcOrder + 1> k{};  // reflection coefficients k[1] ... k[p]
  std::array<double, kMaxLpcOrder + 1> a{};  // A(z) = a[0] + a[1] z^-1 + ... + a[p] z^-p
  double E = 0.0;                            // energy of e[n] = sum of a[i] x[n - i]
  // False for a frame that predicts nothing: no energy, a residual that is not positive, or a
  // coefficient that is not finite. Such a frame has no envelope and no formants; k and a then
  // hold what the recursion had reached.
  bool valid = false;

  std::span<const double> polynomial() const {
    return std::span(a).first(static_cast<std::size_t>(order) + 1);
  }
};

bool AllFinite(std::span<const double> values);

// Of finite samples: writes R[lag] = sum of y[i] y[i + lag], i = 0 ... y.size() - 1 - lag in this
// order, for every lag < r.size(); lags beyond the frame give 0.
void Autocorrelate(std::span<const double> y, std::span<double> r);

// Says on `errors` that an order is above kMaxLpcOrder, and nothing of others.
void SayOrderTooLarge(int order, std::ostream& errors);

// Analyses the windowed samples `y` with `order` coefficients (below 1: none). An order above
// kMaxLpcOrder says so on `errors` and is cut to kMaxLpcOrder. Overwrites `result`.
void LpcAnalyse(std::span<const double> y, int order, LpcResult& result, std::ostream& errors);

}  // namespace cantorix
