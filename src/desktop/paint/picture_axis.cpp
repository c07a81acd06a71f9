// picture_axis.cpp - ticks as lines and texts, and which texts give way.
#include "desktop/paint/picture_axis.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "desktop/paint/picture_text.h"

namespace cantorix {
namespace {

constexpr double kTick = 4.0;           // pixels
constexpr double kTextGap = 3.0;        // between a tick and its text
constexpr double kTextSpace = 16.0;     // between neighbouring texts of a horizontal axis
constexpr double kLeastTickGap = 24.0;  // between ticks of a vertical axis
constexpr double kLeastTimeGap = 60.0;  // and of a horizontal one, which has ticks
constexpr double kMostTimeGap = 140.0;  // no further apart where steps allow it
constexpr double kLeastTimeGapThen = 56.0;
constexpr double kCursorDash = 3.0;
constexpr double kFocusRing = 2.0;
constexpr double kLeastGridPixels = 4;  // a denser grid would hide the picture

QString Text(const AxisTick& tick) { return QString::fromStdString(tick.text); }

double WidestText(const std::vector<AxisTick>& ticks, const QFont& font) {
  double width = 0.0;
  for (const AxisTick& tick : ticks) width = std::max(width, TextSize(font, Text(tick)).width());
  return width;
}

QFont TickFont(const PaintStyle& style) { return Resized(style.font, style.font.pixelSize() - 1); }

// A place that was worked out from a pixel has lost its last digits.
double PixelOf(double place) { return std::floor(place + 1e-6); }

// A text's top when its middle should be at `middle`, moved into the pane.
double TopOfText(const QRectF& pane, double middle, double height) {
  return std::max(std::min(middle - height / 2.0, pane.bottom() - height), pane.top());
}

// Calls draw(box, text) for the ticks' texts from the bottom upwards, without those that would
// touch the one before.
template <typename Draw>
void PlaceTexts(const QRectF& pane, const AxisSpan& span, const std::vector<AxisTick>& ticks,
                double height, const Draw& draw) {
  double free = std::numeric_limits<double>::infinity();
  for (const AxisTick& tick : ticks) {
    const double top = TopOfText(pane, YOf(pane, span, tick.value), height);
    if (top + height > free) continue;
    draw(top, tick);
    free = top;
  }
}

}  // namespace

double YOf(const QRectF& pane, const AxisSpan& span, double value) {
  if (!(span.high > span.low)) return pane.bottom();
  return pane.bottom() - (value - span.low) / (span.high - span.low) * pane.height();
}

AxisSpan ValueSpan(const QRectF& pane, double low, double high) {
  return {low, high, pane.height()};
}

std::vector<AxisTick> ValueTicks(const QRectF& pane, double low, double high,
                                 const PaintStyle& style, double gridStep) {
  const double height = TextSize(TickFont(style), QStringLiteral("0")).height();
  const AxisSpan span = ValueSpan(pane, low, high);
  auto ticks = TicksEvery(span, StepBesideGrid(span, kLeastTickGap, gridStep));
  // A low pane has closer texts rather than a single one, whatever its grid.
  if (ticks.size() < 2) ticks = NiceTicks(span, 1.2 * height);
  if (ticks.size() < 2) ticks = NiceTicks(span, 0.6 * height);
  return ticks;
}

void DrawValueAxis(QPainter& painter, const QRectF& pane, const AxisSpan& span,
                   const std::vector<AxisTick>& ticks, double margin, const PaintStyle& style) {
  const double room = margin - kTick - kTextGap - 1.0;
  QFont font = TickFont(style);
  while (font.pixelSize() > kLeastFontPixels && WidestText(ticks, font) > room) {
    font.setPixelSize(font.pixelSize() - 1);
  }
  painter.setPen(QPen(style.axis, style.hairline));
  for (const AxisTick& tick : ticks) {
    const double y = YOf(pane, span, tick.value);
    painter.drawLine(QLineF(pane.left() - kTick, y, pane.left(), y));
  }
  painter.setPen(style.text);
  painter.setFont(font);
  const double height = TextSize(font, QStringLiteral("0")).height();
  PlaceTexts(pane, span, ticks, height, [&](double top, const AxisTick& tick) {
    const QRectF box(pane.left() - margin + 1.0, top, room, height);
    DrawFitted(painter, box, Qt::AlignRight | Qt::AlignVCenter, Text(tick), font);
  });
}

void DrawInnerAxis(QPainter& painter, const QRectF& pane, const AxisSpan& span,
                   const std::vector<AxisTick>& ticks, const QColor& color,
                   const PaintStyle& style) {
  const QFont font = TickFont(style);
  const double height = TextSize(font, QStringLiteral("0")).height();
  const double width = WidestText(ticks, font);
  QColor plate = style.pane;
  plate.setAlpha(170);
  PlaceTexts(pane, span, ticks, height, [&](double top, const AxisTick& tick) {
    const double y = YOf(pane, span, tick.value);
    const QRectF box(pane.right() - width - kTick - kTextGap - 1.0, top, width + 2.0, height);
    painter.fillRect(box, plate);
    painter.setPen(QPen(color, style.hairline));
    painter.drawLine(QLineF(pane.right() - kTick, y, pane.right(), y));
    painter.setFont(font);
    painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, Text(tick));
  });
}

void DrawValueGrid(QPainter& painter, const QRectF& pane, const AxisSpan& span,
                   const std::vector<AxisTick>& ticks, const QColor& color) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const AxisTick& tick : ticks) {
    const double y = YOf(pane, span, tick.value);
    painter.fillRect(QRectF(pane.left(), y - 0.5, pane.width(), 1.0), color);
  }
}

std::vector<AxisTick> BottomTicks(const AxisScale& scale, std::int32_t timeBase,
                                  const PaintStyle& style) {
  const QFont font = TickFont(style);
  double least = kLeastTimeGap;
  const AxisSpan span = scale.Span();
  if (NiceStep(span, least) * span.pixels > kMostTimeGap * (span.high - span.low)) {
    least = kLeastTimeGapThen;
  }
  std::vector<AxisTick> ticks;
  // Wider texts need a longer step, which may need fewer decimals: it settles at once or twice.
  for (int round = 0; round < 4; ++round) {
    ticks = TimeTicks(scale.Span(), least, timeBase);
    const double needed = WidestText(ticks, font) + kTextSpace;
    if (needed <= least) break;
    least = needed;
  }
  return ticks;
}

std::vector<AxisTick> TimeGrid(const AxisScale& time, std::int32_t gridMs,
                               const std::vector<AxisTick>& ticks) {
  return gridMs > 0 ? GridEvery(time.Span(), gridMs) : ticks;
}

void DrawBottomAxis(QPainter& painter, const QRectF& strip, const AxisScale& scale,
                    const std::vector<AxisTick>& ticks, const QString& unit,
                    const PaintStyle& style) {
  const QFont font = TickFont(style);
  const double top = strip.top() + kTick + 2.0;
  const double height = TextSize(font, QStringLiteral("0")).height();
  painter.setPen(QPen(style.axis, style.hairline));
  painter.drawLine(QLineF(scale.left, strip.top(), scale.right(), strip.top()));
  double free = -std::numeric_limits<double>::infinity();
  for (const AxisTick& tick : ticks) {
    const double x = scale.X(tick.value);
    painter.setPen(QPen(style.axis, style.hairline));
    painter.drawLine(QLineF(x, strip.top(), x, strip.top() + kTick));
    const double width = TextSize(font, Text(tick)).width() + 1.0;
    const double left = std::clamp(x - width / 2.0, scale.left - 8.0, strip.right() - width - 2.0);
    if (left < free) continue;
    painter.setPen(style.text);
    painter.setFont(font);
    painter.drawText(QRectF(left, top, width, height), Qt::AlignCenter | Qt::TextSingleLine,
                     Text(tick));
    free = left + width;
  }
  painter.setPen(style.muted);
  const double unitWidth = scale.left - 10.0 - strip.left();
  DrawFitted(painter, QRectF(strip.left() + 1.0, top, unitWidth, height),
             Qt::AlignRight | Qt::AlignVCenter, unit, font);
}

void DrawVerticalGrid(QPainter& painter, const QRectF& pane, const AxisScale& scale,
                      const std::vector<AxisTick>& ticks, const QColor& color) {
  painter.setPen(QPen(color, 1.0));
  for (const AxisTick& tick : ticks) {
    const double x = scale.X(tick.value);
    painter.drawLine(QLineF(x, pane.top(), x, pane.bottom()));
  }
}

void DrawCursorColumn(QPainter& painter, double x, double top, double bottom, CursorLook look,
                      const PaintStyle& style) {
  const double column = PixelOf(x);
  const double height = bottom - top;
  painter.fillRect(QRectF(column - 1.0, top, 3.0, height), style.pane);
  const double part = look == CursorLook::kDashed ? kCursorDash : height;
  const int dashes = height > 0.0 ? static_cast<int>(std::ceil(height / (2.0 * part))) : 0;
  for (int dash = 0; dash < dashes; ++dash) {
    const double y = top + 2.0 * part * dash;
    painter.fillRect(QRectF(column, y, 1.0, std::min(part, bottom - y)), style.cursor);
  }
}

void DrawCursorRow(QPainter& painter, double y, double left, double right,
                   const PaintStyle& style) {
  const double row = PixelOf(y);
  painter.fillRect(QRectF(left, row - 1.0, right - left, 3.0), style.pane);
  painter.fillRect(QRectF(left, row, right - left, 1.0), style.cursor);
}

void DrawFocusRing(QPainter& painter, const QRectF& area, const PaintStyle& style) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(
      QPen(style.selectionEdge, kFocusRing, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  const double half = kFocusRing / 2.0;
  painter.drawRect(area.adjusted(half, half, -half, -half));
  painter.restore();
}

void DrawPane(QPainter& painter, const QRectF& pane, const QColor& color) {
  painter.fillRect(pane, color);
}

void DrawFrame(QPainter& painter, const QRectF& pane, const PaintStyle& style) {
  painter.setPen(QPen(style.frame, style.hairline));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(pane.adjusted(-0.5, -0.5, 0.5, 0.5));
}

std::vector<AxisTick> GridEvery(const AxisSpan& span, double step) {
  if (!(step > 0.0) || span.pixels * step < kLeastGridPixels * (span.high - span.low)) return {};
  return TicksEvery(span, step);
}

}  // namespace cantorix
