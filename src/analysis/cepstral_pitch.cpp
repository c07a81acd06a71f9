// cepstral_pitch.cpp - the steps of one frame.
//
// The result is a discrete choice, so the logarithm may be a faster one where the choice is then
// proved. Everything else is the stated arithmetic: the first transform's digits are those of the
// exact path, and levels that differ by at most d enter the second one. That is linear but for its
// rounding, which over m stages stays below 5.05 m u N L for N levels of at most L dB (u = 2^-53),
// with factors within 1 % of length 1. Its results thus differ by at most
//   E = N (1.01 d + 10.1 m u L),
// and their squared lengths, of which the greatest is Y, by at most 2 sqrt(Y) E + E^2 + 8 u Y.
#include "analysis/cepstral_pitch.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "analysis/frame_reader.h"
#include "analysis/log_spectrum.h"
#include "analysis/window.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr std::int64_t kLeastPoints = 128;
constexpr std::int64_t kMostPoints = 4096;
constexpr std::int64_t kFrameMargin = 5;  // samples that a frame holds beyond its window
constexpr double kUnitRounding = 0x1p-53;

bool IsSupported(const CepstralOptions& options) {
  const std::int64_t n = options.points;
  return n >= kLeastPoints && n <= kMostPoints && std::has_single_bit(static_cast<unsigned>(n)) &&
         options.windowSamples >= 0 && options.windowSamples <= n;
}

std::size_t Size(std::int64_t count) { return static_cast<std::size_t>(count); }

}  // namespace

CepstralWorkspace::CepstralWorkspace(const CepstralOptions& options)
    : options_(options),
      supported_(IsSupported(options)),
      range_(supported_ ? FindQuefrencyRange(options.rateHz, options.lowHz, options.highHz,
                                             Size(options.points))
                        : QuefrencyRange{}),
      fft_(supported_ ? std::countr_zero(static_cast<unsigned>(options.points)) : 0),
      window_(HammingWindow(supported_ ? Size(options.windowSamples) : 0)),
      frame_(window_.size() + Size(kFrameMargin)),
      re_(fft_.size()),
      im_(fft_.size()),
      power_(fft_.size()),
      cepstrum_(range_.knots),
      peak_(range_) {}

void CepstralWorkspace::FillFrame(SampleWindow& samples, double frameStart, double totalSamples) {
  const std::int64_t first = Truncate(frameStart);
  const std::int64_t count = CopiedSamples(frameStart, static_cast<double>(options_.windowSamples),
                                           kFrameMargin, totalSamples);
  const auto view = samples.View(first, count);
  std::fill_n(frame_.begin(), count, 0.0);
  if (!view.empty()) {
    std::copy(view.begin(), view.end(), frame_.begin() + std::max<std::int64_t>(-first, 0));
  }
}

bool CepstralWorkspace::IsFree(double frameStart, double totalSamples) const {
  return IsCopiedWhole(frameStart, static_cast<double>(options_.windowSamples),
                       static_cast<double>(kFrameMargin), totalSamples);
}

bool CepstralWorkspace::IsSilent() const {
  return std::all_of(frame_.begin(), frame_.end(), [](double x) { return x == 0.0; });
}

void CepstralWorkspace::FindPowerSpectrum() {
  for (std::size_t i = 0; i < window_.size(); ++i) re_[i] = window_[i] * frame_[i];
  std::fill(re_.begin() + std::ssize(window_), re_.end(), 0.0);
  std::fill(im_.begin(), im_.end(), 0.0);
  fft_.Transform(re_, im_);
  FindPowers(re_, im_, power_);
}

// The power cepstrum at the knots, from the levels in re_.
std::span<const double> CepstralWorkspace::FindCepstrum() {
  std::fill(im_.begin(), im_.end(), 0.0);
  fft_.Transform(re_, im_);
  const std::size_t inside = std::min(range_.knots, re_.size() / 2 - range_.first);
  FindPowers(std::span(re_).subspan(range_.first), std::span(im_).subspan(range_.first),
             std::span(cepstrum_).first(inside));
  return cepstrum_;  // the rest, beyond the half, stays 0
}

// At most how far these values are from those of the exact path.
double CepstralWorkspace::KnotError(std::span<const double> cepstrum) const {
  const auto points = static_cast<double>(fft_.size());
  const double stages = std::log2(points);
  const double bin =
      points * (1.01 * kFastLevelError + 10.1 * stages * kUnitRounding * kMaxFastLevelDb);
  const double greatest = *std::max_element(cepstrum.begin(), cepstrum.end());
  return 2.0 * std::sqrt(greatest) * bin + bin * bin + 8.0 * kUnitRounding * greatest;
}

std::optional<std::size_t> CepstralWorkspace::FindPeak() {
  if (!exactOnly_ && FindLevelsFast(power_, re_)) {
    const auto cepstrum = FindCepstrum();
    if (const auto peak = peak_.FindCertain(cepstrum, KnotError(cepstrum))) return peak;
  }
  ++exactFrames_;
  FindLevels(power_, re_);
  return peak_.Find(FindCepstrum());
}

double CepstralWorkspace::PitchAt(std::size_t peak) const {
  const std::int64_t index = range_.fineFirst + static_cast<std::int64_t>(peak);
  const double f0 =
      options_.rateHz / (static_cast<double>(std::max<std::int64_t>(index, 1)) / 10.0);
  return f0 > options_.highHz || f0 < options_.lowHz ? 0.0 : f0;
}

double CepstralPitch(SampleWindow& samples, double frameStart, double totalSamples,
                     CepstralWorkspace& workspace) {
  if (!workspace.supported_) return -1.0;
  if (workspace.range_.knots == 0) return 0.0;
  workspace.FillFrame(samples, frameStart, totalSamples);
  if (workspace.IsSilent()) return 0.0;
  workspace.FindPowerSpectrum();
  const auto peak = workspace.FindPeak();
  return peak ? workspace.PitchAt(*peak) : 0.0;
}

}  // namespace cantorix
