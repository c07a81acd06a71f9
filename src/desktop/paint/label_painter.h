// label_painter.h - tiers and their labels: strip, name, texts in their own fonts, lines.
// Places are those of label_layout.h, so that a press finds what is drawn.
#pragma once

#include <QPainter>
#include <QRectF>

#include "desktop/paint/paint_style.h"
#include "document/label.h"
#include "document/tier.h"
#include "mainview/axis_scale.h"
#include "mainview/view_ports.h"

namespace cantorix {

struct TierPlace {
  PixelRect strip;
  AxisScale time;           // ms
  double lineBottom = 0.0;  // the lines of labels reach down to here
};

// The strip with the tier's name in the margin on its left. The current one, into which labels are
// typed, has a bold name and an edge.
void DrawTierStrip(QPainter& painter, const Tier& tier, const PixelRect& strip, bool isCurrent,
                   const PaintStyle& style);
// A frame around the selected label.
void DrawLabelFrame(QPainter& painter, const Label& label, const TierPlace& place,
                    const PaintStyle& style);
// All labels but the one of index `without` (-1: none left out), each with a tick at its time. A
// label is drawn whole while its time is visible, but for an end that the next one would cover; of
// labels that stand at the same pixels only the first is drawn.
void DrawTierLabels(QPainter& painter, const Tier& tier, const TierPlace& place, int without,
                    const PaintStyle& style);
void DrawLabel(QPainter& painter, const Label& label, const TierPlace& place,
               const PaintStyle& style);

// Total height of the tiers in use, in pixels.
std::int32_t HeightOfTiers(const Tiers& tiers);

QRectF ToRectF(const PixelRect& rect);

}  // namespace cantorix
