// formant_marks.h - how a formant is marked in a picture of levels: its own colour and its own
// shape, so that colour is not needed to tell them apart, with a light and a dark ring, so that it
// stands out of every grey.
#pragma once

#include <QPainter>
#include <QPointF>
#include <array>
#include <vector>

#include "desktop/paint/paint_style.h"

namespace cantorix {

// Middles of the marks of F1 ... F5, in pixels.
using FormantPlaces = std::array<std::vector<QPointF>, kFormants>;

inline constexpr double kFormantMarkReach = 5.0;  // pixels from its middle, rings included

// Disc, square, triangle, diamond and ring, none of them hidden by the rings of another.
void DrawFormantMarks(QPainter& painter, const FormantPlaces& places, const PaintStyle& style);

// Points up from below the edge `top`, where a formant lies above what is shown.
void DrawFormantAbove(QPainter& painter, double x, double top, std::size_t formant,
                      const PaintStyle& style);

}  // namespace cantorix
