// fft_lpc_view.cpp
#include "windows/fft_lpc_view.h"

#include <cmath>
#include <iostream>
#include <new>
#include <utility>

#include "analysis/spectrum_limits.h"
#include "platform/abandon.h"
#include "platform/numbers.h"
#include "platform/prompts.h"
#include "platform/services.h"

namespace cantorix {
namespace {

constexpr const char* kRangeTooHigh =
    "Frequency range is beyond allowable value.\n"
    "Use Option->FFT/LPC and make sure the frequency range is up to 1/2 of sample rate.";
constexpr const char* kOrderTooHigh =
    "Number of LPC coefficients is beyond allowable value.\n"
    "Use Option->FFT/LPC and make it is in the proper range.";
constexpr const char* kOutOfMemory = "Out of memory.";
constexpr std::uint64_t kSampleBufferBytes = 65536;

// One coefficient for each kHz of the rate and 10 more.
std::int64_t MostCoefficients(double rateHz) {
  return Truncate(rateHz * 0.0005 + rateHz * 0.0005 + 10.0);
}

bool IsRate(double rateHz) { return rateHz > 0.0 && std::isfinite(rateHz); }

}  // namespace

bool CFFTLPCView::AnalyseSpectrum(const SpectrumPlace& place, int displayPoints) {
  const FftLpcSettings& settings = document_.settings.fftLpc;
  const double rateHz = document_.channel().sampleRateHz;
  if (!SettingsFit(settings, rateHz) || !BufferFits()) return false;
  if (displayPoints <= 0 || !IsSpectrumSize(settings.points) || !IsRate(rateHz)) return false;
  KeepSettings(settings, rateHz);

  computed_ = false;
  spectrum_ = {};
  try {
    spectrum_ = Analyse(place, displayPoints);
  } catch (const std::bad_alloc&) {
    throw Abandoned(AbandonReason::kOutOfMemory);
  }
  computed_ = true;
  return true;
}

bool CFFTLPCView::SettingsFit(const FftLpcSettings& settings, double rateHz) const {
  Prompts& prompts = document_.host().prompts;
  if (settings.rangeHz > HighestRangeHz(rateHz)) {
    prompts.Message(kRangeTooHigh);
    return false;
  }
  if (settings.lpcOrder > MostCoefficients(rateHz)) {
    prompts.Message(kOrderTooHigh);
    return false;
  }
  return true;
}

bool CFFTLPCView::BufferFits() const {
  const DocumentHost& host = document_.host();
  if (host.memory.CanAllocate(kSampleBufferBytes)) return true;
  host.prompts.Beep();
  host.prompts.Message(kOutOfMemory);
  return false;
}

void CFFTLPCView::KeepSettings(const FftLpcSettings& settings, double rateHz) {
  settings_ = settings;
  texts_ = {std::to_string(settings.points), std::to_string(settings.lpcOrder),
            std::to_string(Truncate(rateHz)), std::to_string(settings.windowMs),
            std::to_string(settings.stepMs)};
}

Spectrum CFFTLPCView::Analyse(const SpectrumPlace& place, int displayPoints) const {
  const SpectrumFrameOptions options{
      .points = settings_.points,
      .windowMs = static_cast<double>(settings_.windowMs),
      .lpcOrder = settings_.lpcOrder,
      .maxHz = static_cast<double>(settings_.rangeHz),
      // The FFT/LPC window has none of its own.
      .preEmphasis = document_.settings.spectrogram.preEmphasis,
      .rateHz = document_.channel().sampleRateHz,
      .displayPoints = displayPoints,
  };
  SpectrumFrameAnalyser analyser(document_.Samples(), options, std::cerr);
  if (!place.selection) return SpectrumOfFrame(analyser, place.position);
  return AverageSpectrum(analyser, *place.selection, settings_.stepMs, document_.host().progress);
}

}  // namespace cantorix
