// signal_strips.cpp - the vertical axes of the strips. What is drawn over them is in
// waveform_strip.cpp and track_strips.cpp.
#include "desktop/paint/signal_strips.h"

#include <algorithm>
#include <cmath>

#include "desktop/paint/picture_axis.h"
#include "settings/settings.h"

namespace cantorix {

double ColumnsPerPixel(const QPainter& painter) {
  const double device = painter.device() == nullptr ? 1.0 : painter.device()->devicePixelRatioF();
  return std::clamp(painter.transform().m11() * device, 1.0, 4.0);
}

AxisSpan IntensitySpan(const IntensityResult& intensity, const QRectF& pane) {
  double low = intensity.IntensityMin;
  const double high = intensity.IntensityMax;
  if (!intensity.IntensityValid || !std::isfinite(high)) return ValueSpan(pane, 0.0, 1.0);
  // A silent frame has a level of minus infinity: the least of the others counts.
  if (!std::isfinite(low)) low = intensity.IntensityTrack.Summary().least();
  const double margin = std::max((high - low) * 0.05, 1.0);
  return ValueSpan(pane, low - margin, high + margin);
}

AxisSpan DisplayedPitch(const PitchSettings& settings, const QRectF& pane) {
  const double low = std::min(settings.displayLowHz, settings.displayHighHz);
  const double high = std::max(settings.displayLowHz, settings.displayHighHz);
  return ValueSpan(pane, low, high > low ? high : low + 1.0);
}

}  // namespace cantorix
