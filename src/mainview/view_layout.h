// view_layout.h - where the strips of the main view are: tiers on top, then the panes of waveform,
// intensity and pitch; the time axis and the strip of readouts stay at the bottom edge.
#pragma once

#include <array>
#include <cstdint>

#include "document/document.h"
#include "mainview/view_ports.h"

namespace cantorix {

inline constexpr std::int32_t kTimeAxisHeight = 26;  // pixels
inline constexpr std::int32_t kLeastPaneHeight = 60;
inline constexpr std::int32_t kReadoutStripHeight = 24;

// In client pixels. What is not drawn is empty.
struct ViewLayout {
  PixelSize client;
  std::array<PixelRect, kTierCount> tiers;
  PixelRect audio;      // as wide as the time axis, drawn or not
  PixelRect intensity;  // only when it has a pane of its own
  PixelRect pitch;
  PixelRect timeAxis;
  PixelRect readouts;
  std::int32_t laidOutHeight = 0;  // of everything, readouts included

  std::int32_t axisWidth() const { return audio.right - audio.left; }
  const PixelRect& tier(int index) const { return tiers[static_cast<std::size_t>(index)]; }
};

// Pixels, at least 1. A damaged file may ask for any height; these keep the sums far from
// overflowing.
std::int32_t TierHeight(const Tier& tier);

// Lays out the view of `document` in a client area, tiers and panes moved by `verticalOffset`
// (pixels, <= 0). The panes share what tiers, axis
// and readouts leave, by the percents of the display settings: scaled up to fill it, never below
// kLeastPaneHeight; percents above 100 together make the laid-out height exceed the client area.
ViewLayout LayOutView(const CSonadexDoc& document, PixelSize client, std::int32_t verticalOffset);

}  // namespace cantorix
