// label_painter.cpp - a strip, then its texts, boxes and lines.
#include "desktop/paint/label_painter.h"

#include <QFontMetrics>
#include <algorithm>
#include <vector>

#include "desktop/paint/picture_text.h"
#include "desktop/qt_text.h"
#include "mainview/label_layout.h"
#include "mainview/view_layout.h"

namespace cantorix {
namespace {

constexpr double kLineGap = 2.0;  // pixels
constexpr double kTick = 5.0;
constexpr double kLongestText = 4000.0;  // pixels; a label further outside cannot reach in

// Black, the colour of a fresh label, is the palette's own ink.
QColor ColorOf(const Label& label, const PaintStyle& style) {
  if (label.colour == 0 || !style.hasColor) return style.text;
  return {static_cast<int>(label.colour & 0xffU), static_cast<int>(label.colour >> 8U & 0xffU),
          static_cast<int>(label.colour >> 16U & 0xffU)};
}

// The font of the description used last, as neighbouring labels mostly share one.
class LabelFonts {
 public:
  const QFont& Of(const FontDescription& description) {
    if (!known_ || !(description == description_)) {
      description_ = description;
      font_ = FontOf(description);
      known_ = true;
    }
    return font_;
  }

 private:
  FontDescription description_;
  QFont font_;
  bool known_ = false;
};

void DrawLine(QPainter& painter, double x, const TierPlace& place, const PaintStyle& style) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(style.labelLine, style.hairline));
  painter.drawLine(QLineF(x, place.strip.top, x, place.strip.bottom));
  painter.setPen(QPen(style.labelLine, style.hairline, Qt::DotLine));
  painter.drawLine(QLineF(x, place.strip.bottom, x, place.lineBottom));
}

// Where a label has no line, its time is marked at the bottom of its tier.
void DrawTick(QPainter& painter, double x, const TierPlace& place, const PaintStyle& style) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(style.labelLine, style.hairline));
  painter.drawLine(QLineF(x, place.strip.bottom - kTick, x, place.strip.bottom));
}

PixelRect BoxOf(const Label& label, const TierPlace& place, const QFont& font) {
  const QFontMetrics metrics(font);
  return LabelBox(label, {metrics.horizontalAdvance(Shown(label.text)), metrics.height()},
                  place.strip, place.time);
}

// `end`: the pixel where the text of another label begins.
void DrawTextOf(QPainter& painter, const Label& label, const PixelRect& box, const QFont& font,
                double end, const PaintStyle& style) {
  QString text = Shown(label.text);
  if (box.right > end) {
    text = QFontMetrics(font).elidedText(text, Qt::ElideRight,
                                         static_cast<int>(end - box.left - kLineGap));
  }
  // Off its own line.
  const double shift = label.flag == 0 || label.alignment == kAlignCentre ? 0.0
                       : label.alignment == kAlignRight                   ? -kLineGap
                                                                          : kLineGap;
  painter.setFont(font);
  painter.setPen(Legible(ColorOf(label, style), style.tier));
  painter.drawText(ToRectF(box).translated(shift, 0.0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, text);
}

// Two pixels just inside a box.
void DrawEdge(QPainter& painter, const QRectF& box, const PaintStyle& style) {
  if (box.isEmpty()) return;
  painter.setPen(QPen(style.selectionEdge, 2.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(box.adjusted(1.0, 1.0, -1.0, -1.0));
}

struct PlacedLabel {
  const Label* label;
  PixelRect box;
};

// Those that reach into the strip, by the left edges of their texts; of labels that stand at the
// same pixels only the first.
std::vector<PlacedLabel> PlacedLabels(const Tier& tier, const TierPlace& place, int without,
                                      LabelFonts& fonts) {
  std::vector<PlacedLabel> placed;
  double placedX = -2.0 * kLongestText;
  double placedPosition = 0.0;
  for (std::size_t i = 0; i < tier.labels.size(); ++i) {
    const Label& label = tier.labels[i];
    const double x = place.time.X(label.timeMs);
    if (static_cast<int>(i) == without || x < place.strip.left - kLongestText ||
        x > place.strip.right + kLongestText) {
      continue;
    }
    if (std::abs(x - placedX) < 1.0 && label.verticalPosition == placedPosition) continue;
    placed.push_back({&label, BoxOf(label, place, fonts.Of(label.font))});
    placedX = x;
    placedPosition = label.verticalPosition;
  }
  std::ranges::stable_sort(placed, {}, [](const PlacedLabel& label) { return label.box.left; });
  return placed;
}

// Where the next text in the same rows begins.
double EndOfText(const std::vector<PlacedLabel>& labels, std::size_t index) {
  const PixelRect& box = labels[index].box;
  for (std::size_t i = index + 1; i < labels.size() && labels[i].box.left < box.right; ++i) {
    const PixelRect& next = labels[i].box;
    if (next.top < box.bottom && box.top < next.bottom) return next.left;
  }
  return box.right;
}

}  // namespace

QRectF ToRectF(const PixelRect& rect) {
  return {QPointF(rect.left, rect.top), QPointF(rect.right, rect.bottom)};
}

std::int32_t HeightOfTiers(const Tiers& tiers) {
  std::int32_t height = 0;
  for (const Tier& tier : tiers) height += tier.inUse ? TierHeight(tier) : 0;
  return height;
}

void DrawLabelFrame(QPainter& painter, const Label& label, const TierPlace& place,
                    const PaintStyle& style) {
  const QFontMetrics metrics(FontOf(label.font));
  const QString text = Shown(label.text);
  const PixelRect box =
      LabelBox(label, {metrics.horizontalAdvance(text), metrics.height()}, place.strip, place.time);
  const QRectF strip(QPointF(place.time.left, place.strip.top),
                     QPointF(place.time.right(), place.strip.bottom));
  DrawEdge(painter, ToRectF(box).adjusted(-3.0, 0.0, 3.0, 0.0) & strip, style);
}

void DrawTierStrip(QPainter& painter, const Tier& tier, const PixelRect& strip, bool isCurrent,
                   const PaintStyle& style) {
  const QRectF rect = ToRectF(strip);
  painter.fillRect(rect, style.tier);
  painter.setPen(QPen(style.frame, style.hairline));
  painter.drawLine(QLineF(rect.left(), rect.bottom() - 0.5, rect.right(), rect.bottom() - 0.5));
  painter.setPen(style.text);
  QFont font = Resized(style.font, std::min(style.font.pixelSize(), strip.bottom - strip.top));
  font.setBold(isCurrent);
  const QRectF margin(1.0, rect.top(), rect.left() - 5.0, rect.height());
  DrawFitted(painter, margin, Qt::AlignRight | Qt::AlignVCenter, Shown(tier.name), font);
  if (isCurrent) DrawEdge(painter, rect, style);
}

void DrawTierLabels(QPainter& painter, const Tier& tier, const TierPlace& place, int without,
                    const PaintStyle& style) {
  LabelFonts fonts;
  const std::vector<PlacedLabel> labels = PlacedLabels(tier, place, without, fonts);
  painter.save();
  painter.setClipRect(QRectF(place.strip.left, place.strip.top,
                             place.strip.right - place.strip.left,
                             std::max(place.lineBottom - place.strip.top, 0.0)));
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const Label& label = *labels[i].label;
    const double x = place.time.X(label.timeMs);
    if (label.flag != 0) {
      DrawLine(painter, x, place, style);
    } else {
      DrawTick(painter, x, place, style);
    }
    DrawTextOf(painter, label, labels[i].box, fonts.Of(label.font), EndOfText(labels, i), style);
  }
  painter.restore();
}

void DrawLabel(QPainter& painter, const Label& label, const TierPlace& place,
               const PaintStyle& style) {
  painter.save();
  if (label.flag != 0) DrawLine(painter, place.time.X(label.timeMs), place, style);
  const QFont font = FontOf(label.font);
  DrawTextOf(painter, label, BoxOf(label, place, font), font, kLongestText * 100.0, style);
  painter.restore();
}

}  // namespace cantorix
