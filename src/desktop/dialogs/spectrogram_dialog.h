// spectrogram_dialog.h - "Spectrogram Option".
#pragma once

#include "desktop/dialogs/form_dialog.h"
#include "settings/settings.h"

namespace cantorix {

class SpectrogramDialog : public FormDialog {
 public:
  // `rateHz` is the recording's; bandwidths and the highest frequency range follow from it.
  SpectrogramDialog(Prompts& prompts, const SpectrogramSettings& preset, double rateHz,
                    QWidget* parent);

  SpectrogramSettings Entered() const;

 private:
  std::optional<std::string> Refusal() const override;
  void AddAnalysis();
  void AddDisplay();
  void Fill(const SpectrogramSettings& settings);

  SpectrogramSettings preset_;
  double rateHz_;
  QComboBox* size_;
  WholeField* rangeHz_;
  WholeField* dynamicRangeDb_;
  DecimalField* preEmphasis_;
  QCheckBox* displayFormants_;
  SwitchedWhole tracking_;
  QCheckBox* drawAudio_;
  QCheckBox* drawLabels_;
  QCheckBox* drawIntensity_;
  SwitchedWhole frequencyGrid_;
  SwitchedWhole timeGrid_;
  PrintSizeGroup print_;
};

}  // namespace cantorix
