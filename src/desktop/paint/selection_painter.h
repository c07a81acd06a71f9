// selection_painter.h - start, length and end written over a selection.
#pragma once

#include <QPainter>
#include <QRectF>

#include "desktop/paint/paint_style.h"
#include "mainview/selection_edges.h"

namespace cantorix {

// In one line near the top of `band`, the part of the selection that is visible; `area` is where a
// text may reach. The length stands in the middle where it fits; start and end inside their edges
// where there is room beside the length, else outside of them.
void DrawSelectionTexts(QPainter& painter, const QRectF& band, const QRectF& area,
                        const SelectionTexts& texts, const PaintStyle& style);

}  // namespace cantorix
