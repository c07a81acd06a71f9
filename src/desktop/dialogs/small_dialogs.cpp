// small_dialogs.cpp - numbers that are kept as doubles are shown whole.
#include "desktop/dialogs/small_dialogs.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QRadioButton>

#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr WholeLimits kMilliseconds{1, 32767};
constexpr WholeLimits kZoomRange{1, 100000000};
constexpr WholeLimits kLogStep{1, 100000};
constexpr WholeLimits kAmplitude{-1000000, 1000000};

}  // namespace

ZoomDialog::ZoomDialog(Prompts& prompts, std::int32_t presetMs, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Zoom Option"), parent) {
  QFormLayout* const form = AddGroup({});
  rangeMs_ = AddWhole(form, QStringLiteral("Range to zoom from cursor ( ms ) = "), kZoomRange);
  AddButtons();
  rangeMs_->SetValue(presetMs);
}

LogDialog::LogDialog(Prompts& prompts, std::int32_t presetHz, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Log Option"), parent) {
  QFormLayout* const form = AddGroup(QStringLiteral("FFT/LPC Entire Frame "));
  stepHz_ = AddWhole(form, QStringLiteral("Step size for entire frame entry (Hz) = "), kLogStep);
  AddButtons();
  stepHz_->SetValue(presetHz);
}

IntensityDialog::IntensityDialog(Prompts& prompts, const IntensitySettings& preset, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Intensity Options"), parent) {
  QFormLayout* const form = AddGroup({});
  windowMs_ = AddWhole(form, QStringLiteral("Window Length (ms) = "), kMilliseconds);
  stepMs_ = AddWhole(form, QStringLiteral("Step Size (ms) = "), kMilliseconds);
  level_ = AddChoice(form, {}, {QStringLiteral("Absolute"), QStringLiteral("Relative")});
  AddButtons();
  windowMs_->SetValue(TruncateToInt32(preset.windowMs));
  stepMs_->SetValue(TruncateToInt32(preset.stepMs));
  level_->button(preset.relative != 0 ? 1 : 0)->setChecked(true);
}

IntensitySettings IntensityDialog::Entered() const {
  return {static_cast<double>(windowMs_->Value()), static_cast<double>(stepMs_->Value()),
          level_->checkedId()};
}

GainDialog::GainDialog(Prompts& prompts, const GainSettings& preset, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Reference and Gain"), parent) {
  QFormLayout* const form = AddGroup({});
  reference_ = AddWhole(form, QStringLiteral("Reference = "), kAmplitude);
  gainPercent_ = AddWhole(form, QStringLiteral("Gain (%) = "), kAmplitude);
  AddButtons();
  reference_->SetValue(TruncateToInt32(preset.reference));
  gainPercent_->SetValue(TruncateToInt32(preset.gainPercent));
}

GainSettings GainDialog::Entered() const {
  return {static_cast<double>(gainPercent_->Value()), static_cast<double>(reference_->Value())};
}

}  // namespace cantorix
