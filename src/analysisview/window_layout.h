// window_layout.h - where the parts of an analysis window's picture are: optional strips of labels,
// waveform and intensity, then the plot with its axis below, and the lines of readouts at the
// bottom edge. The window that shows a picture asks here what is under its pointer.
#pragma once

#include <cstdint>

#include "mainview/axis_scale.h"
#include "mainview/time_axis.h"
#include "mainview/view_ports.h"

namespace cantorix {

// As in the main view, so that one time stands at one place in windows of one width.
inline constexpr std::int32_t kPlotLeft = kLeftMargin;  // with the texts of the vertical axis
inline constexpr std::int32_t kPlotRight = kRightMargin;
inline constexpr std::int32_t kUnitHeight = 14;  // above the plot, for the unit of that axis
inline constexpr std::int32_t kReadoutLineHeight = 18;
inline constexpr std::int32_t kOneLineWidth = 900;  // of a window whose readouts fit into one line

// What stands beside the plot.
struct WindowParts {
  std::int32_t labelsHeight = 0;  // pixels, of the tiers in use; 0: no labels
  bool audio = false;
  bool intensity = false;
  std::int32_t readoutLines = 1;
};

// In client pixels; right and bottom are just outside. A part that is not there is empty.
struct WindowLayout {
  PixelSize client;
  PixelRect labels, audio, intensity, plot, bottomAxis, readouts;

  // The axis below the plot, `low` at its left edge.
  AxisScale HorizontalAxis(double low, double high) const;
};

// The strips share at most two fifths of the height, so that the plot stays the largest part.
WindowLayout LayOutWindow(PixelSize client, const WindowParts& parts);

}  // namespace cantorix
