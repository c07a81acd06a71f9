// main_view_painter.h - draws the working view: tiers, panes, time axis, cursor and selection,
// readouts. Relies on the view's layout, which is in client pixels with the origin at the top left;
// screen, paper and picture files go through the same functions.
#pragma once

#include <QPainter>

#include "desktop/paint/paint_style.h"
#include "mainview/sonadex_view.h"
#include "mainview/waveform_pyramid.h"

namespace cantorix {

// What the picture is made of. Nothing of it is changed but the visible stretch's ms, which are
// brought in step with its samples.
struct MainViewPicture {
  CSonadexView& view;               // laid out in the client area that is painted
  const WaveformPyramid& waveform;  // of the document's samples as they are now
};

// The whole picture: the three passes below, in their order. Throws FileError when the disk store
// cannot be read.
void PaintMainView(QPainter& painter, const MainViewPicture& picture, const PaintStyle& style);

// Panes, grids, axes and names.
void PaintMainViewBackground(QPainter& painter, const MainViewPicture& picture,
                             const PaintStyle& style);
// Waveform, contours and labels. Throws FileError.
void PaintMainViewData(QPainter& painter, const MainViewPicture& picture, const PaintStyle& style);
// Cursor, selection, a label that is dragged, readouts: what changes while the mouse moves.
void PaintMainViewOverlay(QPainter& painter, const MainViewPicture& picture,
                          const PaintStyle& style);

}  // namespace cantorix
