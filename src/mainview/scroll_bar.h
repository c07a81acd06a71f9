// scroll_bar.h - the two scroll bars of the main view, as arithmetic.
// The horizontal one spans 0 to 30000 whatever the recording's length; its page says how much of
// the recording is visible.
#pragma once

#include <cstdint>

#include "document/channel.h"

namespace cantorix {

inline constexpr std::int32_t kScrollRange = 30000;
inline constexpr std::int32_t kUnzoomedPage = 30001;

struct ScrollBar {
  std::int32_t position = 0;
  std::int32_t page = kUnzoomedPage;
  std::int32_t range = kScrollRange;
};

enum class ScrollRequest {
  kLineBack,     // left or up
  kLineForward,  // right or down
  kPageBack,
  kPageForward,
  kTrack,  // to a given position, while the thumb is dragged
  kThumbReleased,
  kEnd,
};

// The bar after a zoom: position and page of the visible stretch. The page is kUnzoomedPage when
// the stretch covers the whole recording, and at least that for every stretch as long as it.
ScrollBar HorizontalBarOf(const CChannel& channel);

// Whether the bar belongs to a stretch shorter than the recording.
inline bool IsZoomed(const ScrollBar& bar) { return bar.page <= kScrollRange; }

// The bar after a request; `trackPosition` counts for kTrack only. Positions stay in
// 0 ... range - page + 1.
ScrollBar ScrolledHorizontally(const ScrollBar& bar, ScrollRequest request,
                               std::int32_t trackPosition);

// The visible stretch that a position of the bar shows; not clamped to the recording. With a page
// of 0 the visible length stays.
void ShowScrolled(CChannel& channel, const ScrollBar& bar);

struct VerticalScroll {
  ScrollBar bar;
  std::int32_t offset = 0;  // pixels, <= 0
};

VerticalScroll ScrolledVertically(const VerticalScroll& scroll, ScrollRequest request,
                                  std::int32_t trackPosition);

// The vertical bar after a resize, for a laid-out height in a client area of `clientHeight`.
VerticalScroll FittedVertically(const VerticalScroll& scroll, std::int32_t laidOutHeight,
                                std::int32_t clientHeight);

}  // namespace cantorix
