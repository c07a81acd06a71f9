// selection_painter.cpp - three texts that never touch each other.
#include "desktop/paint/selection_painter.h"

#include "desktop/paint/picture_text.h"
#include "desktop/qt_text.h"

namespace cantorix {
namespace {

constexpr int kPixels = 11;      // of the text
constexpr double kPad = 3.0;     // around a text
constexpr double kBelow = 17.0;  // the line of captions
constexpr int kOpaque = 215;     // of 255: the ground that keeps a text legible over curves

class Line {
 public:
  Line(QPainter& painter, double top, const PaintStyle& style)
      : painter_(painter), style_(style), font_(Resized(style.font, kPixels)), top_(top) {}

  double WidthOf(const std::string& text) const {
    return TextSize(font_, Shown(text)).width() + 2.0 * kPad;
  }
  void Write(double left, const std::string& text) {
    const QSizeF size = TextSize(font_, Shown(text));
    const QRectF box(left, top_, size.width() + 2.0 * kPad, size.height());
    QColor ground = style_.pane;
    ground.setAlpha(kOpaque);
    painter_.fillRect(box, ground);
    painter_.setFont(font_);
    painter_.setPen(style_.text);
    painter_.drawText(box, Qt::AlignCenter | Qt::TextSingleLine, Shown(text));
  }

 private:
  QPainter& painter_;
  const PaintStyle& style_;
  QFont font_;
  double top_;
};

}  // namespace

void DrawSelectionTexts(QPainter& painter, const QRectF& band, const QRectF& area,
                        const SelectionTexts& texts, const PaintStyle& style) {
  Line line(painter, band.top() + kBelow, style);
  const double start = line.WidthOf(texts.start);
  const double end = line.WidthOf(texts.end);
  const double length = line.WidthOf(texts.length);
  const bool allInside = start + length + end <= band.width();
  if (length <= band.width()) line.Write(band.center().x() - length / 2.0, texts.length);
  const double startLeft = allInside ? band.left() + 1.0 : band.left() - start;
  const double endLeft = allInside ? band.right() - end : band.right() + 1.0;
  if (startLeft >= area.left()) line.Write(startLeft, texts.start);
  if (endLeft + end <= area.right()) line.Write(endLeft, texts.end);
}

}  // namespace cantorix
