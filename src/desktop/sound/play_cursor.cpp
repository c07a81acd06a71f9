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

QRect Column(const PlayPlace& place) {
  return {place.x - kMarkReach, place.top, kLineWidth + 2 * kMarkReach, place.bottom - place.top};
}

void DrawMark(QPainter& painter, const PlayPlace& place, const QColor& color) {
  for (int row = 0; row < kMarkHeight; ++row) {
    const int reach = kMarkReach * (kMarkHeight - 1 - row) / (kMarkHeight - 1);
    painter.fillRect(place.x - reach, place.top + row, kLineWidth + 2 * reach, 1, color);
  }
}

}  // namespace

void PlayCursor::Show(std::optional<double> ms) {
  ms_ = ms;
  const auto place = Place();
  const QRect column = place ? Column(*place) : QRect();
  if (column == shown_) return;
  canvas_.update(shown_);
  canvas_.update(column);
  shown_ = column;
}

void PlayCursor::Draw(QPainter& painter, const PaintStyle& style) {
  const auto place = Place();
  shown_ = place ? Column(*place) : QRect();
  if (!place) return;
  if (look_ == Look::kPointed) {
    painter.setPen(QPen(style.pointed, 1.0, Qt::CustomDashLine));
    QPen pen = painter.pen();
    pen.setDashPattern({3.0, 3.0});
    painter.setPen(pen);
    return painter.drawLine(place->x, place->top, place->x, place->bottom - 1);
  }
  const int height = place->bottom - place->top;
  painter.fillRect(place->x - kRim, place->top, kLineWidth + 2 * kRim, height, style.pane);
  painter.fillRect(place->x, place->top, kLineWidth, height, style.played);
  DrawMark(painter, *place, style.played);
}

}  // namespace cantorix
