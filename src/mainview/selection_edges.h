// selection_edges.h - the edges of the selection under the pointer, and what is written over it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "mainview/sonadex_view.h"

namespace cantorix {

inline constexpr std::int32_t kEdgePixels = 4;  // to both sides of an edge

// The edge within reach of a client pixel, of two the nearer one; nothing without a selection, on
// the time axis and below, and in label entry mode above the panes, where labels are taken hold of.
std::optional<SelectionEdge> EdgeUnder(CSonadexView& view, std::int32_t x, std::int32_t y);

// Takes hold of an edge: the other one becomes the cursor, from which a drag goes on. Throws
// FileError, with nothing changed.
void HoldEdge(CSonadexView& view, SelectionEdge edge);
// The edge nearer to a time.
SelectionEdge NearerEdge(const CSonadexView& view, double ms);

// "713.0", "1036.4 ms (0.96 Hz)", "1749.4"; in seconds (time base 1) with three decimals. A
// selection of length 0 has no rate.
struct SelectionTexts {
  std::string start, length, end;
};
SelectionTexts TextsOfSelection(double startMs, double endMs, std::int32_t timeBase);

}  // namespace cantorix
