// formant_marks.cpp - all dark rings, then all light ones, then the shapes themselves.
#include "desktop/paint/formant_marks.h"

#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <span>

namespace cantorix {
namespace {

constexpr double kRing = 1.0;         // pixels
constexpr double kAbovePixels = 5.0;  // height of the mark above
const QColor kLight(0xff, 0xff, 0xff);
const QColor kDark(0x20, 0x20, 0x20);

// A shape that is `more` larger on all sides.
void AddMark(QPainterPath& path, std::size_t formant, const QPointF& at, double more) {
  const auto corners = [&](std::initializer_list<QPointF> points) {
    QPolygonF shape;
    for (const QPointF& point : points) shape << at + point;
    path.addPolygon(shape);
    path.closeSubpath();
  };
  const double square = 1.9 + more;
  const double triangle = 2.7 + 1.6 * more;
  const double diamond = 2.6 + 1.4 * more;
  switch (formant) {
    case 1:
      return corners({{-square, -square}, {square, -square}, {square, square}, {-square, square}});
    case 2:
      return corners({{0.0, -triangle},
                      {0.9 * triangle, 0.65 * triangle},
                      {-0.9 * triangle, 0.65 * triangle}});
    case 3:
      return corners({{0.0, -diamond}, {diamond, 0.0}, {0.0, diamond}, {-diamond, 0.0}});
    default:
      return path.addEllipse(at, 2.1 + more, 2.1 + more);
  }
}

// In paths of a few marks each: the time for a path grows with the square of what lies in its rows.
void DrawMarks(QPainter& painter, std::span<const QPointF> places, std::size_t formant,
               double more) {
  constexpr std::size_t kMarksOfPath = 12;
  while (!places.empty()) {
    const auto some = places.first(std::min(kMarksOfPath, places.size()));
    places = places.subspan(some.size());
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const QPointF& at : some) AddMark(path, formant, at, more);
    painter.drawPath(path);
  }
}

}  // namespace

void DrawFormantMarks(QPainter& painter, const FormantPlaces& places, const PaintStyle& style) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(Qt::NoPen);
  const auto pass = [&](double more, const auto& colorOf) {
    for (std::size_t i = 0; i < kFormants; ++i) {
      painter.setBrush(colorOf(i));
      DrawMarks(painter, places[i], i, more);
    }
  };
  pass(2.0 * kRing, [](std::size_t) { return kDark; });
  pass(kRing, [](std::size_t) { return kLight; });
  pass(0.0, [&](std::size_t i) { return style.formants[i]; });
  // The last is hollow.
  painter.setBrush(kLight);
  DrawMarks(painter, places[kFormants - 1], kFormants - 1, -kRing);
  painter.restore();
}

void DrawFormantAbove(QPainter& painter, double x, double top, std::size_t formant,
                      const PaintStyle& style) {
  const double half = kAbovePixels * 0.5;
  const double y = top + 1.0;
  const QPolygonF mark({{x, y}, {x + half, y + kAbovePixels}, {x - half, y + kAbovePixels}});
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(QPen(kDark, 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(style.formants[formant]);
  painter.drawPolygon(mark);
  painter.setPen(QPen(kLight, 1.0));
  painter.drawPolygon(mark);
}

}  // namespace cantorix
