// label_file_dialogs.cpp - the formats are those of the table.
#include "desktop/dialogs/label_file_dialogs.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QRadioButton>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "labelfile/label_formats.h"

namespace cantorix {
namespace {

constexpr int kPoints = 0;
constexpr int kIntervals = 1;

void AddFormats(QComboBox& list, const std::string& chosen) {
  for (const LabelFormat& format : LabelFormats()) {
    list.addItem(Translated(format.name), Shown(format.key));
    if (format.key == chosen) list.setCurrentIndex(list.count() - 1);
  }
}

std::string ChosenKey(const QComboBox& list) { return list.currentData().toString().toStdString(); }

}  // namespace

LabelFileDialog::LabelFileDialog(Prompts& prompts, const LabelFileOptions& preset, QWidget* parent)
    : FormDialog(prompts, Tr("Import Label File"), parent),
      preset_(preset),
      format_(new QComboBox(this)) {
  QFormLayout* const form = AddGroup({});
  format_->addItem(Tr("As the file shows"), QString());
  AddFormats(*format_, preset.importFormat);
  AddField(form, Tr("Format"), format_);
  emptyIntervals_ = AddSwitch(form, Tr("Empty intervals become labels without text"));
  emptyIntervals_->setChecked(preset.emptyIntervals);
  AddNote(AddGroup({}), Tr("Each tier of the file goes to the tier of its name, or to "
                           "one that is free.\nAn interval becomes a label at its "
                           "start."));
  AddButtons();
}

LabelFileOptions LabelFileDialog::Entered() const {
  LabelFileOptions entered = preset_;
  entered.importFormat = ChosenKey(*format_);
  entered.emptyIntervals = emptyIntervals_->isChecked();
  return entered;
}

LabelExportDialog::LabelExportDialog(Prompts& prompts, const std::vector<std::string>& tierNames,
                                     const LabelFileOptions& preset, QWidget* parent)
    : FormDialog(prompts, Tr("Export Labels"), parent),
      tierNames_(tierNames),
      preset_(preset),
      format_(new QComboBox(this)),
      tier_(new QComboBox(this)) {
  QFormLayout* const form = AddGroup({});
  AddFormats(*format_, preset.exportFormat);
  AddField(form, Tr("Format"), format_);
  tier_->addItem(Tr("All in use"));
  for (const std::string& name : tierNames_) tier_->addItem(Shown(name));
  AddField(form, Tr("Tiers"), tier_);
  kind_ = AddChoice(AddGroup(Tr("A label becomes")), {},
                    {Tr("a point"), Tr("an interval up to the next label")});
  kind_->button(preset.asIntervals ? kIntervals : kPoints)->setChecked(true);
  AddButtons();
  connect(format_, &QComboBox::currentIndexChanged, this, [this] { OfferKinds(); });
  OfferKinds();
}

void LabelExportDialog::OfferKinds() {
  const LabelFormat* const format = LabelFormatOf(ChosenKey(*format_));
  if (format == nullptr) return;
  kind_->button(kPoints)->setEnabled(format->holds.points);
  kind_->button(kIntervals)->setEnabled(format->holds.intervals);
  if (!format->holds.intervals) kind_->button(kPoints)->setChecked(true);
  if (!format->holds.points) kind_->button(kIntervals)->setChecked(true);
}

LabelExportAnswer LabelExportDialog::Entered() const {
  LabelExportAnswer entered;
  entered.options = preset_;
  entered.options.exportFormat = ChosenKey(*format_);
  entered.options.asIntervals = kind_->checkedId() == kIntervals;
  const int tier = tier_->currentIndex();
  if (tier > 0) entered.tierName = tierNames_[static_cast<std::size_t>(tier) - 1];
  return entered;
}

}  // namespace cantorix
