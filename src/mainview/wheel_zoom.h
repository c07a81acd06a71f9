// wheel_zoom.h - zooming with the wheel: the time under the pointer stays under it.
#pragma once

#include <cstdint>

#include "analysis/sample_range.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

// Stops playback and zooms around the client pixel column `x` by `steps` turns: each forward one
// (positive) halves the visible stretch, each backward one doubles it, within the recording. It
// stays at least kShortestZoomSamples long. The stretch before becomes the previous one.
void ZoomViewAround(CSonadexView& view, std::int32_t x, int steps);

// The same around a place of the recording, in samples.
void ZoomViewAroundSample(CSonadexView& view, double pointer, int steps);
// A stretch of a recording of `total` samples after such turns.
struct ZoomedStretch {
  double start = 0.0;  // samples
  double length = 0.0;
};
ZoomedStretch ZoomedAround(const SampleRange& range, double total, double pointer, int steps);

inline constexpr double kShortestZoomSamples = 8.0;

}  // namespace cantorix
