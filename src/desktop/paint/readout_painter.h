// readout_painter.h - the strip of readouts at the bottom of the main view.
// Texts and places are those of readout_texts.h; a place grows where the font needs more room.
#pragma once

#include <QPainter>
#include <QRectF>
#include <array>

#include "desktop/paint/paint_style.h"
#include "mainview/readout_texts.h"

namespace cantorix {

struct ReadoutBoxes {
  QRectF label, value;
};

// The boxes in `strip` for the widest texts that the readouts can show, so that they stand still
// while the numbers change; `font` becomes smaller when the strip is too short for all of them.
std::array<ReadoutBoxes, kReadoutCount> PlaceReadouts(
    const QRectF& strip, const std::array<ReadoutText, kReadoutCount>& texts, QFont& font);

void DrawReadouts(QPainter& painter, const QRectF& strip,
                  const std::array<ReadoutText, kReadoutCount>& texts, const PaintStyle& style);

}  // namespace cantorix
