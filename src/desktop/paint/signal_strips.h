// signal_strips.h - the strips that several pictures share: waveform, intensity, pitch and labels
// over a time axis. Each takes what it draws, the pane and the axis, and draws inside the pane.
#pragma once

#include <QPainter>
#include <QRectF>
#include <optional>

#include "analysis/intensity_track.h"
#include "analysis/pitch.h"
#include "desktop/paint/paint_style.h"
#include "document/document.h"
#include "mainview/axis_scale.h"
#include "mainview/waveform_pyramid.h"

namespace cantorix {

// A pane and the time axis (ms) over it.
struct StripPlace {
  QRectF pane;
  AxisScale time;
};

// Columns that the painter's device shows per logical pixel, 1 ... 4.
double ColumnsPerPixel(const QPainter& painter);

// Sample values less the reference level, as far up as down: enough for the whole recording.
AxisSpan AmplitudeSpan(const CChannel& channel, const WaveformPyramid& waveform,
                       const QRectF& pane);
// The finite levels of the track with a margin; 0 ... 1 without any.
AxisSpan IntensitySpan(const IntensityResult& intensity, const QRectF& pane);
// The display range of the settings, in Hz, whichever of its ends is entered as the higher one.
AxisSpan DisplayedPitch(const PitchSettings& settings, const QRectF& pane);

// Smallest and largest samples per column; the samples themselves, joined, when there is less than
// one per pixel. Throws FileError.
void DrawWaveform(QPainter& painter, const StripPlace& place, const AxisSpan& amplitude,
                  const CSonadexDoc& document, const WaveformPyramid& waveform,
                  const PaintStyle& style);
// A dashed line; where there is more than one level per pixel, the highest of each column over a
// band of most of them.
void DrawIntensity(QPainter& painter, const StripPlace& place, const AxisSpan& levels,
                   const CChannel& channel, const PaintStyle& style);
// A line 2 pixels wide through voiced neighbours that differ by less than a fifth, with `rim` on
// both sides where it lies over an image; dots for entries that stand alone. From three entries per
// pixel on, the median of each column in a band of 80 % of its entries.
void DrawPitch(QPainter& painter, const StripPlace& place, const AxisSpan& hertz,
               const PitchResult& pitch, double msPerSample, const PaintStyle& style,
               const std::optional<QColor>& rim = std::nullopt);

}  // namespace cantorix
