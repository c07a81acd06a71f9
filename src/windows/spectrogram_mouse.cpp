// spectrogram_mouse.cpp
#include "windows/spectrogram_mouse.h"

#include <algorithm>
#include <cstdlib>

#include "mainview/mouse.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

// The last pixel belongs to the plot, the edge behind it does not.
double ColumnPixel(const CSpectrogramView& view, std::int32_t x) {
  return std::clamp(x, view.plot.left, std::max(view.plot.right - 1, view.plot.left));
}

double MsUnder(const CSpectrogramView& view, std::int32_t x) {
  return view.TimeAxis().ValueAt(ColumnPixel(view, x));
}

// The lowest row of pixels stands for the lowest frequency.
double HzUnder(const CSpectrogramView& view, std::int32_t y) {
  const std::int32_t inside =
      std::clamp(y, view.plot.top, std::max(view.plot.bottom - 1, view.plot.top));
  return view.FrequencyAxis().ValueAt(inside + 1);
}

void PlaceCursor(CSpectrogramView& view, double ms, double hz) {
  view.cursorMs = ms;
  view.cursorHz = hz;
  view.dragMs = ms;
  view.markerSet = true;
  view.selectionShown = false;
  view.selection = {ms, ms};
}

void Drag(CSpectrogramView& view, std::int32_t x) {
  view.dragMs = MsUnder(view, x);
  view.selection = {std::min(view.cursorMs, view.dragMs), std::max(view.cursorMs, view.dragMs)};
  if (std::abs(x - view.press.x) <= kClickPixels) return;
  view.selectionShown = true;
  view.markerSet = false;
}

}  // namespace

void PressSpectrogram(CSpectrogramView& view, std::int32_t x, std::int32_t y) {
  const PixelRect& plot = view.plot;
  if (!view.computed() || x < plot.left || x >= plot.right || y < plot.top || y >= plot.bottom) {
    return;
  }
  view.press = {.held = true, .x = x};
  PlaceCursor(view, MsUnder(view, x), HzUnder(view, y));
  view.Changed();
  if (view.Tracks()) PressAtTime(*view.mainView(), view.cursorMs);
}

void MoveSpectrogram(CSpectrogramView& view, std::int32_t x, std::int32_t) {
  if (!view.press.held || !view.computed()) return;
  Drag(view, x);
  view.Changed();
  if (view.Tracks()) MoveAtTime(*view.mainView(), view.dragMs);
}

void ReleaseSpectrogram(CSpectrogramView& view, std::int32_t x, std::int32_t) {
  if (!view.press.held) return;
  view.press.held = false;
  if (!view.computed()) return;
  Drag(view, x);
  view.Changed();
  if (view.Tracks()) ReleaseAtTime(*view.mainView(), view.dragMs);
}

void StepSpectrogramCursor(CSpectrogramView& view, std::int32_t right, std::int32_t up) {
  if (!view.computed() || view.press.held) return;
  const PlotAxis time = view.TimeAxis();
  const PlotAxis frequency = view.FrequencyAxis();
  const double lastMs = time.ValueAt(ColumnPixel(view, view.plot.right));
  const double lastHz = frequency.ValueAt(view.plot.top + 1);
  PlaceCursor(view,
              std::clamp(view.cursorMs + right * time.PerPixel(), time.lowValue,
                         std::max(lastMs, time.lowValue)),
              std::clamp(view.cursorHz + up * frequency.PerPixel(), 0.0, std::max(lastHz, 0.0)));
  view.Changed();
  if (!view.Tracks()) return;
  PressAtTime(*view.mainView(), view.cursorMs);
  ReleaseAtTime(*view.mainView(), view.cursorMs);
}

void FollowMainView(CSpectrogramView& view, MousePhase phase, double ms) {
  if (!view.computed() || !view.Tracks()) return;
  if (phase == MousePhase::kPress) view.press.held = false;
  PlaceCursor(view, ms, view.cursorHz);
  const CSonadexView& mainView = *view.mainView();
  if (mainView.selectionShown) {
    const CChannel& channel = mainView.channel();
    view.selection = {channel.selectionStart.ms, channel.selectionEnd.ms};
    view.selectionShown = true;
    view.markerSet = false;
  }
  view.Changed();
}

}  // namespace cantorix
