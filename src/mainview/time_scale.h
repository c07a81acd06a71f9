// time_scale.h - the time axis of a picture: a stretch in ms over a width in pixels. The same
// straight line as the main view's own axis, as a value that any picture can hold.
#pragma once

#include "mainview/axis_ticks.h"

namespace cantorix {

struct TimeScale {
  double startMs = 0.0;
  double endMs = 0.0;
  double left = 0.0;   // pixels
  double width = 0.0;  // pixels

  double right() const { return left + width; }
  // The pixel of a time, not clamped; the left edge while the stretch is empty.
  double X(double ms) const {
    return endMs > startMs ? left + width / (endMs - startMs) * (ms - startMs) : left;
  }
  // The time under a pixel, not clamped.
  double Ms(double x) const {
    return width > 0.0 ? startMs + (endMs - startMs) / width * (x - left) : startMs;
  }
  AxisSpan Span() const { return {startMs, endMs, width}; }
};

}  // namespace cantorix
