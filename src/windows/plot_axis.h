// plot_axis.h - one axis of a plot: which value stands at which pixel and back.
// Plain arithmetic; the pixel of the high end may be the smaller one, as on axes that go upward.
#pragma once

#include <algorithm>

namespace cantorix {

struct PlotAxis {
  double lowValue = 0.0;
  double highValue = 0.0;
  double lowPixel = 0.0;  // where lowValue stands
  double highPixel = 0.0;

  // Neither is clamped; an axis without an extent gives its low end.
  double ValueAt(double pixel) const {
    const double pixels = highPixel - lowPixel;
    return pixels == 0.0 ? lowValue
                         : (pixel - lowPixel) * (highValue - lowValue) / pixels + lowValue;
  }
  double PixelOf(double value) const {
    const double span = highValue - lowValue;
    return span == 0.0 ? lowPixel : (value - lowValue) * (highPixel - lowPixel) / span + lowPixel;
  }
  double Clamped(double value) const { return std::clamp(value, lowValue, highValue); }
  // Value of one pixel of the axis; 0 for an axis without an extent.
  double PerPixel() const {
    const double pixels = highPixel > lowPixel ? highPixel - lowPixel : lowPixel - highPixel;
    return pixels == 0.0 ? 0.0 : (highValue - lowValue) / pixels;
  }
};

}  // namespace cantorix
