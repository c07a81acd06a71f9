// window_strips.h - what the spectrogram and the pitch window show above their plots, and what all
// analysis windows share: cursor, selection, lines of readouts.
#pragma once

#include <QPainter>
#include <QString>
#include <QStringList>
#include <optional>

#include "analysisview/window_layout.h"
#include "desktop/paint/paint_style.h"
#include "document/document.h"
#include "mainview/waveform_pyramid.h"

namespace cantorix {

// A selection on a horizontal axis, start <= end.
struct AxisSelection {
  double start = 0.0;
  double end = 0.0;
};

// The strips that `layout` has room for, over the times of `time` (ms). `waveform` may be null when
// there is no strip of audio. Throws FileError.
void DrawWindowStrips(QPainter& painter, const WindowLayout& layout, const AxisScale& time,
                      const CSonadexDoc& document, const WaveformPyramid* waveform,
                      const PaintStyle& style);

// Of the highest strip that is there, or of the plot.
std::int32_t TopOfParts(const WindowLayout& layout);
// From the top of the strips to the bottom of the plot; outside the axis an arrow at its edge.
void DrawWindowCursor(QPainter& painter, const WindowLayout& layout, const AxisScale& axis,
                      double value, const PaintStyle& style);
// A horizontal line through the plot at pixel row `y`.
void DrawWindowCursorRow(QPainter& painter, const WindowLayout& layout, double y,
                         const PaintStyle& style);
void DrawWindowSelection(QPainter& painter, const WindowLayout& layout, const AxisScale& axis,
                         const AxisSelection& selection, const PaintStyle& style);

// One line of text each; all of them in one where the layout has a single line.
void DrawReadoutLines(QPainter& painter, const WindowLayout& layout, const QStringList& lines,
                      const PaintStyle& style);

// The unit of the plot's vertical axis, over the texts of its ticks.
void DrawValueUnit(QPainter& painter, const PixelRect& plot, const QString& unit,
                   const PaintStyle& style);

// The place of a legend, above the plot.
QRectF LegendLine(const PixelRect& plot);

// "ms" or "s".
QString TimeUnit(std::int32_t timeBase);
// A time in the time base with its unit: "123.4 ms", "0.123 s".
QString ShownTime(double ms, std::int32_t timeBase);

}  // namespace cantorix
