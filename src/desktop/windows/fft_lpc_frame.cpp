// fft_lpc_frame.cpp - model, picture and strip put together.
#include "desktop/windows/fft_lpc_frame.h"

namespace cantorix {

CFFTLPCFrame::CFFTLPCFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement& placement)
    : AnalysisFrame(view, host, placement), model_(view.document(), Services()), picture_(model_) {
  Build();
}

}  // namespace cantorix
