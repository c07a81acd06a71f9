// wheel_zoom.h - zooming with the wheel: the time under the pointer stays under it.
#pragma once

#include <cstdint>

#include "mainview/sonadex_view.h"

namespace cantorix {

// Stops playback and zooms around the client pixel column `x` by `steps` turns: each forward one
// (positive) halves the visible stretch, each backward one doubles it, within the recording. It
// stays at least kShortestZoomSamples long. The stretch before becomes the previous one.
void ZoomViewAround(CSonadexView& view, std::int32_t x, int steps);

inline constexpr double kShortestZoomSamples = 8.0;

}  // namespace cantorix
