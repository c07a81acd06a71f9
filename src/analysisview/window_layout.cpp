// window_layout.cpp - the parts from the top down; what is left is the plot.
#include "analysisview/window_layout.h"

#include <algorithm>

namespace cantorix {
namespace {

constexpr std::int32_t kTopGap = 2;  // pixels
constexpr std::int32_t kStripGap = 4;
constexpr std::int32_t kBottomAxisHeight = 24;
constexpr std::int32_t kMostStripHeight = 110;

}  // namespace

AxisScale WindowLayout::HorizontalAxis(double low, double high) const {
  return {low, high, static_cast<double>(plot.left), static_cast<double>(plot.right - plot.left)};
}

WindowLayout LayOutWindow(PixelSize client, const WindowParts& parts) {
  const std::int32_t right = std::max(client.width - kPlotRight, kPlotLeft);
  const std::int32_t below = kBottomAxisHeight + parts.readoutLines * kReadoutLineHeight;
  const std::int32_t available = std::max(client.height - below - kTopGap - kUnitHeight, 0);
  const std::int32_t strips = (parts.audio ? 1 : 0) + (parts.intensity ? 1 : 0);
  const std::int32_t labels = std::min(parts.labelsHeight, available / 4);
  const std::int32_t stripHeight =
      strips > 0 ? std::min((available * 2 / 5 - labels) / strips, kMostStripHeight) : 0;

  WindowLayout layout;
  layout.client = client;
  std::int32_t top = kTopGap;
  const auto next = [&](std::int32_t height, std::int32_t gap) {
    const PixelRect rect{kPlotLeft, top, right, top + std::max(height, 0)};
    top = rect.bottom + gap;
    return rect;
  };
  if (labels > 0) layout.labels = next(labels, kStripGap);
  if (parts.audio) layout.audio = next(stripHeight, kStripGap);
  if (parts.intensity) layout.intensity = next(stripHeight, kStripGap);
  top += kUnitHeight;
  layout.plot = next(client.height - below - top, 0);
  layout.bottomAxis = {0, client.height - below, client.width,
                       client.height - below + kBottomAxisHeight};
  layout.readouts = {0, layout.bottomAxis.bottom, client.width, client.height};
  return layout;
}

}  // namespace cantorix
