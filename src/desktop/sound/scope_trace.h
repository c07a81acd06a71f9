// scope_trace.h - the running trace of a scope: one line from the lowest to the highest sample for
// each column of pixels, drawn into an image that is kept. The trace starts again at the left when
// it has reached the right edge; a gap runs ahead of it.
#pragma once

#include <QImage>
#include <QRegion>
#include <cstdint>
#include <span>
#include <vector>

#include "desktop/paint/paint_style.h"

namespace cantorix {

class ScopeTrace {
 public:
  // How long the trace takes from edge to edge.
  static constexpr double kSweepSeconds = 4.0;

  // An empty picture of that size in logical pixels; `ratio` device pixels to each.
  void Begin(QSize size, double ratio, const PaintStyle& style);
  // Of the sound from here on. The trace goes on where it stands.
  void SetRate(std::uint32_t rateHz);
  // What has changed of the picture, in logical pixels. Samples of a column that is not whole yet
  // wait for the next ones.
  QRegion Draw(std::span<const std::int16_t> samples);

  // In the resolution that was asked for.
  const QImage& image() const { return image_; }

 private:
  // Of the column that is being filled.
  struct Column {
    std::int16_t lowest = 0;
    std::int16_t highest = 0;
    bool clipped = false;
    double samples = 0.0;
  };

  int Row(std::int16_t sample) const;
  void Clear(int column);
  void Finish();
  QRect Logical(int firstColumn, int columns) const;
  void MakeEmptyColumn(const PaintStyle& style);

  QImage image_;
  std::vector<QRgb> emptyColumn_;
  QRgb traceColor_ = 0;
  QRgb clippedColor_ = 0;
  std::uint32_t rateHz_ = 11025;
  int x_ = 0;  // device pixels, of the column that is being filled
  std::int16_t last_ = 0;
  Column column_;
};

}  // namespace cantorix
