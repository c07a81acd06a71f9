// axis_scale.h - a horizontal axis of a picture: a stretch of time or frequency over a width in
// pixels. For times it is the same straight line as the main view's own axis, as a value that any
// picture can hold.
#pragma once

#include "mainview/axis_ticks.h"

namespace cantorix {

struct AxisScale {
  double low = 0.0;  // at the left edge
  double high = 0.0;
  double left = 0.0;   // pixels
  double width = 0.0;  // pixels

  double right() const { return left + width; }
  // The pixel of a value, not clamped; the left edge while the stretch is empty.
  double X(double value) const {
    return high > low ? left + width / (high - low) * (value - low) : left;
  }
  // The value under a pixel, not clamped.
  double ValueAt(double x) const {
    return width > 0.0 ? low + (high - low) / width * (x - left) : low;
  }
  AxisSpan Span() const { return {low, high, width}; }
};

}  // namespace cantorix
