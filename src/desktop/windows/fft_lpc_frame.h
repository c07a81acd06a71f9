// fft_lpc_frame.h - the window of a spectrum, with its usual settings at hand.
#pragma once

#include "analysisview/fft_lpc_view.h"
#include "desktop/windows/analysis_frame.h"
#include "desktop/windows/fft_lpc_picture.h"
#include "desktop/windows/strip_fields.h"

namespace cantorix {

class CFFTLPCFrame : public AnalysisFrame {
 public:
  CFFTLPCFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement& placement);

  CFFTLPCView& model() override { return model_; }
  WindowPicture& picture() override { return picture_; }

  QComboBox& sizes() { return *sizes_; }
  QSpinBox& lpcOrder() { return *order_; }
  QSpinBox& frequencyRange() { return *rangeHz_; }

 private:
  void FillStrip(QToolBar& strip) override;
  // The window stands at the side and is narrow.
  bool hasOwnRow() const override { return true; }
  void RefreshStrip() override;
  RateHint Hint() const override;
  bool edited() const override { return fields_ != nullptr && fields_->edited(); }
  // Turns the settings of this document into others.
  void Set(const std::function<void(FftLpcSettings&)>& change);
  QString KindName() const override { return QStringLiteral("FFT/LPC"); }
  QString IconName() const override { return QStringLiteral("fft_lpc"); }
  Command OptionsCommand() const override { return Command::kFftLpcOptions; }

  CFFTLPCView model_;
  FftLpcPicture picture_;
  StripFields* fields_ = nullptr;
  QComboBox* sizes_ = nullptr;
  QSpinBox* order_ = nullptr;
  QSpinBox* rangeHz_ = nullptr;
  QLabel* place_ = nullptr;  // of what the spectrum is taken
};

}  // namespace cantorix
