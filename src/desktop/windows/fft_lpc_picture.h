// fft_lpc_picture.h - the picture of the FFT/LPC window, as the window is now.
#pragma once

#include "desktop/paint/spectrum_painter.h"
#include "desktop/windows/window_picture.h"

namespace cantorix {

class FftLpcPicture : public WindowPicture {
 public:
  explicit FftLpcPicture(CFFTLPCView& model) : WindowPicture(model), model_(model) {}

  std::optional<QLine> PlaceOfHz(QSize size, double hz) override {
    const AxisScale axis = model_.FrequencyAxis();
    const double x = axis.X(hz);
    if (!model_.computed() || x < axis.left || x > axis.right()) return std::nullopt;
    const PixelRect plot = LayoutIn({size.width(), size.height()}).plot;
    return QLine(ColumnOf(x), plot.top, ColumnOf(x), plot.bottom - 1);
  }

 protected:
  WindowLayout LayoutIn(PixelSize client) override { return SpectrumLayout(client); }
  void PaintData(QPainter& painter, PixelSize client, const PaintStyle& style) override {
    PaintSpectrumData(painter, Now(client), style);
  }
  void PaintOverlay(QPainter& painter, PixelSize client, const PaintStyle& style) override {
    PaintSpectrumOverlay(painter, Now(client), style);
  }

 private:
  SpectrumPicture Now(PixelSize client) const {
    SpectrumPicture picture{model_, client, {}};
    if (model_.markerSet) picture.cursorHz = model_.cursorHz;
    return picture;
  }

  CFFTLPCView& model_;
};

}  // namespace cantorix
