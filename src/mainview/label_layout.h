// label_layout.h - where a label is drawn, and what is under the pointer in a tier.
#pragma once

#include <cstdint>

#include "mainview/axis_scale.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

// The box that a label's text is drawn in, in client pixels. It begins at the label's time, has its
// middle there or ends there, as the label is justified; its middle is at the label's vertical
// position, 0 being the tier's top and 1 its bottom. It is moved into the tier, sideways only while
// its time is visible: the text of a label outside the visible stretch stays outside. A label
// without text keeps a box of a few pixels, so that it can be taken hold of.
PixelRect LabelRectangle(CSonadexView& view, int tier, const Label& label);

// The same in any strip over any time axis (ms), for a text that takes a box of `text`.
PixelRect LabelBox(const Label& label, PixelSize text, const PixelRect& strip,
                   const AxisScale& time);

// Whether a point lies in a rectangle; right and bottom edge are outside.
bool Contains(const PixelRect& rect, std::int32_t x, std::int32_t y);

// The vertical position of a pixel row in a tier's strip: 0 at its top, 1 at its bottom and beyond.
double VerticalPositionAt(const PixelRect& strip, std::int32_t y);

}  // namespace cantorix
