// generic_dialog.cpp - the fields of header, rate and format, filled and read.
#include "desktop/dialogs/generic_dialog.h"

#include <QButtonGroup>
#include <QRadioButton>

namespace cantorix {
namespace {

constexpr WholeLimits kHeaderLimits{0, 1000000000};
constexpr WholeLimits kRateLimits{1, 1000000};

}  // namespace

GenericDialog::GenericDialog(Prompts& prompts, const GenericParameters& preset, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Generic File Selection"), parent) {
  QFormLayout* const file = AddGroup(QStringLiteral("File"));
  headerBytes_ = AddWhole(file, QStringLiteral("Header size (bytes) = "), kHeaderLimits);
  rateHz_ = AddWhole(file, QStringLiteral("Sample rate (Hz) = "), kRateLimits);
  QFormLayout* const samples = AddGroup(QStringLiteral("Samples"));
  kind_ = AddChoice(samples, QStringLiteral("Data"),
                    {QStringLiteral("ASCII"), QStringLiteral("Integer binary")});
  width_ = AddChoice(samples, QStringLiteral("Width"),
                     {QStringLiteral("8 bit"), QStringLiteral("16 bit")});
  order_ = AddChoice(samples, QStringLiteral("Byte order"),
                     {QStringLiteral("Low byte first"), QStringLiteral("High byte first")});
  AddButtons();

  headerBytes_->SetValue(preset.headerBytes);
  rateHz_->SetValue(preset.rateHz);
  kind_->button(preset.binary != 0 ? 1 : 0)->setChecked(true);
  width_->button(preset.sixteenBit != 0 ? 1 : 0)->setChecked(true);
  order_->button(preset.highByteFirst != 0 ? 1 : 0)->setChecked(true);
}

GenericParameters GenericDialog::Entered() const {
  GenericParameters entered;
  entered.headerBytes = headerBytes_->Value();
  entered.rateHz = rateHz_->Value();
  entered.sixteenBit = width_->checkedId();
  entered.highByteFirst = order_->checkedId();
  entered.binary = kind_->checkedId();
  return entered;
}

}  // namespace cantorix
