// label_snap.h - where a dragged label comes to rest: at what another tier or the user has marked.
#pragma once

#include <optional>

#include "mainview/sonadex_view.h"

namespace cantorix {

inline constexpr double kSnapPixels = 5.0;

// The nearest of these within kSnapPixels of a time (ms): labels of other tiers in use, and cursor
// and edges of the selection as they were before the press.
std::optional<double> SnapTime(CSonadexView& view, int tier, double ms);

}  // namespace cantorix
