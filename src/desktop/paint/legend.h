// legend.h - one line that says what is drawn in a picture with more than one curve or mark.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <vector>

#include "desktop/paint/paint_style.h"

namespace cantorix {

struct LegendEntry {
  enum class Mark { kLine, kDashes, kFormant };
  Mark mark = Mark::kLine;
  QString text;
  QColor color;             // of a line
  double width = 1.0;       // of a line, pixels
  std::size_t formant = 0;  // 0 ... 4
};

// At the right end of `line`, on a plate of a colour where curves run below it; a line too short
// for all of it stays empty.
void DrawLegend(QPainter& painter, const QRectF& line, const std::vector<LegendEntry>& entries,
                const PaintStyle& style, const QColor& plate = Qt::transparent);

// "F1" to "F5" with their marks.
std::vector<LegendEntry> FormantLegend();

}  // namespace cantorix
