// pointed.h - what stands under the pointer while no button is held, as one line of text: in the
// main view, a spectrogram, a pitch track, a spectrum. Values as the readouts give them; what there
// is no value of is a dash.
#pragma once

#include <optional>
#include <string>

#include "analysisview/analysis_window.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

class CFFTLPCView;
class CPitchView;
class CSpectrogramView;

struct Pointed {
  std::string text;
  std::optional<double> ms;       // on an axis of time
  std::optional<double> hz = {};  // on an axis of frequency
};

// Client pixels; nothing outside the plot or without a picture. The main view's throws FileError
// when the store cannot be read.
std::optional<Pointed> PointedIn(CSonadexView& view, std::int32_t x, std::int32_t y);
std::optional<Pointed> PointedIn(const AnalysisWindow& window, std::int32_t x, std::int32_t y);

// "channel 1 of 2 · 44100 Hz · 7106.2 ms · shown 0.0 ms – 7106.2 ms"; empty without a recording.
std::string StretchText(const CSonadexView& view);

}  // namespace cantorix
