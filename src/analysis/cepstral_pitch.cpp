// cepstral_pitch.cpp - the steps of one frame.
//
// The result is a discrete choice, so the cepstrum may be a faster one where the choice is then
// proved. The others, one frame in hundreds, are computed in the stated arithmetic.
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

bool IsSupported(const CepstralOptions& options) {
  const std::int64_t n = options.points;
  return n >= kLeastPoints && n <= kMostPoints && std::has_single_bit(static_cast<unsigned>(n)) &&
         options.windowSamples >= 0 && options.windowSamples <= n;
}

int Stages(std::int64_t points) { return std::countr_zero(static_cast<unsigned>(points)); }

std::size_t Size(std::int64_t count) { return static_cast<std::size_t>(count); }

}  // namespace

CepstralWorkspace::CepstralWorkspace(const CepstralOptions& options)
    : options_(options),
      supported_(IsSupported(options)),
      range_(supported_ ? FindQuefrencyRange(options.rateHz, options.lowHz, options.highHz,
                                             Size(options.points))
                        : QuefrencyRange{}),
      fft_(supported_ ? Stages(options.points) : 0),
      fast_(Stages(supported_ ? options.points : kLeastPoints)),
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
void CepstralWorkspace::FindCepstrum() {
  std::fill(im_.begin(), im_.end(), 0.0);
  fft_.Transform(re_, im_);
  FindPowers(std::span(re_).subspan(range_.first), std::span(im_).subspan(range_.first), Inside());
}

// The values that a cepstrum has; the rest, beyond the half, stays 0.
std::span<double> CepstralWorkspace::Inside() {
  return std::span(cepstrum_).first(std::min(range_.knots, fft_.size() / 2 - range_.first));
}

std::optional<std::size_t> CepstralWorkspace::FindPeak() {
  if (!exactOnly_) {
    if (const auto error = fast_.Find(window_, frame_, range_.first, Inside())) {
      if (const auto peak = peak_.FindCertain(cepstrum_, *error)) return peak;
    }
  }
  ++exactFrames_;
  FindPowerSpectrum();
  FindLevels(power_, re_);
  FindCepstrum();
  return peak_.Find(cepstrum_);
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
  const auto peak = workspace.FindPeak();
  return peak ? workspace.PitchAt(*peak) : 0.0;
}

}  // namespace cantorix
