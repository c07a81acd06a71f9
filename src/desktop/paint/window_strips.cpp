// window_strips.cpp - strips from the top down, then cursor, selection and readouts.
#include "desktop/paint/window_strips.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "desktop/paint/label_painter.h"
#include "desktop/paint/picture_axis.h"
#include "desktop/paint/picture_text.h"
#include "desktop/paint/signal_strips.h"
#include "desktop/paint/words.h"
#include "mainview/view_layout.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

// Pixels.
constexpr double kUnitIndent = 8.0;  // of its right end from the plot
constexpr double kArrow = 12.0;      // height of the one that points to a cursor out of sight

QString Joined(const QStringList& lines) {
  QStringList parts = lines;
  parts.removeAll(QString());
  return parts.join(QStringLiteral("    "));
}

QFont CaptionFont(const PaintStyle& style) {
  return Resized(style.font, style.font.pixelSize() - 1);
}

// Tiers one below the other, as far as there is room.
void DrawLabelStrips(QPainter& painter, const WindowLayout& layout, const AxisScale& time,
                     const Tiers& tiers, const PaintStyle& style) {
  PixelRect strip = layout.labels;
  for (const Tier& tier : tiers) {
    if (!tier.inUse) continue;
    strip.bottom = strip.top + TierHeight(tier);
    if (strip.bottom > layout.labels.bottom) return;
    DrawTierStrip(painter, tier, strip, false, style);
    DrawTierLabels(painter, tier, {strip, time, static_cast<double>(layout.plot.bottom)}, -1,
                   style);
    strip.top = strip.bottom;
  }
}

void DrawStripAxis(QPainter& painter, const QRectF& pane, const AxisSpan& span,
                   const PaintStyle& style) {
  DrawPane(painter, pane, style.pane);
  const auto ticks = ValueTicks(pane, span.low, span.high, style);
  DrawValueAxis(painter, pane, span, ticks, kPlotLeft, style);
}

// Its tip stands at `edge`, its base half its height further, by the sign of `toBase`.
void DrawEdgeArrow(QPainter& painter, const PixelRect& plot, double edge, double toBase,
                   const PaintStyle& style) {
  const double middle = 0.5 * (plot.top + plot.bottom);
  const double half = 0.5 * kArrow;
  const double base = edge + 0.5 * toBase;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(QPen(style.pane, 2.0 * style.hairline));
  painter.setBrush(style.cursor);
  painter.drawPolygon(QPolygonF({{edge, middle}, {base, middle - half}, {base, middle + half}}));
  painter.restore();
}

}  // namespace

void DrawWindowStrips(QPainter& painter, const WindowLayout& layout, const AxisScale& time,
                      const CSonadexDoc& document, const WaveformPyramid* waveform,
                      const PaintStyle& style) {
  const CChannel& channel = document.channel();
  if (layout.audio.bottom > layout.audio.top && waveform != nullptr) {
    const QRectF pane = ToRectF(layout.audio);
    const AxisSpan span = AmplitudeSpan(channel, *waveform, pane);
    DrawStripAxis(painter, pane, span, style);
    DrawCaption(painter, pane, TrOn(style, "Audio"), CaptionFont(style), style.muted);
    DrawWaveform(painter, {pane, time}, span, document, *waveform, style);
    DrawFrame(painter, pane, style);
  }
  if (layout.intensity.bottom > layout.intensity.top) {
    const QRectF pane = ToRectF(layout.intensity);
    const AxisSpan span = IntensitySpan(channel.intensity, pane);
    if (channel.intensity.IntensityValid) {
      DrawStripAxis(painter, pane, span, style);
      DrawIntensity(painter, {pane, time}, span, channel, style);
    } else {
      DrawPane(painter, pane, style.pane);
    }
    DrawCaption(painter, pane, TrOn(style, "Intensity (dB)"), CaptionFont(style), style.intensity);
    DrawFrame(painter, pane, style);
  }
  if (layout.labels.bottom > layout.labels.top) {
    DrawLabelStrips(painter, layout, time, channel.tiers, style);
  }
}

std::int32_t TopOfParts(const WindowLayout& layout) {
  std::int32_t top = layout.plot.top;
  for (const PixelRect& part : {layout.labels, layout.audio, layout.intensity}) {
    if (part.bottom > part.top) top = std::min(top, part.top);
  }
  return top;
}

void DrawWindowCursor(QPainter& painter, const WindowLayout& layout, const AxisScale& axis,
                      double value, const PaintStyle& style) {
  const double x = axis.X(value);
  if (!std::isfinite(x)) return;
  if (x < axis.left) return DrawEdgeArrow(painter, layout.plot, axis.left, kArrow, style);
  if (x > axis.right()) return DrawEdgeArrow(painter, layout.plot, axis.right(), -kArrow, style);
  painter.setRenderHint(QPainter::Antialiasing, false);
  DrawCursorColumn(painter, x, TopOfParts(layout), layout.plot.bottom, CursorLook::kSolid, style);
}

void DrawWindowCursorRow(QPainter& painter, const WindowLayout& layout, double y,
                         const PaintStyle& style) {
  if (!(y >= layout.plot.top && y <= layout.plot.bottom)) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  DrawCursorRow(painter, y, layout.plot.left, layout.plot.right, style);
}

void DrawWindowSelection(QPainter& painter, const WindowLayout& layout, const AxisScale& axis,
                         const AxisSelection& selection, const PaintStyle& style) {
  const double left = std::max(axis.X(selection.start), axis.left);
  const double right = std::min(axis.X(selection.end), axis.right());
  if (!(right >= left)) return;
  const double top = TopOfParts(layout);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(QRectF(left, top, right - left, layout.plot.bottom - top), style.selection);
  painter.setPen(QPen(style.selectionEdge, style.hairline));
  painter.drawLine(QLineF(left, top, left, layout.plot.bottom));
  painter.drawLine(QLineF(right, top, right, layout.plot.bottom));
}

void DrawReadoutLines(QPainter& painter, const WindowLayout& layout, const QStringList& lines,
                      const PaintStyle& style) {
  painter.fillRect(ToRectF(layout.readouts), style.background);
  painter.setPen(style.text);
  double top = layout.readouts.top;
  const bool isOneLine = layout.readouts.bottom - layout.readouts.top < 2 * kReadoutLineHeight;
  const QStringList shown = isOneLine ? QStringList(Joined(lines)) : lines;
  for (const QString& line : shown) {
    const QRectF box(8.0, top, layout.client.width - 16.0, kReadoutLineHeight);
    DrawFitted(painter, box, Qt::AlignLeft | Qt::AlignVCenter, line, style.font);
    top += kReadoutLineHeight;
  }
}

void DrawValueUnit(QPainter& painter, const PixelRect& plot, const QString& unit,
                   const PaintStyle& style) {
  const QFont font = Resized(style.font, style.font.pixelSize() - 1);
  const QRectF box(1.0, plot.top - kUnitHeight, kPlotLeft - kUnitIndent, kUnitHeight);
  painter.setPen(style.muted);
  painter.setFont(font);
  painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, unit);
}

QRectF LegendLine(const PixelRect& plot) {
  return {static_cast<double>(plot.left), static_cast<double>(plot.top - kUnitHeight),
          static_cast<double>(plot.right - plot.left), static_cast<double>(kUnitHeight)};
}

QString TimeUnit(std::int32_t timeBase) {
  return timeBase != 0 ? QStringLiteral("s") : QStringLiteral("ms");
}

QString ShownTime(double ms, std::int32_t timeBase) {
  return QString::fromStdString(TimeWithUnit(ms, timeBase));
}

}  // namespace cantorix
