// small_dialogs.h - the dialogs of one or two numbers: "Zoom Option", "Log Option", "Intensity
// Options", "Reference and Gain".
#pragma once

#include "desktop/dialogs/form_dialog.h"
#include "settings/settings.h"

namespace cantorix {

class ZoomDialog : public FormDialog {
 public:
  ZoomDialog(Prompts& prompts, std::int32_t presetMs, QWidget* parent);
  std::int32_t Entered() const { return rangeMs_->Value(); }

 private:
  WholeField* rangeMs_;
};

class LogDialog : public FormDialog {
 public:
  LogDialog(Prompts& prompts, std::int32_t presetHz, QWidget* parent);
  std::int32_t Entered() const { return stepHz_->Value(); }

 private:
  WholeField* stepHz_;
};

class IntensityDialog : public FormDialog {
 public:
  IntensityDialog(Prompts& prompts, const IntensitySettings& preset, QWidget* parent);
  IntensitySettings Entered() const;

 private:
  WholeField* windowMs_;
  WholeField* stepMs_;
  QButtonGroup* level_;
};

class GainDialog : public FormDialog {
 public:
  GainDialog(Prompts& prompts, const GainSettings& preset, QWidget* parent);
  GainSettings Entered() const;

 private:
  WholeField* gainPercent_;
  WholeField* reference_;
};

}  // namespace cantorix
