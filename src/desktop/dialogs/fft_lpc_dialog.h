// fft_lpc_dialog.h - "FFT/LPC Option".
#pragma once

#include "desktop/dialogs/form_dialog.h"
#include "settings/settings.h"

namespace cantorix {

class FftLpcDialog : public FormDialog {
 public:
  // `rateHz` is the recording's; the list of bandwidths follows from it.
  FftLpcDialog(Prompts& prompts, const FftLpcSettings& preset, double rateHz, QWidget* parent);

  FftLpcSettings Entered() const;

 private:
  std::optional<std::string> Refusal() const override;
  void AddAnalysis(double rateHz);
  void AddDisplay();
  void AddLevel(QFormLayout* form);
  void AddPrint();
  void Fill(const FftLpcSettings& settings);

  FftLpcSettings preset_;
  QComboBox* size_;
  WholeField* windowMs_;
  WholeField* stepMs_;
  WholeField* lpcOrder_;
  WholeField* rangeHz_;
  QCheckBox* drawLpc_;
  QButtonGroup* level_;
  WholeField* absoluteDb_;
  SwitchedWhole frequencyGrid_;
  SwitchedWhole powerGrid_;
  PrintSizeGroup print_;
  QButtonGroup* colour_;
};

}  // namespace cantorix
