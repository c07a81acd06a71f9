// fft_lpc_frame.h - the window of a spectrum.
#pragma once

#include "analysisview/fft_lpc_view.h"
#include "desktop/windows/analysis_frame.h"
#include "desktop/windows/fft_lpc_picture.h"

namespace cantorix {

class CFFTLPCFrame : public AnalysisFrame {
 public:
  CFFTLPCFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement& placement);

  CFFTLPCView& model() override { return model_; }
  WindowPicture& picture() override { return picture_; }

 private:
  QString KindName() const override { return QStringLiteral("FFT/LPC"); }
  QString IconName() const override { return QStringLiteral("fft_lpc"); }
  Command OptionsCommand() const override { return Command::kFftLpcOptions; }

  CFFTLPCView model_;
  FftLpcPicture picture_;
};

}  // namespace cantorix
