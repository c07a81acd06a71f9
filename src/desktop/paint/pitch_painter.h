// pitch_painter.h - draws the pitch window: the track over the pitch window's own axes, with the
// strips and grids of the document's pitch options, cursor and selection.
#pragma once

#include <QPainter>
#include <optional>

#include "analysis/pitch.h"
#include "desktop/paint/paint_style.h"
#include "desktop/paint/window_strips.h"

namespace cantorix {

struct PitchPicture {
  const CSonadexDoc& document;
  const PitchResult& pitch;
  const WaveformPyramid* waveform;  // of the document; null without a strip of audio
  PixelSize client;
  double startMs = 0.0;  // the stretch that is shown
  double endMs = 0.0;
  std::optional<double> cursorMs;
  std::optional<AxisSelection> selection;  // ms
};

WindowLayout PitchLayout(const PitchPicture& picture);
AxisScale PitchTimes(const PitchPicture& picture);

// Throws FileError when the strip of audio cannot be read.
void PaintPitch(QPainter& painter, const PitchPicture& picture, const PaintStyle& style);

// The two parts of it: everything but cursor, selection and readouts, and those.
void PaintPitchData(QPainter& painter, const PitchPicture& picture, const PaintStyle& style);
void PaintPitchOverlay(QPainter& painter, const PitchPicture& picture, const PaintStyle& style);

}  // namespace cantorix
