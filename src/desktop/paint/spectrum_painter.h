// spectrum_painter.h - draws the FFT/LPC window: spectrum and envelope over frequency, formants,
// grids, the values under the cursor.
#pragma once

#include <QPainter>
#include <optional>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/window_layout.h"
#include "desktop/paint/paint_style.h"

namespace cantorix {

struct SpectrumPicture {
  const CFFTLPCView& view;
  PixelSize client;
  std::optional<double> cursorHz;
};

// The layout that the picture has, for the window's pointer.
WindowLayout SpectrumLayout(PixelSize client);
// From 0 Hz to the top of the display.
AxisScale SpectrumAxis(const SpectrumPicture& picture);
// 0 dB to the view's top level.
AxisSpan SpectrumLevels(const SpectrumPicture& picture);

void PaintSpectrum(QPainter& painter, const SpectrumPicture& picture, const PaintStyle& style);

// The two parts of it: everything but the cursor and its readouts, and those.
void PaintSpectrumData(QPainter& painter, const SpectrumPicture& picture, const PaintStyle& style);
void PaintSpectrumOverlay(QPainter& painter, const SpectrumPicture& picture,
                          const PaintStyle& style);

}  // namespace cantorix
