// spoken.cpp - from the same lookups as the readouts.
#include "analysisview/spoken.h"

#include <cmath>
#include <span>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/pitch_view.h"
#include "analysisview/spectrogram_view.h"
#include "document/label.h"
#include "mainview/track_lookup.h"
#include "platform/file_error.h"
#include "platform/numbers.h"
#include "settings/settings.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

constexpr const char* kDash = "\u2013";
constexpr const char* kTo = " \u2013 ";
constexpr const char* kGap = "  ";

std::string TimeOf(const CSonadexDoc& document, double ms) {
  return TimeWithUnit(ms, document.settings.display.timeBase);
}

// A track has 0 where it has no value.
std::string Valued(const char* name, double value, const char* unit) {
  return std::string(name) + ' ' + (value != 0.0 ? FormatOneDecimal(value) + unit : kDash);
}

std::string AmplitudeAtCursor(CSonadexView& view) {
  const CChannel& channel = view.channel();
  std::int16_t sample = 0;
  try {
    view.document().Samples().Read(Truncate(channel.cursor.samples), std::span(&sample, 1));
  } catch (const FileError&) {
    return std::string("amp ") + kDash;
  }
  return "amp " + std::to_string(std::llround(sample - channel.referenceLevel));
}

// The label that holds at the cursor, and how many there are.
std::string LabelsOf(const Tier& tier, double ms) {
  const Label* latest = nullptr;
  for (const Label& label : tier.labels) {
    const bool later = latest == nullptr || label.timeMs >= latest->timeMs;
    if (label.timeMs <= ms && later) latest = &label;
  }
  const std::string count = std::to_string(tier.labels.size());
  return (latest == nullptr ? kDash : '\'' + latest->text + '\'') + kGap + count +
         (tier.labels.size() == 1 ? " label" : " labels");
}

}  // namespace

std::string SpokenPlace(const CSonadexView& view) {
  const CSonadexDoc& document = view.document();
  if (!document.loaded) return {};
  const CChannel& channel = view.channel();
  if (!view.selectionShown()) return "cursor " + TimeOf(document, channel.cursor.ms);
  return "selection " + TimeOf(document, channel.selectionStart.ms) + kTo +
         TimeOf(document, channel.selectionEnd.ms);
}

std::vector<SpokenPart> SpokenParts(CSonadexView& view) {
  std::vector<SpokenPart> parts;
  if (!view.document().loaded) return parts;
  const CChannel& channel = view.channel();
  const double ms = channel.cursor.ms;
  const std::string place = SpokenPlace(view) + kGap;
  const auto add = [&](const PixelRect& rect, const std::string& name, const std::string& value) {
    if (rect.bottom > rect.top) parts.push_back({name, place + value, rect});
  };
  for (int i = 0; i < kTierCount; ++i) {
    const Tier& tier = channel.tiers[static_cast<std::size_t>(i)];
    add(view.layout.tier(i), tier.name, LabelsOf(tier, ms));
  }
  add(view.layout.audio, "Audio", AmplitudeAtCursor(view));
  add(view.layout.intensity, "Intensity (dB)",
      Valued("int", IntensityAt(channel.intensity, channel, ms), " dB"));
  add(view.layout.pitch, "Pitch (Hz)", Valued("pitch", PitchAt(view.pitch, channel, ms), " Hz"));
  return parts;
}

std::string SpokenPicture(const AnalysisWindow& window) {
  if (!window.computed()) return {};
  const auto upTo = [](double hz) {
    return std::string("0") + kTo + std::to_string(std::llround(hz)) + " Hz";
  };
  if (window.kind() == WindowKind::kFftLpc) {
    const auto& spectrum = static_cast<const CFFTLPCView&>(window);
    const bool lpc = window.document().settings.fftLpc.drawLpc != 0;
    return (lpc ? "FFT, LPC  " : "FFT  ") + upTo(spectrum.spectrum().maxHz) + kGap +
           spectrum.PlaceText();
  }
  const auto shown = [&](const AxisScale& time) {
    return "shown " + TimeOf(window.document(), time.low) + kTo +
           TimeOf(window.document(), time.high);
  };
  if (window.kind() == WindowKind::kPitch) {
    return shown(static_cast<const CPitchView&>(window).TimeAxis());
  }
  const auto& spectrogram = static_cast<const CSpectrogramView&>(window);
  return shown(spectrogram.TimeAxis()) + kGap + upTo(spectrogram.spectrogram().maxHz) +
         (window.hasFormants() ? "  formants" : "");
}

}  // namespace cantorix
