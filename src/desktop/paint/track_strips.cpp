// track_strips.cpp - pitch and intensity: lines through their entries, and where these are denser
// than the picture's columns what is typical of each column.
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "desktop/paint/picture_axis.h"
#include "desktop/paint/signal_strips.h"
#include "mainview/track_columns.h"

namespace cantorix {
namespace {

constexpr double kNoFloor = -std::numeric_limits<double>::infinity();
constexpr qsizetype kRunPoints = 64;    // short paths are stroked faster than a long one
constexpr double kDotPixels = 8.0;      // entries at least this far apart have dots
constexpr double kLoneDotRadius = 1.5;  // pixels, as all below
constexpr double kPitchWidth = 2.0;
constexpr double kRim = 1.0;           // on both sides of a pitch line over a spectrogram
constexpr double kMostJump = 1.2;      // ratio of neighbours that one line joins
constexpr double kPitchDensity = 3.0;  // entries per pixel from which columns are drawn
constexpr double kLevelDensity = 1.0;
constexpr double kPitchBand = 0.25;  // opacity
constexpr double kLevelBand = 0.18;
constexpr double kDash = 6.0;
constexpr double kDashAndGap = 9.0;

// An evenly spaced track over a pane: entry i at firstMs + i * stepMs, of use above `floor`.
struct Track {
  std::span<const double> values;
  double firstMs, stepMs, floor;
};

using Runs = std::vector<QPolygonF>;

// A column of a dense track.
struct Column {
  double x;                        // of its left edge
  double low, middle, high, most;  // pixels
  double value;                    // of the middle
  bool follows;                    // the column on its left has values, too
};

double PixelsPerEntry(const StripPlace& place, const Track& track) {
  return place.time.X(track.stepMs) - place.time.X(0.0);
}

// One y for the whole of a device pixel, so that a level line covers its full width there.
double OnRow(double y, double perPixel) { return std::round(y * perPixel) / perPixel; }

bool AreJoined(double a, double b) { return std::max(a, b) < kMostJump * std::min(a, b); }

std::vector<Column> ColumnsOf(const StripPlace& place, const AxisSpan& span, const Track& track,
                              const TrackSummary& summary, double perPixel) {
  const TrackPlace entries{(place.time.X(track.firstMs) - place.pane.left()) * perPixel,
                           PixelsPerEntry(place, track) * perPixel};
  const auto count = static_cast<std::size_t>(std::ceil(place.pane.width() * perPixel));
  const auto spreads = TrackColumns(summary, entries, count);
  const auto y = [&](double value) { return OnRow(YOf(place.pane, span, value), perPixel); };
  std::vector<Column> columns;
  columns.reserve(count);
  for (std::size_t c = 0; c < count; ++c) {
    const TrackSpread& spread = spreads[c];
    if (spread.count == 0) continue;
    columns.push_back({place.pane.left() + static_cast<double>(c) / perPixel, y(spread.low),
                       y(spread.middle), y(spread.high), y(spread.most), spread.middle,
                       c > 0 && spreads[c - 1].count > 0});
  }
  return columns;
}

// One by one, which is many times faster than all at once.
void FillColumns(QPainter& painter, const std::vector<QRectF>& bars, const QColor& color) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const QRectF& bar : bars) painter.fillRect(bar, color);
}

// As lines, which are many times faster than translucent areas.
void FillBand(QPainter& painter, const std::vector<Column>& columns, double perPixel, QColor color,
              double opacity) {
  std::vector<QLineF> bars;
  bars.reserve(columns.size());
  for (const Column& column : columns) {
    const double x = column.x + 0.5 / perPixel;
    bars.emplace_back(x, column.high, x, column.low);
  }
  color.setAlphaF(static_cast<float>(opacity));
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(color, 1.0 / perPixel, Qt::SolidLine, Qt::FlatCap));
  painter.drawLines(bars.data(), static_cast<int>(bars.size()));
}

// A line along one of the columns' values.
struct Trace {
  double Column::*y;
  double width;        // pixels
  double reach = 0.0;  // of each column to both sides
};

// Columns of lines that are joined where `joined` says so.
template <typename Joined>
std::vector<QRectF> BarsOf(const std::vector<Column>& columns, double perPixel, const Trace& trace,
                           const Joined& joined) {
  std::vector<QRectF> bars;
  bars.reserve(columns.size());
  const double half = std::max(std::round(trace.width * perPixel), 1.0) / perPixel / 2.0;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = columns[i];
    double top = column.*trace.y;
    double bottom = top;
    if (column.follows && joined(column, columns[i - 1])) {
      top = std::min(top, columns[i - 1].*trace.y);
      bottom = std::max(bottom, columns[i - 1].*trace.y);
    }
    bars.emplace_back(column.x - trace.reach, top - half, 1.0 / perPixel + 2.0 * trace.reach,
                      bottom - top + 2.0 * half);
  }
  return bars;
}

void FillMedians(QPainter& painter, const std::vector<Column>& columns, double perPixel,
                 double more, const QColor& color) {
  FillColumns(painter,
              BarsOf(columns, perPixel, {&Column::middle, kPitchWidth + 2.0 * more, more},
                     [](const Column& a, const Column& b) { return AreJoined(a.value, b.value); }),
              color);
}

// The entries that lie in the pane, as far as they belong together.
template <typename Joined>
Runs RunsOf(const StripPlace& place, const AxisSpan& span, const Track& track, double perPixel,
            const Joined& joined) {
  const TrackPlace points{place.time.X(track.firstMs), PixelsPerEntry(place, track)};
  const EntryRange range =
      EntriesAround(track.values.size(), points, place.pane.left(), place.pane.right());
  Runs runs;
  bool goesOn = false;
  for (std::size_t i = range.first; i < range.last; ++i) {
    const double value = track.values[i];
    const bool isUsed = value > track.floor && std::isfinite(value);
    if (isUsed) {
      if (!goesOn || !joined(track.values[i - 1], value)) runs.emplace_back();
      runs.back() << QPointF(points.X(static_cast<double>(i)),
                             OnRow(YOf(place.pane, span, value), perPixel));
    }
    goesOn = isUsed;
  }
  return runs;
}

void DrawRun(QPainter& painter, const QPolygonF& run) {
  for (qsizetype first = 0; first + 1 < run.size(); first += kRunPoints - 1) {
    const qsizetype count = std::min(kRunPoints, run.size() - first);
    painter.drawPolyline(run.constData() + first, static_cast<int>(count));
  }
}

// Lines, and dots of `radius` where an entry stands alone; where `dots`, at all entries.
void DrawPitchRuns(QPainter& painter, const Runs& runs, const QColor& color, double more,
                   double dotRadius) {
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setBrush(color);
  for (const QPolygonF& run : runs) {
    painter.setPen(QPen(color, kPitchWidth + 2.0 * more));
    DrawRun(painter, run);
    const double radius = run.size() == 1 ? kLoneDotRadius : dotRadius;
    if (radius == 0.0) continue;
    painter.setPen(Qt::NoPen);
    for (const QPointF& point : run) painter.drawEllipse(point, radius + more, radius + more);
  }
}

QPen Dashed(const QColor& color, double width) {
  QPen pen(color, width, Qt::CustomDashLine, Qt::FlatCap);
  pen.setDashPattern({kDash / width, (kDashAndGap - kDash) / width});
  return pen;
}

// The dashes run on from one part of a line to the next.
void DrawDashed(QPainter& painter, const QPolygonF& run, QPen pen) {
  double done = 0.0;
  for (qsizetype first = 0; first + 1 < run.size(); first += kRunPoints - 1) {
    const qsizetype count = std::min(kRunPoints, run.size() - first);
    pen.setDashOffset(std::fmod(done, kDashAndGap) / pen.widthF());
    painter.setPen(pen);
    painter.drawPolyline(run.constData() + first, static_cast<int>(count));
    for (qsizetype i = first + 1; i < first + count; ++i)
      done += QLineF(run[i - 1], run[i]).length();
  }
}

// The upper edge of a dense track, dashed by columns, over a light band: what lies below stays in
// sight.
void DrawUpperEdge(QPainter& painter, const std::vector<Column>& columns, double perPixel,
                   const QPen& pen) {
  FillBand(painter, columns, perPixel, pen.color(), kLevelBand);
  auto bars = BarsOf(columns, perPixel, {&Column::most, pen.widthF()},
                     [](const Column&, const Column&) { return true; });
  std::erase_if(bars, [](const QRectF& bar) { return std::fmod(bar.x(), kDashAndGap) >= kDash; });
  FillColumns(painter, bars, pen.color());
}

}  // namespace

void DrawIntensity(QPainter& painter, const StripPlace& place, const AxisSpan& levels,
                   const CChannel& channel, const PaintStyle& style) {
  const IntensityResult& intensity = channel.intensity;
  if (!intensity.IntensityValid) return;
  const double msPerSample = channel.msPerSample();
  const LevelTrack& levelTrack = intensity.IntensityTrack;
  const Track track{levelTrack.levels(), intensity.range.start * msPerSample,
                    levelTrack.stepSamples() * msPerSample, kNoFloor};
  const double pixels = PixelsPerEntry(place, track);
  if (!(pixels > 0.0)) return;
  const double perPixel = ColumnsPerPixel(painter);
  const QPen pen = Dashed(style.intensity, style.curve);
  painter.save();
  painter.setClipRect(place.pane, Qt::IntersectClip);
  painter.setBrush(Qt::NoBrush);
  if (pixels * kLevelDensity < 1.0) {
    DrawUpperEdge(painter, ColumnsOf(place, levels, track, levelTrack.Summary(), perPixel),
                  perPixel, pen);
  } else {
    painter.setRenderHint(QPainter::Antialiasing, true);
    const auto all = [](double, double) { return true; };
    for (const QPolygonF& run : RunsOf(place, levels, track, perPixel, all)) {
      DrawDashed(painter, run, pen);
    }
  }
  painter.restore();
}

void DrawPitch(QPainter& painter, const StripPlace& place, const AxisSpan& hertz,
               const PitchResult& pitch, double msPerSample, const PaintStyle& style,
               const std::optional<QColor>& rim) {
  const std::int64_t count = pitch.count();
  if (count <= 0) return;
  const double stepMs = pitch.range.length() * msPerSample / static_cast<double>(count);
  const Track track{pitch.entries(), pitch.range.start * msPerSample, stepMs, 0.0};
  const double pixels = PixelsPerEntry(place, track);
  if (!(pixels > 0.0)) return;
  const double perPixel = ColumnsPerPixel(painter);
  painter.save();
  painter.setClipRect(place.pane, Qt::IntersectClip);
  if (pixels * kPitchDensity <= 1.0) {
    const auto columns = ColumnsOf(place, hertz, track, pitch.Summary(), perPixel);
    FillBand(painter, columns, perPixel, style.pitch, kPitchBand);
    if (rim) FillMedians(painter, columns, perPixel, kRim, *rim);
    FillMedians(painter, columns, perPixel, 0.0, style.pitch);
  } else {
    const Runs runs = RunsOf(place, hertz, track, perPixel, AreJoined);
    const double dots = pixels >= kDotPixels ? style.dotRadius : 0.0;
    if (rim) DrawPitchRuns(painter, runs, *rim, kRim, dots);
    DrawPitchRuns(painter, runs, style.pitch, 0.0, dots);
  }
  painter.restore();
}

}  // namespace cantorix
