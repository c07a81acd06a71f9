// signal_strips.cpp - intensity and pitch. The waveform is waveform_strip.cpp.
#include "desktop/paint/signal_strips.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "desktop/paint/picture_axis.h"
#include "mainview/track_columns.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr double kNoFloor = -std::numeric_limits<double>::infinity();
constexpr qsizetype kRunPoints = 64;
constexpr double kDotPixels = 3.0;  // entries at least this far apart have dots

// An evenly spaced track over a pane: entry i at firstMs + i * stepMs, of use above `floor`.
struct Track {
  std::span<const double> values;
  double firstMs, stepMs, floor;
  bool outlined = false;  // densely drawn: a light band below an upper edge, so that what lies
                          // under it stays in sight
};

bool InUse(double value, double floor) { return value > floor && std::isfinite(value); }

// A light band with a line along its upper edge.
void DrawOutlined(QPainter& painter, const std::vector<QLineF>& bars) {
  constexpr double kBandOpacity = 0.18;
  QPolygonF edge;
  for (const QLineF& bar : bars) edge << bar.p1();
  painter.setOpacity(kBandOpacity);
  painter.drawLines(bars.data(), static_cast<int>(bars.size()));
  painter.setOpacity(1.0);
  painter.drawPolyline(edge);
}

// One vertical bar per column.
void DrawColumns(QPainter& painter, const StripPlace& place, const AxisSpan& span,
                 const Track& track, double perPixel) {
  const TrackPlace columns{(place.time.X(track.firstMs) - place.pane.left()) * perPixel,
                           (place.time.X(track.stepMs) - place.time.X(0.0)) * perPixel};
  const auto count = static_cast<std::size_t>(std::ceil(place.pane.width() * perPixel));
  const auto extents = TrackColumns(track.values, columns, count, track.floor);
  std::vector<QLineF> bars;
  bars.reserve(count);
  const double half = 0.5 / perPixel;
  for (std::size_t c = 0; c < count; ++c) {
    if (extents[c].empty()) continue;
    const double x = place.pane.left() + (static_cast<double>(c) + 0.5) / perPixel;
    const double top = YOf(place.pane, span, extents[c].high) - half;
    const double bottom = YOf(place.pane, span, extents[c].low) + half;
    bars.emplace_back(x, top, x, bottom);
  }
  QPen pen = painter.pen();
  pen.setWidthF(1.0 / perPixel);
  pen.setCapStyle(Qt::FlatCap);
  painter.setPen(pen);
  painter.setRenderHint(QPainter::Antialiasing, false);
  if (track.outlined) return DrawOutlined(painter, bars);
  painter.drawLines(bars.data(), static_cast<int>(bars.size()));
}

// Lines through neighbours that are in use; dots where `dotRadius` is not 0.
void DrawPoints(QPainter& painter, const StripPlace& place, const AxisSpan& span,
                const Track& track, double dotRadius) {
  const TrackPlace points{place.time.X(track.firstMs),
                          place.time.X(track.stepMs) - place.time.X(0.0)};
  const EntryRange range =
      EntriesAround(track.values.size(), points, place.pane.left(), place.pane.right());
  painter.setRenderHint(QPainter::Antialiasing, true);
  QPolygonF run;
  const auto finish = [&] {
    if (run.size() > 1) painter.drawPolyline(run);
    if (dotRadius > 0.0) {
      for (const QPointF& point : run) painter.drawEllipse(point, dotRadius, dotRadius);
    }
    run.clear();
  };
  for (std::size_t i = range.first; i < range.last; ++i) {
    const double value = track.values[i];
    if (!InUse(value, track.floor)) {
      finish();
      continue;
    }
    // Short paths are stroked faster than a long one.
    if (run.size() == kRunPoints) {
      const QPointF joint = run.back();
      finish();
      run << joint;
    }
    run << QPointF(points.X(static_cast<double>(i)), YOf(place.pane, span, value));
  }
  finish();
}

void DrawTrack(QPainter& painter, const StripPlace& place, const AxisSpan& span, const Track& track,
               double dotRadius) {
  const double perPixel = ColumnsPerPixel(painter);
  const double pixels = place.time.X(track.stepMs) - place.time.X(0.0);
  if (!(pixels > 0.0)) return;
  painter.save();
  painter.setClipRect(place.pane, Qt::IntersectClip);
  if (pixels * perPixel < 0.75) {
    DrawColumns(painter, place, span, track, perPixel);
  } else {
    DrawPoints(painter, place, span, track, pixels >= kDotPixels ? dotRadius : 0.0);
  }
  painter.restore();
}

double LeastLevel(std::span<const double> levels, double high) {
  double least = high;
  for (const double level : levels) {
    if (InUse(level, kNoFloor)) least = std::min(least, level);
  }
  return least;
}

}  // namespace

double ColumnsPerPixel(const QPainter& painter) {
  const double device = painter.device() == nullptr ? 1.0 : painter.device()->devicePixelRatioF();
  return std::clamp(painter.transform().m11() * device, 1.0, 4.0);
}

AxisSpan IntensitySpan(const IntensityResult& intensity, const QRectF& pane) {
  double low = intensity.IntensityMin;
  const double high = intensity.IntensityMax;
  if (!intensity.IntensityValid || !std::isfinite(high)) return ValueSpan(pane, 0.0, 1.0);
  // A silent frame has a level of minus infinity: the least of the others counts.
  if (!std::isfinite(low)) low = LeastLevel(intensity.IntensityTrack.levels(), high);
  const double margin = std::max((high - low) * 0.05, 1.0);
  return ValueSpan(pane, low - margin, high + margin);
}

AxisSpan DisplayedPitch(const PitchSettings& settings, const QRectF& pane) {
  const double low = std::min(settings.displayLowHz, settings.displayHighHz);
  const double high = std::max(settings.displayLowHz, settings.displayHighHz);
  return ValueSpan(pane, low, high > low ? high : low + 1.0);
}

void DrawIntensity(QPainter& painter, const StripPlace& place, const AxisSpan& levels,
                   const CChannel& channel, const PaintStyle& style) {
  const IntensityResult& intensity = channel.intensity;
  if (!intensity.IntensityValid) return;
  const double msPerSample = channel.msPerSample();
  const LevelTrack& track = intensity.IntensityTrack;
  QPen pen(style.intensity, style.curve);
  if (!style.hasColor) pen.setStyle(Qt::DashLine);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  DrawTrack(painter, place, levels,
            {track.levels(), intensity.range.start * msPerSample, track.stepSamples() * msPerSample,
             kNoFloor, true},
            0.0);
}

void DrawPitch(QPainter& painter, const StripPlace& place, const AxisSpan& hertz,
               const PitchResult& pitch, double msPerSample, const PaintStyle& style) {
  const std::int64_t count = pitch.count();
  if (count <= 0) return;
  painter.setPen(QPen(style.pitch, style.curve));
  painter.setBrush(style.pitch);
  const auto values = std::span(pitch.PitchTrack).first(static_cast<std::size_t>(count));
  const double stepMs = pitch.range.length() * msPerSample / static_cast<double>(count);
  DrawTrack(painter, place, hertz, {values, pitch.range.start * msPerSample, stepMs, 0.0},
            style.dotRadius);
}

}  // namespace cantorix
