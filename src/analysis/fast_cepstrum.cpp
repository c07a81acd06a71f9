// fast_cepstrum.cpp - real transforms, half of the levels, and what both may be off by.
#include "analysis/fast_cepstrum.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/extremes.h"
#include "analysis/log_spectrum.h"
#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr double kUnitRounding = 0x1p-53;
constexpr double kDbPerNeper = 8.6858896380650366;  // 20 / ln 10
constexpr std::size_t kSums = 8;                    // sums that run side by side

// Writes w[i] x[i], i = 0 ... 2 count - 1, in pairs; gives the sum of their magnitudes.
CANTORIX_CLONES double MultiplyPairs(const double* __restrict window,
                                     const double* __restrict frame, std::size_t count,
                                     double* __restrict even, double* __restrict odd) {
  std::array<double, kSums> sums{};
  std::size_t i = 0;
  for (; i + kSums <= count; i += kSums) {
    for (std::size_t lane = 0; lane < kSums; ++lane) {
      const std::size_t n = i + lane;
      even[n] = window[2 * n] * frame[2 * n];
      odd[n] = window[2 * n + 1] * frame[2 * n + 1];
      sums[lane] += std::abs(even[n]) + std::abs(odd[n]);
    }
  }
  for (; i < count; ++i) {
    even[i] = window[2 * i] * frame[2 * i];
    odd[i] = window[2 * i + 1] * frame[2 * i + 1];
    sums[0] += std::abs(even[i]) + std::abs(odd[i]);
  }
  double sum = 0.0;
  for (const double s : sums) sum += s;
  return sum;
}

// The even and the odd numbered ones of the levels L[0] ... L[4 quarter - 1], L[N - k] = L[k].
CANTORIX_CLONES void Unfold(const double* __restrict levels, std::size_t quarter,
                            double* __restrict even, double* __restrict odd) {
  for (std::size_t n = 0; n < quarter; ++n) {
    even[n] = levels[2 * n];
    odd[n] = levels[2 * n + 1];
    even[quarter + n] = levels[2 * (quarter - n)];
    odd[quarter + n] = levels[2 * (quarter - n) - 1];
  }
}

}  // namespace

FastCepstrum::FastCepstrum(int m)
    : transform_(m),
      points_(std::size_t{1} << m),
      re_(points_ / 2 + 1),
      im_(points_ / 2 + 1),
      powers_(points_ / 2 + 1),
      levels_(points_ / 2 + 1) {}

double FastCepstrum::LoadFrame(std::span<const double> window, std::span<const double> frame) {
  const auto even = transform_.even();
  const auto odd = transform_.odd();
  const std::size_t pairs = window.size() / 2;
  double sum = MultiplyPairs(window.data(), frame.data(), pairs, even.data(), odd.data());
  std::fill(even.begin() + static_cast<std::ptrdiff_t>(pairs), even.end(), 0.0);
  std::fill(odd.begin() + static_cast<std::ptrdiff_t>(pairs), odd.end(), 0.0);
  if (window.size() % 2 == 1) {
    even[pairs] = window.back() * frame[window.size() - 1];
    sum += std::abs(even[pairs]);
  }
  return sum;
}

void FastCepstrum::LoadLevels() {
  Unfold(levels_.data(), points_ / 4, transform_.even().data(), transform_.odd().data());
}

std::optional<double> FastCepstrum::Find(std::span<const double> window,
                                         std::span<const double> frame, std::size_t first,
                                         std::span<double> cepstrum) {
  const double amplitudeError = transform_.error() * LoadFrame(window, frame);
  transform_.Transform(0, re_, im_);
  FindPowers(re_, im_, powers_);
  const double leastAmplitude = std::sqrt(Least(powers_));
  if (!(amplitudeError < leastAmplitude / 200.0)) return std::nullopt;
  if (!FindLevelsFast(powers_, levels_)) return std::nullopt;

  LoadLevels();
  const auto re = std::span(re_).first(cepstrum.size());
  const auto im = std::span(im_).first(cepstrum.size());
  transform_.Transform(first, re, im);
  FindPowers(re, im, cepstrum);

  const double levelError = kDbPerNeper * 1.01 * amplitudeError / leastAmplitude + kFastLevelError;
  const double error =
      static_cast<double>(points_) * (1.01 * levelError + transform_.error() * kMaxFastLevelDb);
  const double greatest = Greatest(cepstrum);
  return 2.0 * std::sqrt(greatest) * error + error * error + 8.0 * kUnitRounding * greatest;
}

}  // namespace cantorix
