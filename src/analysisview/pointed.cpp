// pointed.cpp - the values at a pixel, from the same lookups as readouts and log.
#include "analysisview/pointed.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "analysisview/fft_lpc_log.h"
#include "analysisview/fft_lpc_view.h"
#include "analysisview/pitch_view.h"
#include "analysisview/spectrogram_log.h"
#include "analysisview/spectrogram_view.h"
#include "document/label.h"
#include "mainview/time_axis.h"
#include "mainview/track_lookup.h"
#include "platform/numbers.h"
#include "settings/settings.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

constexpr const char* kDash = "\u2013";
constexpr const char* kGap = "  ";

std::string Whole(double value) { return std::to_string(std::llround(value)); }

std::string TimeOf(const CSonadexDoc& document, double ms) {
  return TimeWithUnit(ms, document.settings.display.timeBase);
}

// A track has 0 where it has no value.
std::string Value(double value, const char* unit) {
  return value != 0.0 ? FormatOneDecimal(value) + unit : kDash;
}

std::string PitchText(const CSonadexView& view, double ms) {
  return Value(PitchAt(view.pitch, view.channel(), ms), " Hz");
}

std::string IntensityText(const CChannel& channel, double ms) {
  return Value(IntensityAt(channel.intensity, channel, ms), " dB");
}

// The label that holds from its time up to the next one.
std::string LabelText(const CSonadexView& view, double ms, std::int32_t y) {
  const Tiers& tiers = view.channel().tiers;
  for (int i = 0; i < kTierCount; ++i) {
    const PixelRect& strip = view.layout.tier(i);
    if (y < strip.top || y >= strip.bottom) continue;
    const Label* latest = nullptr;
    for (const Label& label : tiers[static_cast<std::size_t>(i)].labels) {
      if (label.timeMs <= ms && (latest == nullptr || label.timeMs >= latest->timeMs)) {
        latest = &label;
      }
    }
    if (latest != nullptr) return std::string(kGap) + '\'' + latest->text + '\'';
  }
  return {};
}

// Above the picture: with an arrow.
std::string FormantText(const Spectrogram& picture, std::uint16_t hz) {
  if (hz == kNoFormantHz || hz == kSilentHz) return kDash;
  return (hz > picture.maxHz ? "\u2191 " : "") + std::to_string(hz);
}

std::string FormantsText(const CSpectrogramView& window, double ms) {
  if (!window.hasFormants()) return {};
  const Spectrogram& picture = window.spectrogram();
  const std::int64_t column = ColumnAt(picture, window.channel().msPerSample(), ms);
  if (column < 0) return {};
  std::string text;
  int number = 0;
  for (const std::uint16_t hz : picture.formants[static_cast<std::size_t>(column)]) {
    text += std::string(kGap) + 'F' + std::to_string(++number) + ' ' + FormantText(picture, hz);
  }
  return text;
}

Pointed InSpectrogram(const CSpectrogramView& window, std::int32_t x, std::int32_t y) {
  const double ms = window.TimeAxis().ValueAt(x);
  const double hz = window.HzUnder(y);
  const auto levelDb = LevelAt(window.spectrogram(), window.channel().msPerSample(), ms, hz);
  return {TimeOf(window.document(), ms) + kGap + Whole(hz) + " Hz" + kGap +
              (levelDb ? FormatOneDecimal(*levelDb) + " dB" : kDash) + FormantsText(window, ms),
          ms, hz};
}

Pointed InPitch(const CPitchView& window, std::int32_t x) {
  const double ms = window.TimeAxis().ValueAt(x);
  return {TimeOf(window.document(), ms) + kGap + PitchText(*window.mainView(), ms) + kGap +
              IntensityText(window.channel(), ms),
          ms};
}

Pointed InSpectrum(const CFFTLPCView& window, std::int32_t x) {
  const Spectrum& spectrum = window.spectrum();
  const double hz = window.FrequencyAxis().ValueAt(x);
  const SpectrumPlace& place = window.place();
  std::string text = Whole(hz) + " Hz" + kGap + "FFT " +
                     FormatOneDecimal(DisplayValueAt(spectrum.fftDb, hz, spectrum.maxHz)) + " dB" +
                     kGap + "LPC " +
                     FormatOneDecimal(DisplayValueAt(spectrum.lpcDb, hz, spectrum.maxHz)) + " dB";
  if (!place.selection) text += kGap + window.PlaceText();
  return {text, std::nullopt, hz};
}

}  // namespace

std::optional<Pointed> PointedIn(CSonadexView& view, std::int32_t x, std::int32_t y) {
  const ViewLayout& layout = view.layout;
  CSonadexDoc& document = view.document();
  if (!document.loaded || x < layout.timeAxis.left || x >= layout.timeAxis.right || y < 0 ||
      y >= layout.timeAxis.top) {
    return std::nullopt;
  }
  CChannel& channel = document.channel();
  const TimePoint point = PixelToTime(channel, layout.axisWidth(), x - layout.timeAxis.left);
  std::int16_t sample = 0;
  document.Samples().Read(Truncate(point.samples), std::span(&sample, 1));
  return Pointed{TimeOf(document, point.ms) + kGap + "amp " +
                     Whole(sample - channel.referenceLevel) + kGap + "pitch " +
                     PitchText(view, point.ms) + kGap + "int " + IntensityText(channel, point.ms) +
                     LabelText(view, point.ms, y),
                 point.ms};
}

std::optional<Pointed> PointedIn(const AnalysisWindow& window, std::int32_t x, std::int32_t y) {
  if (!window.computed() || window.samplesChanged() || !window.InPlot(x, y)) return std::nullopt;
  switch (window.kind()) {
    case WindowKind::kSpectrogram:
      return InSpectrogram(static_cast<const CSpectrogramView&>(window), x, y);
    case WindowKind::kPitch:
      return InPitch(static_cast<const CPitchView&>(window), x);
    case WindowKind::kFftLpc:
      return InSpectrum(static_cast<const CFFTLPCView&>(window), x);
  }
  return std::nullopt;
}

std::string StretchText(const CSonadexView& view) {
  const CSonadexDoc& document = view.document();
  if (!document.loaded) return {};
  const CChannel& channel = view.channel();
  constexpr const char* kDot = " \u00b7 ";
  return "channel " + std::to_string(document.fileChannel) + " of " +
         std::to_string(document.fileChannels) + kDot + Whole(channel.sampleRateHz) + " Hz" + kDot +
         TimeOf(document, channel.totalDurationMs) + kDot + "shown " +
         TimeOf(document, channel.visibleStart.ms) + " \u2013 " +
         TimeOf(document, channel.visibleEnd.ms);
}

}  // namespace cantorix
