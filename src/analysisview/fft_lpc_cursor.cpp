// fft_lpc_cursor.cpp - axes, marker, readouts and log rows of the FFT/LPC window.
#include <algorithm>
#include <cmath>

#include "analysisview/fft_lpc_log.h"
#include "analysisview/fft_lpc_view.h"
#include "mainview/option_commands.h"
#include "platform/numbers.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

constexpr double kLeastTopDb = 1.0;
constexpr double kHeadroom = 1.05;

std::string FormantValueText(double hz) {
  return hz == kNoFormant ? std::string("-") : FormatOneDecimal(hz);
}

// Above the picture: with an arrow.
std::string ShownFormantText(double hz, double maxHz) {
  return (hz > maxHz ? "\u2191 " : "") + FormantValueText(hz);
}

}  // namespace

AxisScale CFFTLPCView::FrequencyAxis() const { return AxisOver(0.0, spectrum_.maxHz); }

double CFFTLPCView::TopLevelDb() const {
  const FftLpcSettings& now = document().settings.fftLpc;
  if (now.relative == 0) return std::max(static_cast<double>(now.absoluteDb), kLeastTopDb);
  const double drawnDb =
      std::max(spectrum_.fftMaxDb, now.drawLpc != 0 ? spectrum_.lpcSpanDb : 0.0) * kHeadroom;
  return std::isfinite(drawnDb) ? std::max(drawnDb, kLeastTopDb) : kLeastTopDb;
}

std::string CFFTLPCView::PlaceText() const {
  if (!computed_) return {};
  const auto time = [this](double samples) {
    return TimeWithUnit(samples * channel().msPerSample(), document().settings.display.timeBase);
  };
  if (!place_.selection) return "at " + time(place_.position);
  return "mean of " + time(place_.selection->start) + " \u2013 " + time(place_.selection->end);
}

void CFFTLPCView::Press(std::int32_t x, std::int32_t y) {
  if (!computed_ || !InPlot(x, y)) return;
  press = {.held = true, .x = x};
  PlaceCursor(x);
}

void CFFTLPCView::Move(std::int32_t x, std::int32_t) {
  if (press.held && computed_) PlaceCursor(x);
}

void CFFTLPCView::Release(std::int32_t x, std::int32_t y) {
  Move(x, y);
  press.held = false;
}

void CFFTLPCView::PlaceCursor(std::int32_t x) {
  cursorHz = FrequencyAxis().ValueAt(ColumnNear(x));
  markerSet = true;
  Changed();
}

void CFFTLPCView::StepCursor(std::int32_t right, std::int32_t) {
  const std::size_t count = spectrum_.fftDb.size();
  if (!computed_ || count == 0) return;
  const std::int64_t last = static_cast<std::int64_t>(count) - 1;
  const std::int64_t point =
      markerSet ? DisplayPointAt(count, cursorHz, spectrum_.maxHz) + right : 0;
  cursorHz =
      spectrum_.FrequencyHz(static_cast<std::size_t>(std::clamp<std::int64_t>(point, 0, last)));
  markerSet = true;
  Changed();
}

std::vector<LogEntry> CFFTLPCView::LogRows(WindowLog log) const {
  if (!computed_ || samplesChanged()) return {};
  const std::string& source = document().title();
  switch (log) {
    case WindowLog::kMarker:
      if (!markerSet) return {};
      return {FftLpcMarkerEntry(source, spectrum_, cursorHz)};
    case WindowLog::kFormantsHere:
      return {FftLpcFormantsEntry(source, spectrum_)};
    case WindowLog::kEntireFrame:
      return FftLpcEntireFrameEntries(source, spectrum_, document().settings.logStepHz);
    case WindowLog::kFormantsAll:
      break;
  }
  return {};
}

std::vector<WindowReadout> CFFTLPCView::Readouts() const {
  std::vector<WindowReadout> readouts;
  const bool marked = computed_ && markerSet;
  const auto atMarker = [&](const std::vector<double>& levels) {
    return marked ? FormatOneDecimal(DisplayValueAt(levels, cursorHz, spectrum_.maxHz)) : "-";
  };
  readouts.push_back({"Frequency(Hz)=", marked ? FormatOneDecimal(cursorHz) : "-"});
  readouts.push_back({"FFT(dB)=", atMarker(spectrum_.fftDb)});
  readouts.push_back({"LPC(dB)=", atMarker(spectrum_.lpcDb)});
  for (std::size_t i = 0; i < spectrum_.formants.frequencyHz.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    readouts.push_back({"F" + number + "(Hz)=",
                        ShownFormantText(spectrum_.formants.frequencyHz[i], spectrum_.maxHz)});
    readouts.push_back(
        {"BW" + number + "(Hz)=", FormantValueText(spectrum_.formants.bandwidthHz[i])});
  }
  readouts.push_back({"Points=", texts_.points});
  readouts.push_back({"Window(ms)=", texts_.windowMs});
  readouts.push_back({"Step(ms)=", texts_.stepMs});
  readouts.push_back({"LPC order=", texts_.lpcOrder});
  readouts.push_back({"Sample Rate(Hz)=", texts_.rateHz});
  return readouts;
}

std::int32_t* CFFTLPCView::SwitchOf(WindowSwitch which) {
  FftLpcSettings& options = document().settings.fftLpc;
  if (which == WindowSwitch::kDrawLpc) return &options.drawLpc;
  if (which == WindowSwitch::kRelativeLevel) return &options.relative;
  if (which == WindowSwitch::kFollowMarker) return &document().windowLinks.spectrumFollows;
  return nullptr;
}

void CFFTLPCView::KeepSwitches() {
  if (mainView() != nullptr) KeepOptions(*mainView(), SettingsDialog::kFftLpc);
}

}  // namespace cantorix
