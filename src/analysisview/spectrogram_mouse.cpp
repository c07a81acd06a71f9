// spectrogram_mouse.cpp - the left button and the arrow keys in the spectrogram window.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "analysisview/spectrogram_view.h"
#include "mainview/time_axis.h"
#include "platform/numbers.h"

namespace cantorix {

double CSpectrogramView::MsUnder(std::int32_t x) const { return TimeAxis().ValueAt(ColumnNear(x)); }

double CSpectrogramView::HzPerPixel() const {
  return plot.bottom > plot.top ? spectrogram_.maxHz / (plot.bottom - plot.top) : 0.0;
}

// The lowest row of pixels stands for the lowest frequency.
double CSpectrogramView::HzUnder(std::int32_t y) const {
  const std::int32_t inside = std::clamp(y, plot.top, std::max(plot.bottom - 1, plot.top));
  return (plot.bottom - 1 - inside) * HzPerPixel();
}

std::optional<std::int32_t> CSpectrogramView::RowOf(double hz) const {
  const double perPixel = HzPerPixel();
  if (!computed() || !(perPixel > 0.0) || hz < 0.0 || hz > spectrogram_.maxHz) return std::nullopt;
  return std::max(plot.bottom - 1 - TruncateToInt32(std::round(hz / perPixel)), plot.top);
}

void CSpectrogramView::PlaceCursor(double ms, double hz) {
  cursorMs = ms;
  cursorHz = hz;
  dragMs = ms;
  markerSet = true;
  selectionShown = false;
  selection = {ms, ms};
}

void CSpectrogramView::Drag(std::int32_t x) {
  dragMs = MsUnder(x);
  selection = {std::min(cursorMs, dragMs), std::max(cursorMs, dragMs)};
  if (std::abs(x - press.x) <= kClickPixels) return;
  selectionShown = true;
  markerSet = false;
}

void CSpectrogramView::Press(std::int32_t x, std::int32_t y) {
  if (!computed() || !InPlot(x, y)) return;
  press = {.held = true, .x = x};
  PlaceCursor(MsUnder(x), HzUnder(y));
  Changed();
  PassPress(cursorMs);
}

void CSpectrogramView::Move(std::int32_t x, std::int32_t) {
  if (!press.held || !computed()) return;
  Drag(x);
  Changed();
  PassMove(dragMs);
}

void CSpectrogramView::Release(std::int32_t x, std::int32_t) {
  if (!press.held) return;
  press.held = false;
  if (!computed()) return;
  Drag(x);
  Changed();
  PassMove(dragMs);
}

void CSpectrogramView::StepCursor(std::int32_t right, std::int32_t up) {
  if (!computed() || press.held) return;
  const double lastMs = MsUnder(plot.right);
  const double lastHz = std::max(HzUnder(plot.top), 0.0);
  const bool placed = markerSet || selectionShown;
  const AxisScale time = TimeAxis();
  const double ms = placed ? time.ValueAt(time.X(cursorMs) + right) : time.low;
  const double hz = placed ? cursorHz + up * HzPerPixel() : 0.0;
  PlaceCursor(std::clamp(ms, time.low, std::max(lastMs, time.low)), std::clamp(hz, 0.0, lastHz));
  Changed();
  PassPress(cursorMs);
}

void CSpectrogramView::FollowMainView(MousePhase phase, double ms) {
  if (!computed() || samplesChanged() || mainView() == nullptr) return;
  if (phase == MousePhase::kPress) press.held = false;
  PlaceCursor(ms, cursorHz);
  if (mainView()->selectionShown()) {
    const CChannel& shown = mainView()->channel();
    selection = {shown.selectionStart.ms, shown.selectionEnd.ms};
    selectionShown = true;
    markerSet = false;
  }
  Changed();
}

}  // namespace cantorix
