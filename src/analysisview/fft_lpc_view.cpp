// fft_lpc_view.cpp - the settings checked against the rate, then the analysis.
#include "analysisview/fft_lpc_view.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <new>
#include <tuple>
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

bool IsRate(double rateHz) { return rateHz > 0.0 && std::isfinite(rateHz); }

}  // namespace

bool CFFTLPCView::AnalyseSpectrum(const SpectrumPlace& place, int displayPoints) {
  const FftLpcSettings& settings = document().settings.fftLpc;
  const double rateHz = channel().sampleRateHz;
  Tried(false);
  if (!SettingsFit(settings, rateHz) || !BufferFits()) return false;
  if (displayPoints <= 0 || !IsSpectrumSize(settings.points) || !IsRate(rateHz)) return false;
  KeepSettings(settings, rateHz);
  place_ = place;
  placed_ = true;
  marker_.reset();

  computed_ = false;
  spectrum_ = {};
  try {
    spectrum_ = Analyse(place, displayPoints);
  } catch (const std::bad_alloc&) {
    throw Abandoned(AbandonReason::kOutOfMemory);
  }
  computed_ = true;
  if (cursorHz >= spectrum_.maxHz) markerSet = false;
  Tried(true);
  PictureChanged();
  return true;
}

bool CFFTLPCView::Show(const SpectrumPlace& place) {
  return AnalyseSpectrum(place, TruncateToInt32(static_cast<double>(wantedSize().columns)));
}

void CFFTLPCView::Update() {
  if (marker_) return static_cast<void>(Show({.position = *marker_, .selection = {}}));
  SpectrumPlace place;
  place.position = Remaining({place_.position, place_.position}, false).start;
  if (place_.selection) place.selection = Remaining(*place_.selection, false);
  Show(place);
}

// The place changes at each rest, so that a drag of the marker is followed without a queue.
void CFFTLPCView::FollowDocument(DocumentChanges changes) {
  if (changes.Has(DocumentChange::kSamples)) marker_.reset();
  if (!changes.Has(DocumentChange::kCursor) || document().windowLinks.spectrumFollows == 0) return;
  if (mainView() == nullptr || !mainView()->markerSet() || !computed_) return;
  const double marker = channel().cursor.samples;
  marker_.reset();
  if (place_.selection || place_.position != marker) marker_ = marker;
}

bool CFFTLPCView::SettingsMatch() const {
  const auto computedWith = [](const FftLpcSettings& s) {
    return std::tie(s.points, s.windowMs, s.stepMs, s.rangeHz, s.lpcOrder);
  };
  return !computed_ || (computedWith(settings_) == computedWith(document().settings.fftLpc) &&
                        preEmphasis_ == document().settings.spectrogram.preEmphasis);
}

bool CFFTLPCView::SettingsFit(const FftLpcSettings& settings, double rateHz) const {
  Prompts& prompts = host().prompts;
  if (settings.rangeHz > HighestRangeHz(rateHz)) {
    prompts.Message(kRangeTooHigh);
    return false;
  }
  if (settings.lpcOrder > MostLpcCoefficients(rateHz)) {
    prompts.Message(kOrderTooHigh);
    return false;
  }
  return true;
}

bool CFFTLPCView::BufferFits() const {
  const DocumentHost& around = host();
  if (around.memory.CanAllocate(kSampleBufferBytes)) return true;
  around.prompts.Beep();
  around.prompts.Message(kOutOfMemory);
  return false;
}

void CFFTLPCView::KeepSettings(const FftLpcSettings& settings, double rateHz) {
  settings_ = settings;
  preEmphasis_ = document().settings.spectrogram.preEmphasis;
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
      .preEmphasis = preEmphasis_,
      .rateHz = channel().sampleRateHz,
      .displayPoints = displayPoints,
  };
  SpectrumFrameAnalyser analyser(document().Samples(), options, std::cerr);
  if (!place.selection) return SpectrumOfFrame(analyser, place.position);
  return AverageSpectrum(analyser, *place.selection, settings_.stepMs, host().progress);
}

}  // namespace cantorix
