// fft_lpc_dialog.cpp - the fields in their groups, filled, checked and read.
#include "desktop/dialogs/fft_lpc_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QRadioButton>
#include <algorithm>

#include "desktop/qt_text.h"
#include "settings/option_rules.h"

namespace cantorix {
namespace {

constexpr std::int32_t kFewestPoints = 32;
constexpr WholeLimits kMilliseconds{1, 32767};
constexpr WholeLimits kFrequency{1, 1000000};
constexpr WholeLimits kLevel{1, 1000};
constexpr WholeLimits kAnyNumber{-2147483647, 2147483647};  // judged by the dialog's rule

}  // namespace

FftLpcDialog::FftLpcDialog(Prompts& prompts, const FftLpcSettings& preset, double rateHz,
                           QWidget* parent)
    : FormDialog(prompts, QStringLiteral("FFT/LPC Option"), parent), preset_(preset) {
  AddAnalysis(rateHz);
  AddDisplay();
  BeginColumn();
  AddPrint();
  AddButtons(QStringLiteral("Default size"), [this] {
    const FftLpcSettings defaults;
    print_.Fill({defaults.printWidth, defaults.printHeight, defaults.printUnit});
  });
  Fill(preset);
}

void FftLpcDialog::AddAnalysis(double rateHz) {
  QFormLayout* const form = AddGroup(QStringLiteral("Analysis"));
  size_ = new QComboBox(this);
  for (const std::string& text : BandwidthTexts(rateHz, kFftLpcSizes)) size_->addItem(Shown(text));
  AddField(form, QStringLiteral("Bandwidth (Window Length ) = "), size_);
  windowMs_ = AddWhole(form, QStringLiteral("Applied window length (ms)  = "), kMilliseconds);
  stepMs_ = AddWhole(form, QStringLiteral("Average step size (ms) = "), kMilliseconds);
  lpcOrder_ = AddWhole(form, QStringLiteral("LPC number of coefficients = "), kAnyNumber);
}

void FftLpcDialog::AddDisplay() {
  QFormLayout* const form = AddGroup(QStringLiteral("Display"));
  rangeHz_ = AddWhole(form, QStringLiteral("Frequency range (Hz) = "), kFrequency);
  drawLpc_ = AddSwitch(form, QStringLiteral("Draw LPC"));
  AddLevel(form);
  frequencyGrid_ =
      AddSwitchedWhole(form, QStringLiteral("Add Frequency grid with spacing (Hz) = "), kFrequency);
  powerGrid_ =
      AddSwitchedWhole(form, QStringLiteral("Add Power grid with spacing (dB)       = "), kLevel);
}

// The absolute level stands beside the button that makes it count.
void FftLpcDialog::AddLevel(QFormLayout* form) {
  const QString text = QStringLiteral("Absolute  (dB)  = ");
  auto* const absolute = new QRadioButton(WithMnemonic(text), this);
  auto* const relative = new QRadioButton(WithMnemonic(QStringLiteral("Relative ")), this);
  absoluteDb_ = new WholeField(kLevel);
  absoluteDb_->setAccessibleName(QStringLiteral("Absolute (dB)"));
  Check(absoluteDb_);
  form->addRow(absolute, absoluteDb_);
  form->addRow(relative);
  level_ = new QButtonGroup(this);
  level_->addButton(absolute, 0);
  level_->addButton(relative, 1);
  connect(absolute, &QAbstractButton::toggled, absoluteDb_, &QWidget::setEnabled);
}

void FftLpcDialog::AddPrint() {
  QFormLayout* const form = AddGroup(QStringLiteral("Print/BMP"));
  print_ = AddPrintSize(form, PrintUnits::kInchesOrCm);
  colour_ = AddChoice(form, {}, {QStringLiteral("Color"), QStringLiteral("Black / White")});
}

void FftLpcDialog::Fill(const FftLpcSettings& settings) {
  size_->setCurrentIndex(std::clamp(settings.sizeIndex, 0, kFftLpcSizes - 1));
  windowMs_->SetValue(settings.windowMs);
  stepMs_->SetValue(settings.stepMs);
  lpcOrder_->SetValue(settings.lpcOrder);
  rangeHz_->SetValue(settings.rangeHz);
  drawLpc_->setChecked(settings.drawLpc != 0);
  level_->button(settings.relative != 0 ? 1 : 0)->setChecked(true);
  absoluteDb_->SetValue(settings.absoluteDb);
  absoluteDb_->setEnabled(settings.relative == 0);
  frequencyGrid_.on->setChecked(settings.addFrequencyGrid != 0);
  frequencyGrid_.value->SetValue(settings.frequencyGridHz);
  powerGrid_.on->setChecked(settings.addPowerGrid != 0);
  powerGrid_.value->SetValue(settings.powerGridDb);
  print_.Fill({settings.printWidth, settings.printHeight, settings.printUnit});
  colour_->button(settings.blackWhite != 0 ? 1 : 0)->setChecked(true);
}

FftLpcSettings FftLpcDialog::Entered() const {
  FftLpcSettings entered = preset_;
  entered.sizeIndex = size_->currentIndex();
  entered.points = kFewestPoints << entered.sizeIndex;
  entered.windowMs = windowMs_->Value();
  entered.stepMs = stepMs_->Value();
  entered.lpcOrder = lpcOrder_->Value();
  entered.rangeHz = rangeHz_->Value();
  entered.drawLpc = drawLpc_->isChecked() ? 1 : 0;
  entered.relative = level_->checkedId();
  if (absoluteDb_->isEnabled()) entered.absoluteDb = absoluteDb_->Value();
  entered.addFrequencyGrid = frequencyGrid_.on->isChecked() ? 1 : 0;
  if (frequencyGrid_.on->isChecked()) entered.frequencyGridHz = frequencyGrid_.value->Value();
  entered.addPowerGrid = powerGrid_.on->isChecked() ? 1 : 0;
  if (powerGrid_.on->isChecked()) entered.powerGridDb = powerGrid_.value->Value();
  const PrintSize size = print_.Entered();
  entered.printWidth = size.width;
  entered.printHeight = size.height;
  entered.printUnit = size.unit;
  entered.blackWhite = colour_->checkedId();
  return entered;
}

std::optional<std::string> FftLpcDialog::Refusal() const { return FftLpcRefusal(Entered()); }

}  // namespace cantorix
