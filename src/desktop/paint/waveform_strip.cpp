// waveform_strip.cpp - the waveform of a stretch.
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <vector>

#include "desktop/paint/picture_axis.h"
#include "desktop/paint/signal_strips.h"

namespace cantorix {
namespace {

constexpr double kSampleDotPixels = 8.0;  // samples at least this far apart have dots
constexpr double kLeastAmplitude = 10.0;  // sample units: silence is drawn as a line

struct Stretch {
  double start, end;  // samples, at the pane's edges
  double reference;
};

// Bars from the smallest to the largest sample of each column, drawn out to meet the next column,
// so that a steep slope has no gaps.
void DrawExtents(QPainter& painter, const QRectF& pane, const AxisSpan& amplitude,
                 const Stretch& stretch, const std::vector<SampleExtent>& extents) {
  const double perPixel = static_cast<double>(extents.size()) / pane.width();
  std::vector<QLineF> bars;
  bars.reserve(extents.size());
  const double half = 0.5 / perPixel;
  const auto y = [&](double sample) { return YOf(pane, amplitude, sample - stretch.reference); };
  for (std::size_t c = 0; c < extents.size(); ++c) {
    SampleExtent bar = extents[c];
    if (bar.empty()) continue;
    if (c > 0 && !extents[c - 1].empty()) {
      bar.high = std::max(bar.high, extents[c - 1].low);
      bar.low = std::min(bar.low, extents[c - 1].high);
    }
    const double x = pane.left() + (static_cast<double>(c) + 0.5) / perPixel;
    bars.emplace_back(x, y(bar.high) - half, x, y(bar.low) + half);
  }
  QPen pen = painter.pen();
  pen.setWidthF(1.0 / perPixel);
  pen.setCapStyle(Qt::FlatCap);
  painter.setPen(pen);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.drawLines(bars.data(), static_cast<int>(bars.size()));
}

void DrawSamples(QPainter& painter, const QRectF& pane, const AxisSpan& amplitude,
                 const Stretch& stretch, const SampleSource& samples) {
  const double pixels = pane.width() / (stretch.end - stretch.start);
  const auto length = static_cast<double>(samples.length());
  const double first = std::clamp(std::floor(stretch.start), 0.0, length);
  const double last = std::clamp(std::ceil(stretch.end) + 1.0, first, length);
  std::vector<std::int16_t> scratch;
  const auto view = samples.View(static_cast<std::int64_t>(first),
                                 static_cast<std::int64_t>(last - first), scratch);
  QPolygonF line;
  line.reserve(static_cast<qsizetype>(view.size()));
  double at = first;
  for (const std::int16_t sample : view) {
    line << QPointF(pane.left() + (at - stretch.start) * pixels,
                    YOf(pane, amplitude, sample - stretch.reference));
    at += 1.0;
  }
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.drawPolyline(line);
  if (pixels < kSampleDotPixels) return;
  painter.setBrush(painter.pen().color());
  for (const QPointF& point : line) painter.drawEllipse(point, 1.8, 1.8);
}

}  // namespace

AxisSpan AmplitudeSpan(const CChannel& channel, const WaveformPyramid& waveform,
                       const QRectF& pane) {
  const SampleExtent whole = waveform.Whole();
  double most = kLeastAmplitude;
  if (!whole.empty()) {
    const double reference = channel.referenceLevel;
    most = std::max({most, std::abs(whole.low - reference), std::abs(whole.high - reference)});
  }
  if (!std::isfinite(most)) most = 32768.0;
  return ValueSpan(pane, -1.05 * most, 1.05 * most);
}

void DrawWaveform(QPainter& painter, const StripPlace& place, const AxisSpan& amplitude,
                  const CSonadexDoc& document, const WaveformPyramid& waveform,
                  const PaintStyle& style) {
  const double msPerSample = document.channel().msPerSample();
  const QRectF& pane = place.pane;
  if (!document.loaded || !(msPerSample > 0.0) || pane.width() < 1.0) return;
  const Stretch stretch{place.time.ValueAt(pane.left()) / msPerSample,
                        place.time.ValueAt(pane.right()) / msPerSample,
                        document.channel().referenceLevel};
  if (!(stretch.end > stretch.start)) return;
  painter.save();
  painter.setClipRect(pane, Qt::IntersectClip);
  painter.setPen(QPen(style.waveform, style.hairline));
  if (stretch.end - stretch.start < pane.width()) {
    DrawSamples(painter, pane, amplitude, stretch, document.Samples());
  } else {
    const double perPixel = ColumnsPerPixel(painter);
    std::vector<SampleExtent> extents(static_cast<std::size_t>(std::ceil(pane.width() * perPixel)));
    waveform.Extents(document.Samples(), stretch.start, stretch.end, extents);
    DrawExtents(painter, pane, amplitude, stretch, extents);
  }
  painter.restore();
}

}  // namespace cantorix
