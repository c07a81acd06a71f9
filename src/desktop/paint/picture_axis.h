// picture_axis.h - axes and grids of all pictures: ticks from axis_ticks.h, texts placed so that
// they stay inside their strip and apart from each other.
#pragma once

#include <QPainter>
#include <QRectF>
#include <vector>

#include "desktop/paint/paint_style.h"
#include "mainview/axis_scale.h"
#include "mainview/axis_ticks.h"

namespace cantorix {

// Pixel of a value on a vertical axis over `pane`, low at the bottom.
double YOf(const QRectF& pane, const AxisSpan& span, double value);

// A vertical axis of `low` to `high` over `pane`, with its ticks as far apart as their texts need
// and in step with a grid every `gridStep` (0: none).
std::vector<AxisTick> ValueTicks(const QRectF& pane, double low, double high,
                                 const PaintStyle& style, double gridStep = 0.0);
AxisSpan ValueSpan(const QRectF& pane, double low, double high);

// Ticks and texts of a vertical axis in the `margin` pixels on the left of the pane.
void DrawValueAxis(QPainter& painter, const QRectF& pane, const AxisSpan& span,
                   const std::vector<AxisTick>& ticks, double margin, const PaintStyle& style);
// The texts of a second axis inside the pane, at its right edge.
void DrawInnerAxis(QPainter& painter, const QRectF& pane, const AxisSpan& span,
                   const std::vector<AxisTick>& ticks, const QColor& color,
                   const PaintStyle& style);
void DrawValueGrid(QPainter& painter, const QRectF& pane, const AxisSpan& span,
                   const std::vector<AxisTick>& ticks, const QColor& color);

// Ticks of an axis of time or frequency as far apart as their texts need; timeBase 1 writes
// milliseconds as seconds, 0 any value as it is.
std::vector<AxisTick> BottomTicks(const AxisScale& scale, std::int32_t timeBase,
                                  const PaintStyle& style);
// The lines of a grid every `gridMs`; with 0 it follows the axis and its ticks.
std::vector<AxisTick> TimeGrid(const AxisScale& time, std::int32_t gridMs,
                               const std::vector<AxisTick>& ticks);
// An axis of frequency or time along the bottom: ticks at the strip's top, texts below them, `unit`
// in the margin on the left of the axis.
void DrawBottomAxis(QPainter& painter, const QRectF& strip, const AxisScale& scale,
                    const std::vector<AxisTick>& ticks, const QString& unit,
                    const PaintStyle& style);
void DrawVerticalGrid(QPainter& painter, const QRectF& pane, const AxisScale& scale,
                      const std::vector<AxisTick>& ticks, const QColor& color);

// A line a pixel wide with a rim of the pane's colour on both sides: the cursor. `x` and `y` are
// anywhere inside that pixel.
enum class CursorLook { kSolid, kDashed };
void DrawCursorColumn(QPainter& painter, double x, double top, double bottom, CursorLook look,
                      const PaintStyle& style);
void DrawCursorRow(QPainter& painter, double y, double left, double right, const PaintStyle& style);

// Inside the edges of a window's `area` that has the keyboard.
void DrawFocusRing(QPainter& painter, const QRectF& area, const PaintStyle& style);

// The pane behind data, and the line around it.
void DrawPane(QPainter& painter, const QRectF& pane, const QColor& color);
void DrawFrame(QPainter& painter, const QRectF& pane, const PaintStyle& style);

// Ticks every `step`, or none when they would be less than a few pixels apart.
std::vector<AxisTick> GridEvery(const AxisSpan& span, double step);

}  // namespace cantorix
