// zoom.h - the zoom commands as changes of a channel's visible stretch.
#pragma once

#include "document/channel.h"

namespace cantorix {

enum class Zoom { kUnZoom, kIn, kOut, kSelection, kFromCursor, kHome };

// Applies a zoom; `rangeMs` is the "Range to zoom from cursor ( ms )". The stretch before it
// becomes the previous one except for kUnZoom.
void ApplyZoom(CChannel& channel, Zoom zoom, double rangeMs);

// Shows `rangeMs` around a time, clamped to the recording.
void ZoomToTime(CChannel& channel, double ms, double rangeMs);

}  // namespace cantorix
