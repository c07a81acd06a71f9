// lpc.cpp - autocorrelation with several lags side by side, and the Levinson-Durbin recursion.
// Every lag keeps a sum of its own that runs in the order of the samples, so putting lags into
// vector lanes changes no digit.
#include "analysis/lpc.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <ostream>

#include "platform/clones.h"

namespace cantorix {
namespace {

// Lags of one pass: two to eight vectors, enough to hide the latency of the additions.
constexpr std::size_t kLanes = 16;

// r[lane] += sum of y[i] x[i + lane], i = 0 ... n - 1; x has n + kLanes - 1 values.
CANTORIX_CLONES void AddLaggedProducts(const double* y, const double* x, std::size_t n, double* r) {
  double sums[kLanes];
  std::copy_n(r, kLanes, sums);
  for (std::size_t i = 0; i < n; ++i) {
    CANTORIX_VECTOR_LOOP
    for (std::size_t lane = 0; lane < kLanes; ++lane) sums[lane] += y[i] * x[i + lane];
  }
  std::copy_n(sums, kLanes, r);
}

// The kLanes lags from `lag` on, all of them within the frame or only the first of them.
void AutocorrelateLanes(std::span<const double> y, std::size_t lag, double* r) {
  const std::size_t n = y.size();
  std::fill_n(r, kLanes, 0.0);
  if (lag >= n) return;
  const std::size_t terms = n - lag;  // of the first lag
  const std::size_t whole = terms < kLanes ? 0 : terms - (kLanes - 1);
  AddLaggedProducts(y.data(), y.data() + lag, whole, r);
  // The last terms read past the frame in the higher lags; zeros there add nothing to a sum.
  double tail[2 * kLanes] = {};
  std::copy(y.data() + lag + whole, y.data() + n, tail);
  AddLaggedProducts(y.data() + whole, tail, terms - whole, r);
}

// One step from order i - 1 to order i; false when the residual leaves nothing to predict.
bool RaiseOrder(std::size_t i, const double* r, LpcResult& result) {
  double* a = result.a.data();
  double sum = 0.0;
  for (std::size_t j = 1; j < i; ++j) sum += a[j] * r[i - j];
  const double k = -(r[i] + sum) / result.E;
  result.k[i] = k;
  result.E = i == 1 ? r[0] + k * r[1] : result.E * (1.0 - k * k);
  std::array<double, kMaxLpcOrder + 1> previous;
  std::copy_n(a, i, previous.data());
  for (std::size_t j = 1; j < i; ++j) a[j] = previous[j] + k * previous[i - j];
  a[i] = k;
  return result.E > 0.0;
}

}  // namespace

bool AllFinite(std::span<const double> values) {
  return std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
}

void Autocorrelate(std::span<const double> y, std::span<double> r) {
  double lanes[kLanes];
  for (std::size_t lag = 0; lag < r.size(); lag += kLanes) {
    AutocorrelateLanes(y, lag, lanes);
    std::copy_n(lanes, std::min(kLanes, r.size() - lag), r.data() + lag);
  }
}

void SayOrderTooLarge(int order, std::ostream& errors) {
  if (order > kMaxLpcOrder) errors << "Requested LPC order too large\n";
}

void LpcAnalyse(std::span<const double> y, int order, LpcResult& result, std::ostream& errors) {
  SayOrderTooLarge(order, errors);
  const auto p = static_cast<std::size_t>(std::clamp(order, 0, kMaxLpcOrder));
  std::array<double, kMaxLpcOrder + 1> r;
  Autocorrelate(y, std::span(r).first(p + 1));

  result.order = static_cast<std::int32_t>(p);
  result.k.fill(0.0);
  result.a.fill(0.0);
  result.a[0] = 1.0;
  result.E = r[0];
  result.valid = r[0] > 0.0 && std::isfinite(r[0]);
  for (std::size_t i = 1; result.valid && i <= p; ++i)
    result.valid = RaiseOrder(i, r.data(), result);
  result.valid = result.valid && AllFinite(result.polynomial());
}

}  // namespace cantorix
