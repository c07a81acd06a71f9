// lpc.h - linear prediction of one frame by the autocorrelation method.
// The caller windows and pre-emphasises (lpc_frame.h); lpc_envelope.h and formants.h read the
// result. Sources: J. Makhoul, "Linear prediction: a tutorial review", Proc. IEEE 63, 1975;
// J. Durbin, "The fitting of time-series models", Rev. Int. Stat. Inst. 28, 1960.
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

// Writes R[lag] = sum of y[i] y[i + lag], i = 0 ... y.size() - 1 - lag in this order, for every
// lag < r.size(); lags beyond the frame give 0.
void Autocorrelate(std::span<const double> y, std::span<double> r);

// Analyses the windowed samples `y` with `order` coefficients (below 1: none). An order above
// kMaxLpcOrder says so on `errors` and is cut to kMaxLpcOrder. Overwrites `result`.
void LpcAnalyse(std::span<const double> y, int order, LpcResult& result, std::ostream& errors);
// The same with the message on the standard error stream.
LpcResult LpcAnalyse(std::span<const double> y, int order);

}  // namespace cantorix
