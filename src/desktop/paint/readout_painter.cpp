// readout_painter.cpp - pairs of label and value from left to right.
#include "desktop/paint/readout_painter.h"

#include <algorithm>
#include <cmath>

#include "desktop/paint/picture_text.h"
#include "desktop/qt_text.h"

namespace cantorix {
namespace {

constexpr double kInset = 3.0;     // pixels, between a value and its border
constexpr double kLeastGap = 5.0;  // between one value and the next label
// What a value is wide enough for, whatever it says.
constexpr std::array<const char*, kReadoutCount> kWidest{"44100",   "500.0",   "-96.0",
                                                         "99999.9", "99999.9", "500.0"};

double WidthOf(const QFont& font, const QString& text) { return TextSize(font, text).width(); }

// Whether the places of readout_texts.h are kept as the least ones, or given up for want of room.
enum class Places { kKept, kTight };

// Widths of a label and a value in `font`.
struct ReadoutWidths {
  double label, value;
};

ReadoutWidths WidthsOf(const ReadoutText& text, std::size_t i, const QFont& font) {
  const double widest =
      std::max(WidthOf(font, QString::fromLatin1(kWidest[i])), WidthOf(font, Shown(text.value)));
  return {std::ceil(WidthOf(font, Shown(text.label).trimmed())) + 1.0,
          std::ceil(widest) + 2.0 * kInset};
}

std::array<ReadoutBoxes, kReadoutCount> PlaceIn(const QRectF& strip,
                                                const std::array<ReadoutText, kReadoutCount>& texts,
                                                const QFont& font, Places places) {
  std::array<ReadoutBoxes, kReadoutCount> boxes;
  const double height =
      std::min(std::max<double>(kReadoutHeight, TextSize(font, QStringLiteral("0")).height() + 2.0),
               strip.height() - 2.0);
  const double top = strip.bottom() - kReadoutsAboveBottom + (kReadoutHeight - height) / 2.0;
  double free = strip.left();  // the right edge of what is placed
  for (std::size_t i = 0; i < kReadoutCount; ++i) {
    ReadoutWidths widths = WidthsOf(texts[i], i, font);
    double left = free + kLeastGap;
    double gap = 1.0;
    if (places == Places::kKept) {
      const ReadoutPlace& place = kReadoutPlaces[i];
      widths.label = std::max<double>(widths.label, place.labelWidth);
      widths.value = std::max<double>(widths.value, place.valueWidth);
      left = std::max(left, strip.left() + place.labelX);
      gap = place.valueX - place.labelX - place.labelWidth;
    }
    boxes[i].label = {left, top, widths.label, height};
    boxes[i].value = {left + widths.label + gap, top, widths.value, height};
    free = boxes[i].value.right();
  }
  return boxes;
}

}  // namespace

std::array<ReadoutBoxes, kReadoutCount> PlaceReadouts(
    const QRectF& strip, const std::array<ReadoutText, kReadoutCount>& texts, QFont& font) {
  auto boxes = PlaceIn(strip, texts, font, Places::kKept);
  while (boxes.back().value.right() > strip.right()) {
    boxes = PlaceIn(strip, texts, font, Places::kTight);
    if (boxes.back().value.right() <= strip.right() || font.pixelSize() <= kLeastFontPixels) break;
    font.setPixelSize(font.pixelSize() - 1);
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
