// pitch_frame.cpp
#include "desktop/windows/pitch_frame.h"

namespace cantorix {

CPitchFrame::CPitchFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement* placement)
    : AnalysisFrame(view, host, placement),
      model_(view, Services()),
      picture_(model_, view, host.WaveformOf(view.document())) {
  Build();
}

}  // namespace cantorix
