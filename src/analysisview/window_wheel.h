// window_wheel.h - the wheel over a window with an axis of time: it turns the main view while the
// window follows it, and the window alone otherwise.
#pragma once

#include "analysisview/analysis_window.h"

namespace cantorix {

// By `steps` turns, each forward one positive. Scrolling goes back with a forward turn, by the main
// view's line or a tenth of the window's own stretch. Nothing without a picture, or while it is of
// the recording before an edit.
void ScrollByWheel(AnalysisWindow& window, int steps);
// Each forward turn halves the stretch around the time under the pointer, each backward one doubles
// it. `place`: 0 at the left edge of the plot, 1 at the right one.
void ZoomByWheel(AnalysisWindow& window, double place, int steps);

}  // namespace cantorix
