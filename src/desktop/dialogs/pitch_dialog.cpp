// pitch_dialog.cpp - numbers that are kept as doubles are shown whole.
#include "desktop/dialogs/pitch_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>

#include "platform/numbers.h"
#include "settings/option_rules.h"

namespace cantorix {
namespace {

constexpr WholeLimits kMilliseconds{1, 32767};
constexpr WholeLimits kAnyNumber{-2147483647, 2147483647};  // judged by the dialog's rules
constexpr WholeLimits kFrequency{1, 1000000};
constexpr WholeLimits kTimeGrid{0, 10000000};
constexpr WholeLimits kNotNegative{0, 1000000};

}  // namespace

PitchDialog::PitchDialog(Prompts& prompts, const PitchSettings& preset, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Pitch option"), parent), preset_(preset) {
  AddMethod();
  BeginColumn();
  AddRanges();
  AddWindow();
  AddButtons(QStringLiteral("Defaults "), [this] { Fill(PitchSettings{}); });
  Fill(preset);
}

void PitchDialog::AddMethod() {
  QFormLayout* const common = AddGroup(QStringLiteral("Method"));
  method_ = AddChoice(common, {}, {QStringLiteral("Cepstral"), QStringLiteral("AutoCorrolation")});
  windowMs_ = AddWhole(common, QStringLiteral("Window length (ms)  = "), kMilliseconds);
  stepMs_ = AddWhole(common, QStringLiteral("Step size (ms)           = "), kMilliseconds);
  QFormLayout* const cepstral = AddGroup(QStringLiteral("Cepstral method"));
  deviationHz_ = AddWhole(cepstral, QStringLiteral("Frequency deviation (Hz) = "), kNotNegative);
  thresholdPercent_ =
      AddWhole(cepstral, QStringLiteral("Tracking threshold (%)     = "), kNotNegative);
  QFormLayout* const correlation = AddGroup(QStringLiteral("AutoCorrolation method"));
  voicingLevel_ = AddWhole(correlation, QStringLiteral("Voicing level = "), kNotNegative);
  tolerancePercent_ =
      AddWhole(correlation, QStringLiteral("Continuity tolerance (%) = "), kNotNegative);
  connect(method_, &QButtonGroup::idToggled, this, [this] { ShowMethod(); });
}

void PitchDialog::AddRanges() {
  QFormLayout* const ranges = AddGroup(QStringLiteral("Ranges"));
  calculation_ = AddRange(ranges, QStringLiteral("Calculation range (Hz)  = "), kAnyNumber);
  display_ = AddRange(ranges, QStringLiteral("Display range (Hz)        = "), kAnyNumber);
  QFormLayout* const grids = AddGroup(QStringLiteral("Grids"));
  frequencyGrid_ = AddSwitchedWhole(
      grids, QStringLiteral("Add Frequency grid with spacing (Hz) = "), kFrequency);
  timeGrid_ =
      AddSwitchedWhole(grids, QStringLiteral("Add Time grid with spacing (ms) = "), kTimeGrid);
  AddNote(grids, QStringLiteral("0: the time grid follows the zoomed window."));
}

void PitchDialog::AddWindow() {
  QFormLayout* const parts = AddGroup(QStringLiteral("Window"));
  addAudio_ = AddSwitch(parts, QStringLiteral("Add audio"));
  addIntensity_ = AddSwitch(parts, QStringLiteral("Add Intensity"));
  addLabels_ = AddSwitch(parts, QStringLiteral("Add Labels"));
  print_ = AddPrintSize(AddGroup(QStringLiteral("Print/BMP")), PrintUnits::kInches);
}

// Only the values of the chosen method count.
void PitchDialog::ShowMethod() {
  const bool cepstral = method_->checkedId() == kCepstral;
  deviationHz_->setEnabled(cepstral);
  thresholdPercent_->setEnabled(cepstral);
  voicingLevel_->setEnabled(!cepstral);
  tolerancePercent_->setEnabled(!cepstral);
}

void PitchDialog::Fill(const PitchSettings& settings) {
  method_->button(settings.method == kCepstral ? 0 : 1)->setChecked(true);
  windowMs_->SetValue(TruncateToInt32(settings.windowMs));
  stepMs_->SetValue(TruncateToInt32(settings.stepMs));
  deviationHz_->SetValue(TruncateToInt32(settings.deviationHz));
  thresholdPercent_->SetValue(TruncateToInt32(settings.thresholdPercent));
  voicingLevel_->SetValue(TruncateToInt32(settings.voicingLevel));
  tolerancePercent_->SetValue(TruncateToInt32(settings.tolerancePercent));
  calculation_.low->SetValue(TruncateToInt32(settings.lowHz));
  calculation_.high->SetValue(TruncateToInt32(settings.highHz));
  display_.low->SetValue(settings.displayLowHz);
  display_.high->SetValue(settings.displayHighHz);
  frequencyGrid_.on->setChecked(settings.addFrequencyGrid != 0);
  frequencyGrid_.value->SetValue(settings.frequencyGridHz);
  timeGrid_.on->setChecked(settings.addTimeGrid != 0);
  timeGrid_.value->SetValue(settings.timeGridMs);
  addAudio_->setChecked(settings.addAudio != 0);
  addIntensity_->setChecked(settings.addIntensity != 0);
  addLabels_->setChecked(settings.addLabels != 0);
  print_.Fill({settings.printWidth, settings.printHeight});
  ShowMethod();
}

PitchSettings PitchDialog::Entered() const {
  PitchSettings entered = preset_;
  entered.method = method_->checkedId();
  entered.windowMs = windowMs_->Value();
  entered.stepMs = stepMs_->Value();
  if (entered.method == kCepstral) {
    entered.deviationHz = deviationHz_->Value();
    entered.thresholdPercent = thresholdPercent_->Value();
  } else {
    entered.voicingLevel = voicingLevel_->Value();
    entered.tolerancePercent = tolerancePercent_->Value();
  }
  entered.lowHz = calculation_.low->Value();
  entered.highHz = calculation_.high->Value();
  entered.displayLowHz = display_.low->Value();
  entered.displayHighHz = display_.high->Value();
  entered.addFrequencyGrid = frequencyGrid_.on->isChecked() ? 1 : 0;
  if (frequencyGrid_.on->isChecked()) entered.frequencyGridHz = frequencyGrid_.value->Value();
  entered.addTimeGrid = timeGrid_.on->isChecked() ? 1 : 0;
  if (timeGrid_.on->isChecked()) entered.timeGridMs = timeGrid_.value->Value();
  entered.addAudio = addAudio_->isChecked() ? 1 : 0;
  entered.addIntensity = addIntensity_->isChecked() ? 1 : 0;
  entered.addLabels = addLabels_->isChecked() ? 1 : 0;
  entered.printWidth = print_.Entered().width;
  entered.printHeight = print_.Entered().height;
  return entered;
}

std::optional<std::string> PitchDialog::Refusal() const { return PitchRefusal(Entered()); }

}  // namespace cantorix
