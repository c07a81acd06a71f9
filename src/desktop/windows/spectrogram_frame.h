// spectrogram_frame.h - the window of a spectrogram, with its usual settings at hand.
#pragma once

#include "analysisview/spectrogram_view.h"
#include "desktop/paint/words.h"
#include "desktop/windows/analysis_frame.h"
#include "desktop/windows/spectrogram_picture.h"
#include "desktop/windows/strip_fields.h"

namespace cantorix {

class CSpectrogramFrame : public AnalysisFrame {
 public:
  CSpectrogramFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement& placement);

  CSpectrogramView& model() override { return model_; }
  SpectrogramWindowPicture& picture() override { return picture_; }

  QComboBox& sizes() { return *sizes_; }
  QSpinBox& lpcOrder() { return *order_; }
  QSpinBox& frequencyRange() { return *rangeHz_; }
  QSpinBox& dynamicRange() { return *rangeDb_; }
  QComboBox& colors() { return *colors_; }

 private:
  void FillStrip(QToolBar& strip) override;
  void RefreshStrip() override;
  RateHint Hint() const override;
  bool edited() const override { return fields_ != nullptr && fields_->edited(); }
  // Turns the settings of this document into others.
  void Set(const std::function<void(SpectrogramSettings&)>& change);
  QString KindName() const override { return Tr("Spectrogram"); }
  QString IconName() const override { return QStringLiteral("spectrogram"); }
  Command OptionsCommand() const override { return Command::kSpectrogramOptions; }

  CSpectrogramView model_;
  SpectrogramWindowPicture picture_;
  StripFields* fields_ = nullptr;
  QComboBox* sizes_ = nullptr;
  QSpinBox* order_ = nullptr;
  QSpinBox* rangeHz_ = nullptr;
  QSpinBox* rangeDb_ = nullptr;
  StripList* colors_ = nullptr;
};

}  // namespace cantorix
