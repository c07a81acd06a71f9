// time_axis.h - where a pixel column is in the recording and back, the cursor, the drag point and
// the selection of a channel. Plain functions of the channel's fields; no view, no drawing.
// Pixel columns count from the left edge of the time axis, whose width is given in pixels.
#pragma once

#include <cstdint>

#include "document/document.h"
#include "mainview/axis_scale.h"

namespace cantorix {

inline constexpr std::int32_t kLeftMargin = 40;  // pixels
inline constexpr std::int32_t kRightMargin = 5;
inline constexpr std::int32_t kClickPixels = 5;  // a movement of up to this many is still a click

// A time of cursor or selection, which edits may have left beyond the end: at most the duration.
double InsideRecordingMs(const CChannel& channel, double ms);

// The point under a pixel column, clamped to the recording. The visible start while the axis has no
// width.
TimePoint PixelToTime(const CChannel& channel, std::int32_t width, double pixel);
// The pixel column of a time, not clamped; 0 when the visible stretch is empty. Recomputes the
// visible stretch's ms first.
double TimeToPixel(CChannel& channel, std::int32_t width, double ms);
// The same line with the margin added, for drawing: client pixels. Recomputes the ms, too.
AxisScale TimeAxisOf(CChannel& channel, std::int32_t width);

// Puts the cursor at a point or a time of the recording, takes the sample there (0 at the end) less
// the reference level as its value, and collapses the selection onto it. Throws FileError, with
// nothing changed, when the disk store cannot be read.
void SetCursorAtPoint(CSonadexDoc& document, const TimePoint& point);
void SetCursorAtTime(CSonadexDoc& document, double ms);

// Makes the selection [start, end].
void SelectBetween(CChannel& channel, const TimePoint& start, const TimePoint& end);
// Makes the selection the ordered span of cursor and drag point.
void UpdateSelection(CChannel& channel);
// The selection becomes empty at 0; the cursor stays.
void ClearSelection(CChannel& channel);

}  // namespace cantorix
