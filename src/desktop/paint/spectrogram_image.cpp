// spectrogram_image.cpp - levels to table entries, the highest frequency on top.
#include "desktop/paint/spectrogram_image.h"

#include <span>

namespace cantorix {

QImage SpectrogramImage(const Spectrogram& spectrogram, double dynamicRangeDb, ColorMap map) {
  if (!spectrogram.computed() || spectrogram.levels == nullptr) return {};
  const int rows = spectrogram.rows;
  QImage image(static_cast<int>(spectrogram.columns), rows, QImage::Format_RGB32);
  if (image.isNull()) return {};
  const ColorTable table = MakeColorTable(map);
  const auto stride = static_cast<std::size_t>(image.bytesPerLine()) / sizeof(QRgb);
  QRgb* const bottom =
      reinterpret_cast<QRgb*>(image.bits()) + static_cast<std::size_t>(rows - 1) * stride;
  for (std::int64_t c = 0; c < spectrogram.columns; ++c) {
    QRgb* pixel = bottom + c;
    for (const double level : spectrogram.Column(c)) {
      *pixel = table[ColorIndex(level, dynamicRangeDb)];
      pixel -= stride;
    }
  }
  return image;
}

}  // namespace cantorix
