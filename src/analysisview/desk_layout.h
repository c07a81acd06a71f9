// desk_layout.h - where the windows of one recording lie when the program places them: the main
// view above, spectrogram and pitch track below it in the same width, the spectrum at the side.
// Nothing covers anything, and nothing of another recording is left in sight.
#pragma once

#include <cstdint>

#include "mainview/view_ports.h"

namespace cantorix {

// Which windows there are, and what the main view has to show.
struct DeskContents {
  bool spectrogram = false;
  bool pitch = false;
  bool spectrum = false;
  std::int32_t tiersHeight = 0;  // pixels, of the tiers that the main view draws
  std::int32_t panes = 0;        // of waveform, intensity and pitch in the main view
};

// Pixels of the area. A window that is not there has an empty place.
struct DeskLayout {
  PixelRect main, spectrogram, pitch, spectrum;
  // Spectrogram and pitch track lie in one place, because there is no room for both.
  bool isPlaceShared = false;
};

// Places for an area of that size, titles and frames of the windows included. The main view keeps
// its tiers, axis and readouts and kLeastPaneHeight for each pane, unless the area is too low even
// for one analysis below it.
DeskLayout LayOutDesk(PixelSize area, const DeskContents& contents);

}  // namespace cantorix
