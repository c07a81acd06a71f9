// label_import_dialog.cpp - the choice of tier, unit and alignment.
#include "desktop/dialogs/label_import_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QRadioButton>
#include <algorithm>

#include "desktop/qt_text.h"
#include "document/label.h"
#include "mainview/dialog_answers.h"

namespace cantorix {

LabelImportDialog::LabelImportDialog(Prompts& prompts, const std::vector<std::string>& tierNames,
                                     const LabelImportOptions& preset, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Import a generic label file into a tier"), parent),
      tierNames_(tierNames) {
  AddNote(AddGroup({}),
          QStringLiteral("Label file MUST be a pure TEXT file and follow the following format:\n\n"
                         "Time<tab>Label<return>\n\n"
                         "Any other entries will be ignored."));
  QFormLayout* const form = AddGroup({});
  tier_ = new QComboBox(this);
  for (const std::string& name : tierNames_) tier_->addItem(Shown(name));
  AddField(form, QStringLiteral("Select a tier to enter into :"), tier_);
  unit_ = AddChoice(AddGroup(QStringLiteral("time stamp format")), {},
                    {QStringLiteral("seconds"), QStringLiteral("milliseconds")});
  QFormLayout* const looks = AddGroup(QStringLiteral("Justification (applies to all labels)"));
  alignment_ = AddChoice(
      looks, {}, {QStringLiteral("Left"), QStringLiteral("Center"), QStringLiteral("Right")});
  line_ = AddSwitch(AddGroup({}), QStringLiteral("Add Line"));
  AddButtons();
  unit_->button(preset.unit == TimeStampUnit::kSeconds ? 0 : 1)->setChecked(true);
  alignment_->button(std::clamp<std::int32_t>(preset.alignment, kAlignLeft, kAlignRight))
      ->setChecked(true);
  line_->setChecked(preset.addLine);
}

LabelImportAnswer LabelImportDialog::Entered() const {
  LabelImportAnswer entered;
  const int tier = tier_->currentIndex();
  if (tier >= 0) entered.tierName = tierNames_[static_cast<std::size_t>(tier)];
  entered.options.unit =
      unit_->checkedId() == 0 ? TimeStampUnit::kSeconds : TimeStampUnit::kMilliseconds;
  entered.options.alignment = alignment_->checkedId();
  entered.options.addLine = line_->isChecked();
  return entered;
}

}  // namespace cantorix
