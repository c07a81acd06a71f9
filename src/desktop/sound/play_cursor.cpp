// play_cursor.cpp - a broad line with a mark at its top, so that it differs from the cursor also
// without its colour.
#include "desktop/sound/play_cursor.h"

#include <QWidget>

namespace cantorix {
namespace {

constexpr int kLineWidth = 2;
constexpr int kRim = 1;  // on both sides, of the colour of the pane
constexpr int kMarkHeight = 6;
constexpr int kMarkReach = 4;  // to both sides of the line

// With all that is drawn around it.
QRect Around(const QLine& line) {
  return QRect(line.p1(), line.p2()).normalized().adjusted(-kMarkReach, -1, kMarkReach + 1, 1);
}

void DrawMark(QPainter& painter, const QPoint& top, const QColor& color) {
  for (int row = 0; row < kMarkHeight; ++row) {
    const int reach = kMarkReach * (kMarkHeight - 1 - row) / (kMarkHeight - 1);
    painter.fillRect(top.x() - reach, top.y() + row, kLineWidth + 2 * reach, 1, color);
  }
}

}  // namespace

void PlayCursor::Show(std::optional<double> value) {
  value_ = value;
  const auto place = Place();
  const QRect around = place ? Around(*place) : QRect();
  if (around == shown_) return;
  canvas_.update(shown_);
  canvas_.update(around);
  shown_ = around;
}

void PlayCursor::Draw(QPainter& painter, const PaintStyle& style) {
  const auto place = Place();
  shown_ = place ? Around(*place) : QRect();
  if (!place) return;
  if (look_ == Look::kPointed) {
    painter.setPen(QPen(style.pointed, 1.0, Qt::CustomDashLine));
    QPen pen = painter.pen();
    pen.setDashPattern({3.0, 3.0});
    painter.setPen(pen);
    return painter.drawLine(*place);
  }
  const QPoint top = place->p1();
  const int height = place->y2() - place->y1() + 1;
  painter.fillRect(top.x() - kRim, top.y(), kLineWidth + 2 * kRim, height, style.pane);
  painter.fillRect(top.x(), top.y(), kLineWidth, height, style.played);
  DrawMark(painter, top, style.played);
}

}  // namespace cantorix
