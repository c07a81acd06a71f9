// pitch_frame.cpp - model, picture and strip put together.
#include "desktop/windows/pitch_frame.h"

namespace cantorix {

CPitchFrame::CPitchFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement& placement)
    : AnalysisFrame(view, host, placement),
      model_(view, Services()),
      picture_(model_, view, host.WaveformOf(view.document())) {
  Build();
}

}  // namespace cantorix
