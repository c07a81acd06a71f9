// spectrogram_dialog.cpp - the fields in their groups, filled, checked and read.
#include "desktop/dialogs/spectrogram_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <algorithm>
#include <bit>

#include "desktop/qt_text.h"
#include "settings/option_rules.h"

namespace cantorix {
namespace {

constexpr std::int32_t kFewestPoints = 32;
constexpr std::int32_t kIndexOfFewest = 1;  // the stored index of a size is log2(points) - 4
constexpr WholeLimits kAnyNumber{-2147483647, 2147483647};  // judged by the dialog's rules
constexpr DecimalLimits kAnyDecimal{-1e9, 1e9};
constexpr WholeLimits kLevel{1, 1000};
constexpr WholeLimits kFrequency{1, 1000000};
constexpr WholeLimits kTimeGrid{0, 10000000};
constexpr WholeLimits kOrder{1, 2147483647};

int EntryOf(std::int32_t points) {
  if (points < kFewestPoints) return 0;
  const auto lines = static_cast<unsigned>(points) / kFewestPoints;
  const int entry = static_cast<int>(std::bit_width(lines)) - 1;
  return std::min(entry, kSpectrogramSizes - 1);
}

}  // namespace

SpectrogramDialog::SpectrogramDialog(Prompts& prompts, const SpectrogramSettings& preset,
                                     double rateHz, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Spectrogram Option"), parent),
      preset_(preset),
      rateHz_(rateHz) {
  AddAnalysis();
  print_ = AddPrintSize(AddGroup(QStringLiteral("Print/BMP")), PrintUnits::kInches);
  BeginColumn();
  AddDisplay();
  AddButtons(QStringLiteral("Defaults"),
             [this] { Fill(DefaultDocumentSettings(rateHz_).spectrogram); });
  Fill(preset);
}

void SpectrogramDialog::AddAnalysis() {
  QFormLayout* const form = AddGroup(QStringLiteral("Analysis"));
  size_ = new QComboBox(this);
  for (const std::string& text : BandwidthTexts(rateHz_, kSpectrogramSizes)) {
    size_->addItem(Shown(text));
  }
  AddField(form, QStringLiteral("Bandwidth (Window Length)  = "), size_);
  preEmphasis_ =
      AddDecimal(form, QStringLiteral("Pre-Emphasis (0-1)(0 adds nothing)"), kAnyDecimal);
  rangeHz_ = AddWhole(form, QStringLiteral("Frequency range (Hz) = "), kAnyNumber);
  dynamicRangeDb_ = AddWhole(form, QStringLiteral("Dynamic range (dB) = "), kLevel);
  tracking_ =
      AddSwitchedWhole(form, QStringLiteral("Formant tracking LPC coefficients        = "), kOrder);
  displayFormants_ = AddSwitch(form, QStringLiteral("Display formants"));
}

void SpectrogramDialog::AddDisplay() {
  QFormLayout* const panes = AddGroup(QStringLiteral("Display"));
  drawAudio_ = AddSwitch(panes, QStringLiteral("Draw Audio "));
  drawLabels_ = AddSwitch(panes, QStringLiteral("Draw Labels"));
  drawIntensity_ = AddSwitch(panes, QStringLiteral("Draw Intensity"));
  QFormLayout* const grids = AddGroup(QStringLiteral("Grids"));
  frequencyGrid_ = AddSwitchedWhole(
      grids, QStringLiteral("Add Frequency grid with spacing (Hz) = "), kFrequency);
  timeGrid_ =
      AddSwitchedWhole(grids, QStringLiteral("Add Time grid with spacing (ms) = "), kTimeGrid);
  AddNote(grids, QStringLiteral("0: the time grid follows the zoomed window."));
}

void SpectrogramDialog::Fill(const SpectrogramSettings& settings) {
  size_->setCurrentIndex(EntryOf(settings.points));
  preEmphasis_->SetValue(settings.preEmphasis);
  rangeHz_->SetValue(settings.rangeHz);
  dynamicRangeDb_->SetValue(settings.dynamicRangeDb);
  tracking_.on->setChecked(settings.trackFormants != 0);
  tracking_.value->SetValue(settings.lpcOrder);
  displayFormants_->setChecked(settings.displayFormants != 0);
  drawAudio_->setChecked(settings.drawAudio != 0);
  drawLabels_->setChecked(settings.drawLabels != 0);
  drawIntensity_->setChecked(settings.drawIntensity != 0);
  frequencyGrid_.on->setChecked(settings.addFrequencyGrid != 0);
  frequencyGrid_.value->SetValue(settings.frequencyGridHz);
  timeGrid_.on->setChecked(settings.addTimeGrid != 0);
  timeGrid_.value->SetValue(settings.timeGridMs);
  print_.Fill({settings.printWidth, settings.printHeight});
}

SpectrogramSettings SpectrogramDialog::Entered() const {
  SpectrogramSettings entered = preset_;
  entered.points = kFewestPoints << size_->currentIndex();
  entered.sizeIndex = size_->currentIndex() + kIndexOfFewest;
  entered.preEmphasis = preEmphasis_->Value();
  entered.rangeHz = rangeHz_->Value();
  entered.dynamicRangeDb = dynamicRangeDb_->Value();
  entered.trackFormants = tracking_.on->isChecked() ? 1 : 0;
  if (tracking_.on->isChecked()) entered.lpcOrder = tracking_.value->Value();
  entered.displayFormants = displayFormants_->isChecked() ? 1 : 0;
  entered.drawAudio = drawAudio_->isChecked() ? 1 : 0;
  entered.drawLabels = drawLabels_->isChecked() ? 1 : 0;
  entered.drawIntensity = drawIntensity_->isChecked() ? 1 : 0;
  entered.addFrequencyGrid = frequencyGrid_.on->isChecked() ? 1 : 0;
  if (frequencyGrid_.on->isChecked()) entered.frequencyGridHz = frequencyGrid_.value->Value();
  entered.addTimeGrid = timeGrid_.on->isChecked() ? 1 : 0;
  if (timeGrid_.on->isChecked()) entered.timeGridMs = timeGrid_.value->Value();
  const PrintSize size = print_.Entered();
  entered.printWidth = size.width;
  entered.printHeight = size.height;
  return entered;
}

std::optional<std::string> SpectrogramDialog::Refusal() const {
  return SpectrogramRefusal(Entered(), rateHz_);
}

}  // namespace cantorix
