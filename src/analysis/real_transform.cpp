// real_transform.cpp - the transform of half the size, and its two halves put together.
#include "analysis/real_transform.h"

#include <cmath>
#include <numbers>

#include "platform/clones.h"

namespace cantorix {
namespace {

constexpr double kUnitRounding = 0x1p-53;
// How far the factors of FftPlan are from the roots of unity: it has 14 digits of pi, and each
// factor of a span comes from the one before.
constexpr double kFactorError = 0x1p-45;      // spans of up to 2^11 points
constexpr double kWideFactorError = 0x1p-43;  // of 2^12 points

// The results k = 0 ... count - 1 from Z[k] upwards and Z[h - k] downwards, of which re and im of
// the latter begin at the given ends.
CANTORIX_CLONES void Join(const double* __restrict upRe, const double* __restrict upIm,
                          const double* __restrict downRe, const double* __restrict downIm,
                          const double* __restrict rootRe, const double* __restrict rootIm,
                          std::ptrdiff_t count, double* __restrict re, double* __restrict im) {
  for (std::ptrdiff_t k = 0; k < count; ++k) {
    const double evenRe = upRe[k] + downRe[-k];
    const double evenIm = upIm[k] - downIm[-k];
    const double oddRe = upIm[k] + downIm[-k];
    const double oddIm = downRe[-k] - upRe[k];
    re[k] = 0.5 * (evenRe + (rootRe[k] * oddRe - rootIm[k] * oddIm));
    im[k] = 0.5 * (evenIm + (rootRe[k] * oddIm + rootIm[k] * oddRe));
  }
}

}  // namespace

RealTransform::RealTransform(int m)
    : m_(m),
      halfSize_(m - 1),
      re_(halfSize_.size() + 1),
      im_(halfSize_.size() + 1),
      rootRe_(halfSize_.size() + 1),
      rootIm_(halfSize_.size() + 1) {
  for (std::size_t k = 0; k < rootRe_.size(); ++k) {
    const double angle =
        std::numbers::pi * static_cast<double>(k) / static_cast<double>(halfSize_.size());
    rootRe_[k] = std::cos(angle);
    rootIm_[k] = -std::sin(angle);
  }
}

void RealTransform::Transform(std::size_t first, std::span<double> re, std::span<double> im) {
  const std::size_t h = halfSize_.size();
  halfSize_.Transform(even(), odd());
  re_[h] = re_[0];
  im_[h] = im_[0];
  Join(&re_[first], &im_[first], &re_[h - first], &im_[h - first], &rootRe_[first], &rootIm_[first],
       std::ssize(re), re.data(), im.data());
}

double RealTransform::error() const {
  const double factors = m_ <= 11 ? kFactorError : kWideFactorError;
  return 3.0 * m_ * (5.05 * kUnitRounding + 1.01 * factors);
}

}  // namespace cantorix
