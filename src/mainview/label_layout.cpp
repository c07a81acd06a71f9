// label_layout.cpp - boxes of texts, and which of them holds a point.
#include "mainview/label_layout.h"

#include <algorithm>

#include "document/label.h"
#include "mainview/time_axis.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr std::int32_t kLeastWidth = 8;       // pixels, of the box of a short text
constexpr double kFarPixels = 100'000'000.0;  // beyond any window, safe to add widths to

// The start of an extent of `size` moved inside [first, end); at `first` when it is too long.
std::int32_t MovedInside(std::int32_t start, std::int32_t size, std::int32_t first,
                         std::int32_t end) {
  return std::max(std::min(start, end - size), first);
}

std::int32_t PixelOf(const AxisScale& time, double ms) {
  const double pixel = time.X(ms) - time.left;
  return TruncateToInt32(std::clamp(pixel, -kFarPixels, kFarPixels)) + TruncateToInt32(time.left);
}

std::int32_t LeftOf(const Label& label, std::int32_t pixel, std::int32_t width) {
  if (label.alignment == kAlignCentre) return pixel - width / 2;
  return label.alignment == kAlignRight ? pixel - width : pixel;
}

}  // namespace

PixelRect LabelRectangle(CSonadexView& view, int tier, const Label& label) {
  const PixelSize text = view.services().textMeasurer.Measure(label.font, label.text);
  return LabelBox(label, text, view.layout.tier(tier),
                  TimeAxisOf(view.channel(), view.layout.axisWidth()));
}

PixelRect LabelBox(const Label& label, PixelSize text, const PixelRect& strip,
                   const AxisScale& time) {
  const std::int32_t width = std::max(text.width, kLeastWidth);
  const std::int32_t height = strip.bottom - strip.top;

  std::int32_t left = LeftOf(label, PixelOf(time, label.timeMs), width);
  if (time.low <= label.timeMs && label.timeMs <= time.high) {
    left = MovedInside(left, width, strip.left, strip.right);
  }
  const double position = std::clamp(label.verticalPosition, 0.0, 1.0);
  const std::int32_t middle = strip.top + TruncateToInt32(position * height);
  const std::int32_t top =
      MovedInside(middle - text.height / 2, text.height, strip.top, strip.bottom);
  return {left, top, left + width, std::min(top + text.height, strip.bottom)};
}

bool Contains(const PixelRect& rect, std::int32_t x, std::int32_t y) {
  return rect.left <= x && x < rect.right && rect.top <= y && y < rect.bottom;
}

double VerticalPositionAt(const PixelRect& strip, std::int32_t y) {
  const std::int32_t height = strip.bottom - strip.top;
  if (height <= 0) return 0.0;
  return std::clamp(static_cast<double>(y - strip.top) / height, 0.0, 1.0);
}

}  // namespace cantorix
