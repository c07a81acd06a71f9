// fft.cpp - the stages of the transform in pairs, each pair in one pass over the data.
// The stated order permutes the input first. Here the early stages run before the permutation,
// where the points that share a twiddle factor are neighbours, and the late ones after it, where
// neighbours have neighbouring factors: every pass is a plain loop over runs. Each butterfly still
// sees the same operands and the same factor, so no digit depends on the arrangement.
#include "analysis/fft.h"

#include <cmath>
#include <stdexcept>

#include "platform/clones.h"

namespace cantorix {
namespace {

struct Complex {
  double re, im;
};

// (a, b) <- (a + w b, a - w b). Numbers one by one: the compiler vectorises no loop over pairs.
inline void Butterfly(double& aRe, double& aIm, double& bRe, double& bIm, double wRe, double wIm) {
  const double tRe = wRe * bRe - wIm * bIm;
  const double tIm = wRe * bIm + wIm * bRe;
  bRe = aRe - tRe;
  bIm = aIm - tIm;
  aRe += tRe;
  aIm += tIm;
}

std::uint32_t ReverseBits(std::uint32_t index, int bits) {
  std::uint32_t reversed = 0;
  for (int i = 0; i < bits; ++i, index >>= 1) reversed = reversed << 1 | (index & 1);
  return reversed;
}

// About half of the stages, an even or odd number of them so that the late ones pair up.
int EarlyStages(int m) { return m / 4 * 2 + m % 2; }

// One stage before the permutation over a block of 2 * half points with one factor.
CANTORIX_CLONES void EarlyStage(double* __restrict re, double* __restrict im, std::size_t half,
                                double wRe, double wIm) {
  CANTORIX_INDEPENDENT_TURNS
  for (std::size_t c = 0; c < half; ++c) {
    Butterfly(re[c], im[c], re[c + half], im[c + half], wRe, wIm);
  }
}

// The factors of two stages of one block before the permutation: `first` of the wider stage, then
// those of its two halves.
struct EarlyFactors {
  Complex first, low, high;
};

// Two stages over a block of 4 * quarter points.
CANTORIX_CLONES void EarlyPair(double* __restrict re, double* __restrict im, std::size_t quarter,
                               const EarlyFactors& factors) {
  const EarlyFactors w = factors;
  const std::size_t q = quarter;
  CANTORIX_INDEPENDENT_TURNS
  for (std::size_t c = 0; c < q; ++c) {
    double re0 = re[c], re1 = re[c + q], re2 = re[c + 2 * q], re3 = re[c + 3 * q];
    double im0 = im[c], im1 = im[c + q], im2 = im[c + 2 * q], im3 = im[c + 3 * q];
    Butterfly(re0, im0, re2, im2, w.first.re, w.first.im);
    Butterfly(re1, im1, re3, im3, w.first.re, w.first.im);
    Butterfly(re0, im0, re1, im1, w.low.re, w.low.im);
    Butterfly(re2, im2, re3, im3, w.high.re, w.high.im);
    re[c] = re0, re[c + q] = re1, re[c + 2 * q] = re2, re[c + 3 * q] = re3;
    im[c] = im0, im[c + q] = im1, im[c + 2 * q] = im2, im[c + 3 * q] = im3;
  }
}

// Two stages after the permutation over a block of 4 * half points; the factors of the spans of
// 2 * half and 4 * half points stand at half and 2 * half of the tables.
CANTORIX_CLONES void LatePair(double* __restrict re, double* __restrict im, std::size_t half,
                              const double* __restrict wRe, const double* __restrict wIm) {
  const std::size_t h = half;
  CANTORIX_INDEPENDENT_TURNS
  for (std::size_t k = 0; k < h; ++k) {
    double re0 = re[k], re1 = re[k + h], re2 = re[k + 2 * h], re3 = re[k + 3 * h];
    double im0 = im[k], im1 = im[k + h], im2 = im[k + 2 * h], im3 = im[k + 3 * h];
    Butterfly(re0, im0, re1, im1, wRe[h + k], wIm[h + k]);
    Butterfly(re2, im2, re3, im3, wRe[h + k], wIm[h + k]);
    Butterfly(re0, im0, re2, im2, wRe[2 * h + k], wIm[2 * h + k]);
    Butterfly(re1, im1, re3, im3, wRe[3 * h + k], wIm[3 * h + k]);
    re[k] = re0, re[k + h] = re1, re[k + 2 * h] = re2, re[k + 3 * h] = re3;
    im[k] = im0, im[k + h] = im1, im[k + 2 * h] = im2, im[k + 3 * h] = im3;
  }
}

}  // namespace

FftPlan::FftPlan(int m) : m_(m) {
  if (m < 0 || m > 24) throw std::invalid_argument("FftPlan: unsupported size");
  twiddleRe_.resize(size());
  twiddleIm_.resize(size());
  for (std::size_t half = 1; half < size(); half *= 2) {
    const double theta = kPi / static_cast<double>(half);
    const Complex step{std::cos(theta), -std::sin(theta)};
    Complex w{1.0, 0.0};
    for (std::size_t k = 0; k < half; ++k) {
      twiddleRe_[half + k] = w.re;
      twiddleIm_[half + k] = w.im;
      w = {w.re * step.re - w.im * step.im, w.re * step.im + w.im * step.re};
    }
  }
  const int early = EarlyStages(m);
  for (std::uint32_t block = 0; block < std::uint32_t{1} << early; ++block) {
    reversed_.push_back(ReverseBits(block, early));
  }
  for (std::uint32_t i = 0; i < size(); ++i) {
    const std::uint32_t j = ReverseBits(i, m);
    if (i < j) swaps_.emplace_back(i, j);
  }
}

void FftPlan::Transform(std::span<double> re, std::span<double> im) const {
  const std::size_t n = size();
  if (re.size() != n || im.size() != n) throw std::invalid_argument("FftPlan: wrong size");
  const int early = EarlyStages(m_);
  const auto factor = [this](std::size_t i) { return Complex{twiddleRe_[i], twiddleIm_[i]}; };

  if (early % 2 == 1) EarlyStage(re.data(), im.data(), n / 2, twiddleRe_[1], twiddleIm_[1]);
  for (int stage = early % 2; stage < early; stage += 2) {
    const std::size_t blocks = std::size_t{1} << stage;
    const std::size_t points = n / blocks;
    for (std::size_t b = 0; b < blocks; ++b) {
      const std::size_t k = reversed_[b] >> (early - stage);
      const EarlyFactors w{factor(blocks + k), factor(2 * blocks + k), factor(3 * blocks + k)};
      EarlyPair(&re[b * points], &im[b * points], points / 4, w);
    }
  }
  for (const auto& [i, j] : swaps_) {
    std::swap(re[i], re[j]);
    std::swap(im[i], im[j]);
  }
  for (std::size_t half = std::size_t{1} << early; half < n; half *= 4) {
    for (std::size_t i = 0; i < n; i += 4 * half) {
      LatePair(&re[i], &im[i], half, twiddleRe_.data(), twiddleIm_.data());
    }
  }
}

}  // namespace cantorix
