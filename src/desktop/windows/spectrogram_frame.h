// spectrogram_frame.h - the window of a spectrogram, with its colours and dynamic range at hand.
#pragma once

#include "analysisview/spectrogram_view.h"
#include "desktop/windows/analysis_frame.h"
#include "desktop/windows/spectrogram_picture.h"

class QComboBox;
class QSpinBox;

namespace cantorix {

class CSpectrogramFrame : public AnalysisFrame {
 public:
  CSpectrogramFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement& placement);

  CSpectrogramView& model() override { return model_; }
  SpectrogramWindowPicture& picture() override { return picture_; }

  QComboBox& colors() { return *colors_; }
  QSpinBox& dynamicRange() { return *range_; }

 private:
  void FillStrip(QToolBar& strip) override;
  void RefreshStrip() override;
  void SetDynamicRange(int db);
  QString KindName() const override { return QStringLiteral("Spectrogram"); }
  QString IconName() const override { return QStringLiteral("spectrogram"); }
  Command OptionsCommand() const override { return Command::kSpectrogramOptions; }

  CSpectrogramView model_;
  SpectrogramWindowPicture picture_;
  QComboBox* colors_ = nullptr;
  QSpinBox* range_ = nullptr;
};

}  // namespace cantorix
