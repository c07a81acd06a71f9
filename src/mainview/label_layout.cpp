// label_layout.cpp
#include "mainview/label_layout.h"

#include <algorithm>

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

std::int32_t PixelOf(CSonadexView& view, double ms) {
  const double pixel = TimeToPixel(view.channel(), ms);
  return TruncateToInt32(std::clamp(pixel, -kFarPixels, kFarPixels)) + kLeftMargin;
}

bool IsVisible(const CChannel& channel, double ms) {
  return channel.visibleStart.ms <= ms && ms <= channel.visibleEnd.ms;
}

std::int32_t LeftOf(const Label& label, std::int32_t pixel, std::int32_t width) {
  if (label.alignment == kAlignCentre) return pixel - width / 2;
  return label.alignment == kAlignRight ? pixel - width : pixel;
}

}  // namespace

PixelRect LabelRectangle(CSonadexView& view, const Tier& tier, const Label& label) {
  const PixelSize text = view.services().textMeasurer.Measure(label.font, label.text);
  const std::int32_t width = std::max(text.width, kLeastWidth);
  const std::int32_t height = tier.rect.bottom - tier.rect.top;

  std::int32_t left = LeftOf(label, PixelOf(view, label.timeMs), width);
  if (IsVisible(view.channel(), label.timeMs)) {
    left = MovedInside(left, width, tier.rect.left, tier.rect.right);
  }
  const double position = std::clamp(label.verticalPosition, 0.0, 1.0);
  const std::int32_t middle = tier.rect.top + TruncateToInt32(position * height);
  const std::int32_t top =
      MovedInside(middle - text.height / 2, text.height, tier.rect.top, tier.rect.bottom);
  return {left, top, left + width, std::min(top + text.height, tier.rect.bottom)};
}

bool Contains(const PixelRect& rect, std::int32_t x, std::int32_t y) {
  return rect.left <= x && x < rect.right && rect.top <= y && y < rect.bottom;
}

double VerticalPositionAt(const Tier& tier, std::int32_t y) {
  const std::int32_t height = tier.rect.bottom - tier.rect.top;
  if (height <= 0) return 0.0;
  return std::clamp(static_cast<double>(y - tier.rect.top) / height, 0.0, 1.0);
}

}  // namespace cantorix
