// empty_panes.h - what stands in the working view's window where it has nothing to draw: what to do
// about it. Not part of the picture, so that it is never printed.
#pragma once

#include <QPainter>
#include <string>

#include "desktop/paint/words.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

inline constexpr const char* kNoPitchNote = Marked("No pitch yet. Pitch All (Ctrl+L) computes it.");

// "No voiced stretch between 50 and 500 Hz found. Options…" of a track without a voiced entry;
// else empty.
std::string UnvoicedNote(const CSonadexView& view);

// In the pane of pitch, and above the panes while labels are to be entered without a tier in use.
void DrawEmptyPanes(QPainter& painter, const CSonadexView& view, const PaintStyle& style);

}  // namespace cantorix
