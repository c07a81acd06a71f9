// spoken.h - pictures in words, for those who cannot see them: which panes the main view has, where
// its cursor is and what stands there; what an analysis window has drawn.
#pragma once

#include <string>
#include <vector>

#include "analysisview/analysis_window.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

// "cursor 1231.0 ms" or "selection 200.0 ms – 700.0 ms"; empty without a recording.
std::string SpokenPlace(const CSonadexView& view);

struct SpokenPart {
  std::string name;   // "Pitch (Hz)", the name of a tier
  std::string value;  // SpokenPlace and the value at the cursor: "cursor 1231.0 ms  pitch 108.3 Hz"
  PixelRect place;
};

// The tiers and panes that have a place, from the top down; a value that there is none of, or that
// cannot be read, is a dash.
std::vector<SpokenPart> SpokenParts(CSonadexView& view);

// "shown 0.0 ms – 5410.1 ms  0 – 5000 Hz  formants"; empty without a picture.
std::string SpokenPicture(const AnalysisWindow& window);

}  // namespace cantorix
