// picture_text.h - texts of pictures, measured before they are drawn, so that none is clipped.
// Boxes are logical pixels.
#pragma once

#include <QFont>
#include <QPainter>
#include <QString>

namespace cantorix {

// The box that `text` needs in `font`.
QSizeF TextSize(const QFont& font, const QString& text);

// `font`, made smaller until `text` is at most `width` wide, down to kLeastFontPixels.
inline constexpr int kLeastFontPixels = 8;
QFont FittedFont(QFont font, const QString& text, double width);

// `font` with another size.
QFont Resized(QFont font, int pixels);

// Draws `text` inside `box`, aligned as `flags` (Qt::Alignment) say; where it is too long even in
// the smallest font, its end is replaced by an ellipsis.
void DrawFitted(QPainter& painter, const QRectF& box, int flags, const QString& text,
                const QFont& font);

// Draws a text in the pane's corner, before the data.
void DrawCaption(QPainter& painter, const QRectF& pane, const QString& text, const QFont& font,
                 const QColor& color);

}  // namespace cantorix
