// spectrogram_image.h - the picture of a spectrogram's levels, one pixel per level. Made anew when
// the levels, the dynamic range or the colours change, and from nothing but the levels.
#pragma once

#include <QImage>

#include "analysis/spectrogram.h"
#include "analysisview/color_map.h"

namespace cantorix {

// columns x rows pixels, 0 Hz at the bottom; null without levels. `dynamicRangeDb` is that of the
// analysis: 0 dB is the map's first colour and this level its last.
QImage SpectrogramImage(const Spectrogram& spectrogram, double dynamicRangeDb, ColorMap map);

}  // namespace cantorix
