// spectrogram_picture.h - the picture of the spectrogram window, as the window is now. The image of
// its levels is kept, so that other colours, strips and grids cost no walk through them.
#pragma once

#include "analysisview/color_map.h"
#include "desktop/paint/spectrogram_painter.h"
#include "desktop/windows/window_picture.h"
#include "mainview/document_waveform.h"

namespace cantorix {

class SpectrogramWindowPicture : public WindowPicture {
 public:
  // Both outlive the picture.
  SpectrogramWindowPicture(CSpectrogramView& model, DocumentWaveform& waveform)
      : WindowPicture(model), model_(model), waveform_(waveform) {}

  ColorMap colors() const { return colors_; }
  void SetColors(ColorMap colors);

  // Through the plot, with a mark at its axis.
  std::optional<QLine> PlaceOfHz(QSize size, double hz) override;

 protected:
  WindowLayout LayoutIn(PixelSize client) override;
  std::optional<AxisScale> Times() const override { return model_.TimeAxis(); }
  void PaintData(QPainter& painter, PixelSize client, const PaintStyle& style) override;
  void PaintOverlay(QPainter& painter, PixelSize client, const PaintStyle& style) override;

 private:
  const QImage& Levels();
  SpectrogramPicture Now(PixelSize client, const QImage& levels);

  CSpectrogramView& model_;
  DocumentWaveform& waveform_;
  ColorMap colors_ = ColorMap::kGrey;
  QImage levels_;
  std::int64_t levelsOf_ = -1;  // number of the levels that they show
};

}  // namespace cantorix
