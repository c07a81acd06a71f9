// paint_style.h - colours, fonts and line widths of all pictures, for a light and a dark palette.
// Values only; the painters beside it use them. Lengths are logical pixels, so a picture keeps its
// proportions on any screen and on paper.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <array>

#include "analysis/formant_selection.h"

namespace cantorix {

enum class PaletteKind { kLight, kDark };

struct PaintStyle {
  QColor background;  // around the panes
  QColor pane;        // behind the data
  QColor frame;       // edges of panes and strips
  QColor grid;
  QColor axis;   // ticks
  QColor text;   // on background and on pane
  QColor muted;  // of captions and units
  QColor waveform;
  QColor zeroLine;
  QColor intensity;
  QColor pitch;
  QColor cursor;
  QColor played;         // where a recording sounds now
  QColor pointed;        // where the pointer is, in all windows of a recording
  QColor selection;      // translucent, over the panes
  QColor selectionEdge;  // of the rubber band
  QColor tier;           // behind labels
  QColor labelLine;
  QColor error;  // around what is refused
  QColor spectrumFft;
  QColor spectrumLpc;
  std::array<QColor, kFormants> formants;  // F1 ... F5
  QColor readoutField;                     // behind a value of the readout strip
  QFont font;                              // of ticks, names and readouts
  bool onScreen = false;                   // its captions are in the user's language
  bool hasColor = true;                    // false: curves are told apart by their dashes
  double hairline = 1.0;
  double curve = 1.4;  // of contours and envelopes
  double dotRadius = 2.0;
};

PaintStyle StyleOf(PaletteKind kind);
// Of windows with this palette, which is dark when its windows are darker than their texts.
PaintStyle StyleFor(const QPalette& palette);
// Black on white, for prints that have no colour.
PaintStyle BlackOnWhite();

// Contrast ratio of two opaque colours, 1 ... 21 (relative luminance as in WCAG 2.1).
double ContrastRatio(const QColor& a, const QColor& b);
// The colour nearest to `wanted` with a contrast of at least `ratio` against `background`: a label
// keeps its hue and is still legible on a dark palette.
QColor Legible(const QColor& wanted, const QColor& background, double ratio = 4.5);

}  // namespace cantorix
