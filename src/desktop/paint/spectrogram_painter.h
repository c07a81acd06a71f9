// spectrogram_painter.h - draws the spectrogram window: levels as colours over time and frequency,
// formants as dots, optional strips of labels, waveform and intensity, cursor and selection.
#pragma once

#include <QImage>
#include <QPainter>
#include <optional>

#include "analysisview/spectrogram_view.h"
#include "desktop/paint/paint_style.h"
#include "desktop/paint/window_strips.h"

namespace cantorix {

struct SpectrogramCursor {
  double ms = 0.0;
  double hz = 0.0;
};

struct SpectrogramPicture {
  const CSpectrogramView& view;
  const QImage& image;              // of spectrogram_image.h; null before anything was computed
  const WaveformPyramid* waveform;  // of the document; null without a strip of audio
  PixelSize client;
  std::optional<SpectrogramCursor> cursor;
  std::optional<AxisSelection> selection;  // ms
};

// The layout that the picture has by the document's settings, for the window's pointer and for the
// number of columns and rows to compute.
WindowLayout SpectrogramLayout(PixelSize client, const CSonadexDoc& document);
// The times of the spectrogram's range, ms.
AxisScale SpectrogramTimes(const SpectrogramPicture& picture);

// Throws FileError when the strip of audio cannot be read.
void PaintSpectrogram(QPainter& painter, const SpectrogramPicture& picture,
                      const PaintStyle& style);

// The two parts of it: everything but cursor, selection and readouts, and those.
void PaintSpectrogramData(QPainter& painter, const SpectrogramPicture& picture,
                          const PaintStyle& style);
void PaintSpectrogramOverlay(QPainter& painter, const SpectrogramPicture& picture,
                             const PaintStyle& style);

}  // namespace cantorix
