// fft.h - in-place complex transform of a power-of-two size, the one under every analysis:
//
//   X[k] = sum of x[n] e^(-2 pi j n k / N), n = 0 ... N - 1,   k = 0 ... N - 1
//
// with N = 2^m points and no scaling. A stage joins the transforms E of the even and O of the odd
// points of a span of L: X[k] = E[k] + W^k O[k], X[k + L / 2] = E[k] - W^k O[k], W = e^(-2 pi j /
// L). Source: [1] J. W. Cooley, J. W. Tukey, "An algorithm for the machine calculation of complex
// Fourier series", 1965: radix 2, decimation in time.
#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace cantorix {

// The angle constants of the transforms and windows, used with these digits.
inline constexpr double kPi = 3.1415926535898;
inline constexpr double kTwoPi = 6.2831853071796;

// A transform of one size, with its twiddle factors and its permutation made once. Does not change
// after its construction, so threads may share it.
class FftPlan {
 public:
  // For 2^m points, 0 <= m <= 24.
  explicit FftPlan(int m);

  std::size_t size() const { return std::size_t{1} << m_; }

  // Forward transform with kernel e^(-2 pi i n k / N) of the N = size() points in `re` and `im`
  // (spans of N values each), overwritten with the unscaled result. The digits are those of the
  // plain double loop over spans, positions and butterflies, whose twiddle factors start at (1, 0)
  // in each span and follow w <- w x (cos t, -sin t), t = kPi / (span / 2). Throws
  // std::invalid_argument when a span has another size.
  void Transform(std::span<double> re, std::span<double> im) const;

 private:
  using IndexPair = std::pair<std::uint32_t, std::uint32_t>;

  int m_;
  // The factor of position k in a span of 2 h points stands at h + k, so every stage is a run.
  std::vector<double> twiddleRe_, twiddleIm_;
  std::vector<std::uint32_t> reversed_;  // bit-reversed block numbers of the early stages
  std::vector<IndexPair> swaps_;         // the bit-reversal permutation
};

}  // namespace cantorix
