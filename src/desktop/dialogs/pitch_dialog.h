// pitch_dialog.h - "Pitch option".
#pragma once

#include "desktop/dialogs/form_dialog.h"
#include "settings/settings.h"

class QGroupBox;

namespace cantorix {

class PitchDialog : public FormDialog {
 public:
  PitchDialog(Prompts& prompts, const PitchSettings& preset, QWidget* parent);

  PitchSettings Entered() const;

 private:
  std::optional<std::string> Refusal() const override;
  void AddMethod();
  void AddRanges();
  void AddWindow();
  void ShowMethod();
  void Fill(const PitchSettings& settings);

  PitchSettings preset_;
  QButtonGroup* method_;
  WholeField* windowMs_;
  WholeField* stepMs_;
  WholeField* deviationHz_;
  WholeField* thresholdPercent_;
  WholeField* voicingLevel_;
  WholeField* tolerancePercent_;
  WholePair calculation_;
  WholePair display_;
  SwitchedWhole frequencyGrid_;
  SwitchedWhole timeGrid_;
  QCheckBox* addAudio_;
  QCheckBox* addIntensity_;
  QCheckBox* addLabels_;
  PrintSizeGroup print_;
};

}  // namespace cantorix
