// readout_painter.cpp
#include "desktop/paint/readout_painter.h"

#include <algorithm>
#include <cmath>

#include "desktop/paint/picture_text.h"
#include "desktop/qt_text.h"

namespace cantorix {
namespace {

constexpr double kInset = 3.0;  // between a value and its border
// What a value is wide enough for, whatever it says.
constexpr std::array<const char*, kReadoutCount> kWidest{"44100",   "500.0",   "-96.0",
                                                         "99999.9", "99999.9", "500.0"};

double WidthOf(const QFont& font, const QString& text) { return TextSize(font, text).width(); }

std::array<ReadoutBoxes, kReadoutCount> PlaceIn(const QRectF& strip,
                                                const std::array<ReadoutText, kReadoutCount>& texts,
                                                const QFont& font) {
  std::array<ReadoutBoxes, kReadoutCount> boxes;
  const double height = std::min<double>(
      std::max<double>(kReadoutHeight, TextSize(font, QStringLiteral("0")).height() + 2.0),
      strip.height() - 2.0);
  const double top = strip.bottom() - kReadoutsAboveBottom + (kReadoutHeight - height) / 2.0;
  double shift = 0.0;  // of everything to the right of a place that had to grow
  for (std::size_t i = 0; i < kReadoutCount; ++i) {
    const ReadoutPlace& place = kReadoutPlaces[i];
    const double label = std::max<double>(
        place.labelWidth, std::ceil(WidthOf(font, Shown(texts[i].label).trimmed())) + 1.0);
    const double widest = std::max(WidthOf(font, QString::fromLatin1(kWidest[i])),
                                   WidthOf(font, Shown(texts[i].value)));
    const double value = std::max<double>(place.valueWidth, std::ceil(widest) + 2.0 * kInset);
    boxes[i].label = {strip.left() + place.labelX + shift, top, label, height};
    shift += label - place.labelWidth;
    boxes[i].value = {strip.left() + place.valueX + shift, top, value, height};
    shift += value - place.valueWidth;
  }
  return boxes;
}

}  // namespace

std::array<ReadoutBoxes, kReadoutCount> PlaceReadouts(
    const QRectF& strip, const std::array<ReadoutText, kReadoutCount>& texts, QFont& font) {
  auto boxes = PlaceIn(strip, texts, font);
  while (boxes.back().value.right() > strip.right() && font.pixelSize() > kLeastFontPixels) {
    font.setPixelSize(font.pixelSize() - 1);
    boxes = PlaceIn(strip, texts, font);
  }
  return boxes;
}

void DrawReadouts(QPainter& painter, const QRectF& strip,
                  const std::array<ReadoutText, kReadoutCount>& texts, const PaintStyle& style) {
  painter.fillRect(strip, style.background);
  QFont font = style.font;
  const auto boxes = PlaceReadouts(strip, texts, font);
  constexpr int kFlags = Qt::AlignVCenter | Qt::TextSingleLine;
  painter.setFont(font);
  for (std::size_t i = 0; i < kReadoutCount; ++i) {
    // A field that the window is too narrow for would be cut in the middle of a number.
    if (boxes[i].value.right() > strip.right()) break;
    painter.setPen(QPen(style.frame, style.hairline));
    painter.setBrush(style.readoutField);
    painter.drawRect(boxes[i].value.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setPen(style.text);
    painter.drawText(boxes[i].label, kFlags | Qt::AlignRight, Shown(texts[i].label).trimmed());
    painter.drawText(boxes[i].value.adjusted(kInset, 0.0, -kInset, 0.0), kFlags | Qt::AlignRight,
                     Shown(texts[i].value));
  }
}

}  // namespace cantorix
