// picture_text.cpp - boxes measured from the fonts that draw them.
#include "desktop/paint/picture_text.h"

#include <QFontMetricsF>
#include <cmath>

namespace cantorix {

QSizeF TextSize(const QFont& font, const QString& text) {
  const QFontMetricsF metrics(font);
  return {metrics.horizontalAdvance(text), metrics.height()};
}

QFont Resized(QFont font, int pixels) {
  font.setPixelSize(std::max(pixels, 1));
  return font;
}

QFont FittedFont(QFont font, const QString& text, double width) {
  for (int pixels = font.pixelSize(); pixels > kLeastFontPixels; --pixels) {
    if (TextSize(font, text).width() <= width) break;
    font.setPixelSize(pixels - 1);
  }
  return font;
}

void DrawFitted(QPainter& painter, const QRectF& box, int flags, const QString& text,
                const QFont& font) {
  const QFont fitted = FittedFont(font, text, box.width());
  painter.setFont(fitted);
  const QString shown = QFontMetricsF(fitted).elidedText(text, Qt::ElideRight, box.width() + 0.5);
  painter.drawText(box, flags | Qt::TextDontClip | Qt::TextSingleLine, shown);
}

void DrawCaption(QPainter& painter, const QRectF& pane, const QString& text, const QFont& font,
                 const QColor& color) {
  constexpr double kGap = 4.0;
  const QSizeF size = TextSize(font, text);
  if (size.width() + 4.0 * kGap > pane.width() || size.height() + kGap > pane.height()) return;
  const QRectF box(pane.left() + kGap, pane.top() + 2.0, size.width() + kGap, size.height());
  painter.setPen(color);
  painter.setFont(font);
  painter.drawText(box, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, text);
}

}  // namespace cantorix
