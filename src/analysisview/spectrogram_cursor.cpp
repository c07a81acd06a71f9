// spectrogram_cursor.cpp - axes, readouts, log rows and switches of the spectrogram window.
#include <algorithm>

#include "analysisview/spectrogram_view.h"
#include "mainview/option_commands.h"
#include "platform/numbers.h"

namespace cantorix {

SpectrogramLogContext CSpectrogramView::LogContext() const {
  return {document().title(), msPerSample_, TimeFactor(document())};
}

AxisScale CSpectrogramView::TimeAxis() const {
  const SampleRange range = AxisSamples();
  return AxisOver(range.start * msPerSample_, range.end * msPerSample_);
}

std::optional<double> CSpectrogramView::LevelAtCursor() const {
  return LevelAt(spectrogram_, msPerSample_, cursorMs, cursorHz);
}

std::vector<LogEntry> CSpectrogramView::LogRows(WindowLog log) const {
  if (!computed() || samplesChanged()) return {};
  if (log == WindowLog::kFormantsAll) {
    return SpectrogramFormantsAllEntries(LogContext(), spectrogram_);
  }
  if (!markerSet) return {};
  switch (log) {
    case WindowLog::kMarker:
      return {SpectrogramMarkerEntry(LogContext(), cursorMs, cursorHz)};
    case WindowLog::kFormantsHere:
      return SpectrogramFormantsEntries(LogContext(), spectrogram_, cursorMs);
    case WindowLog::kEntireFrame:
      return SpectrogramEntireFrameEntries(LogContext(), spectrogram_, cursorMs);
    case WindowLog::kFormantsAll:
      break;
  }
  return {};
}

std::vector<WindowReadout> CSpectrogramView::Readouts() const {
  const bool shown = computed() && (markerSet || selectionShown);
  std::vector<WindowReadout> readouts{TimeReadout(document(), "Time", cursorMs),
                                      {"Frequency(Hz)=", FormatOneDecimal(cursorHz)},
                                      {"Level(dB)=", "-"}};
  if (const auto levelDb = LevelAtCursor()) readouts[2].value = FormatOneDecimal(*levelDb);
  const std::int64_t column = hasFormants() ? ColumnAt(spectrogram_, msPerSample_, cursorMs) : -1;
  for (std::size_t i = 0; i < kFormants; ++i) {
    readouts.push_back({"F" + std::to_string(i + 1) + "(Hz)=", "-"});
    if (column < 0) continue;
    readouts.back().value = ShownFormantText(
        spectrogram_.formants[static_cast<std::size_t>(column)][i], spectrogram_.maxHz);
  }
  if (!shown) {
    for (WindowReadout& readout : readouts) readout.value = "-";
  }
  const double durationMs = selectionShown ? selection.endMs - selection.startMs : 0.0;
  readouts.push_back(TimeReadout(document(), "Duration", durationMs));
  return readouts;
}

std::int32_t* CSpectrogramView::SwitchOf(WindowSwitch which) {
  SpectrogramSettings& options = document().settings.spectrogram;
  switch (which) {
    case WindowSwitch::kDrawFormants:
      return &options.displayFormants;
    case WindowSwitch::kDrawAudio:
      return &options.drawAudio;
    case WindowSwitch::kDrawIntensity:
      return &options.drawIntensity;
    case WindowSwitch::kDrawLabels:
      return &options.drawLabels;
    case WindowSwitch::kTrackMouse:
      return &document().settings.display.trackMouse;
    case WindowSwitch::kFollowView:
      return &document().windowLinks.spectrogramFollows;
    case WindowSwitch::kDrawLpc:
    case WindowSwitch::kRelativeLevel:
    case WindowSwitch::kFollowMarker:
      break;
  }
  return nullptr;
}

void CSpectrogramView::KeepSwitches() {
  if (mainView() != nullptr) KeepOptions(*mainView(), SettingsDialog::kSpectrogram);
}

}  // namespace cantorix
