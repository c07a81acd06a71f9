// spectrogram_picture.cpp - what the painter needs, and when the levels become a new image.
#include "desktop/windows/spectrogram_picture.h"

#include "desktop/paint/spectrogram_image.h"

namespace cantorix {
namespace {

constexpr int kHzMark = 8;  // pixels before the plot

}  // namespace

void SpectrogramWindowPicture::SetColors(ColorMap colors) {
  colors_ = colors;
  levels_ = {};
  Invalidate();
}

std::optional<QLine> SpectrogramWindowPicture::PlaceOfHz(QSize size, double hz) {
  const auto row = model_.RowOf(hz);
  if (!row) return std::nullopt;
  const PixelRect plot = LayoutIn({size.width(), size.height()}).plot;
  return QLine(plot.left - kHzMark, *row, plot.right - 1, *row);
}

WindowLayout SpectrogramWindowPicture::LayoutIn(PixelSize client) {
  return SpectrogramLayout(client, model_.document());
}

const QImage& SpectrogramWindowPicture::Levels() {
  if (levels_.isNull() || levelsOf_ != model_.levelsNumber()) {
    levels_ = SpectrogramImage(model_.spectrogram(), model_.dynamicRangeDb(), colors_);
    levelsOf_ = model_.levelsNumber();
  }
  return levels_;
}

SpectrogramPicture SpectrogramWindowPicture::Now(PixelSize client, const QImage& levels) {
  const bool audio = model_.document().settings.spectrogram.drawAudio != 0;
  SpectrogramPicture picture{model_, levels, audio ? &waveform_.Pyramid() : nullptr,
                             client, {},     {}};
  if (!model_.computed()) return picture;
  if (model_.markerSet || model_.selectionShown) {
    picture.cursor = SpectrogramCursor{model_.cursorMs, model_.cursorHz};
  }
  if (model_.selectionShown) {
    picture.selection = AxisSelection{model_.selection.startMs, model_.selection.endMs};
  }
  return picture;
}

void SpectrogramWindowPicture::PaintData(QPainter& painter, PixelSize client,
                                         const PaintStyle& style) {
  PaintSpectrogramData(painter, Now(client, Levels()), style);
}

void SpectrogramWindowPicture::PaintOverlay(QPainter& painter, PixelSize client,
                                            const PaintStyle& style) {
  PaintSpectrogramOverlay(painter, Now(client, Levels()), style);
}

}  // namespace cantorix
