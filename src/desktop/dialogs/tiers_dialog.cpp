// tiers_dialog.cpp - ten lines of box, name and height.
#include "desktop/dialogs/tiers_dialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "mainview/dialog_answers.h"
#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr int kNameWidth = 220;  // logical pixels
constexpr OptionLimits kHeights{1, 1000};

// A name that nobody touched keeps its bytes, also where they are no proper text.
std::string NameIn(const QLineEdit& field, const std::string& preset) {
  if (field.text() == Shown(preset)) return preset;
  return std::string(CutText(Typed(field.text()), kMaxTierNameBytes));
}

}  // namespace

TiersDialog::TiersDialog(Prompts& prompts, const TierSetups& preset, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Tiers Option"), parent) {
  QFormLayout* const form = AddGroup({});
  AddNote(form, QStringLiteral("Tiers are arranged from the top of the display to the bottom."));
  auto* const grid = new QGridLayout;
  grid->addWidget(new QLabel(Tr("In use"), this), 0, 0);
  grid->addWidget(new QLabel(Tr("Name"), this), 0, 1);
  grid->addWidget(new QLabel(Tr("Height (pixels)"), this), 0, 2);
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    lines_[i] = AddLine(*grid, static_cast<int>(i), preset[i]);
  }
  form->addRow(grid);
  AddButtons();
}

TiersDialog::Line TiersDialog::AddLine(QGridLayout& grid, int tier, const TierSetup& preset) {
  const QString number = QString::number(tier + 1);
  Line line{preset, new QCheckBox(number, this), new QLineEdit(Shown(preset.name), this),
            new NumberField(kHeights, false)};
  // The digits are the mnemonics: Alt+0 is the tenth tier.
  line.inUse->setText(tier < 9 ? '&' + number : QStringLiteral("1&0"));
  line.inUse->setAccessibleName(Tr("Tier %1 in use").arg(number));
  line.inUse->setChecked(preset.inUse);
  line.name->setMinimumWidth(kNameWidth);
  line.name->setMaxLength(static_cast<int>(kMaxTierNameBytes));
  line.name->setAccessibleName(Tr("Name of tier %1").arg(number));
  line.height->SetValue(std::clamp<double>(preset.height, kHeights.least, kHeights.most));
  line.height->setAccessibleName(Tr("Height of tier %1 in pixels").arg(number));
  grid.addWidget(line.inUse, tier + 1, 0);
  grid.addWidget(line.name, tier + 1, 1);
  grid.addWidget(line.height, tier + 1, 2);
  return line;
}

// Only what a tier in use is given has to be possible.
std::optional<FormAnswer> TiersDialog::Refusal() const {
  for (const Line& line : lines_) {
    if (!line.inUse->isChecked() || line.height->Value()) continue;
    return FormAnswer{line.height->Refusal(), line.height};
  }
  return std::nullopt;
}

TierSetups TiersDialog::Entered() const {
  TierSetups entered;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Line& line = lines_[i];
    entered[i] = {NameIn(*line.name, line.preset.name),
                  static_cast<std::int32_t>(line.height->Value().value_or(line.preset.height)),
                  line.inUse->isChecked()};
  }
  return entered;
}

}  // namespace cantorix
