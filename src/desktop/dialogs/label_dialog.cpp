// label_dialog.cpp - text, font, colour and line, with Delete where the label exists.
#include "desktop/dialogs/label_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QColorDialog>
#include <QFontDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr int kTextWidth = 420;  // logical pixels
constexpr int kSwatch = 14;

QColor ColourOf(std::uint32_t colour) {
  return QColor(static_cast<int>(colour & 0xFFU), static_cast<int>(colour >> 8 & 0xFFU),
                static_cast<int>(colour >> 16 & 0xFFU));
}

std::uint32_t WordOf(const QColor& colour) {
  return static_cast<std::uint32_t>(colour.red()) |
         static_cast<std::uint32_t>(colour.green()) << 8 |
         static_cast<std::uint32_t>(colour.blue()) << 16;
}

}  // namespace

LabelDialog::LabelDialog(Prompts& prompts, const Label& preset, bool exists, QWidget* parent)
    : FormDialog(prompts, QStringLiteral("Label entry"), parent), label_(preset) {
  AddText();
  AddLooks();
  if (exists) {
    AddButtons({{Tr("Delete"), [this] {
                   removed_ = true;
                   done(QDialog::Accepted);  // whatever the fields hold
                 }}});
  } else {
    AddButtons();
  }
  text_->setText(Shown(preset.text));
  text_->selectAll();
  alignment_->button(std::clamp<std::int32_t>(preset.alignment, kAlignLeft, kAlignRight))
      ->setChecked(true);
  line_->setChecked(preset.flag != 0);
  ShowLooks();
}

void LabelDialog::AddText() {
  QFormLayout* const form = AddGroup({});
  form->setRowWrapPolicy(QFormLayout::WrapAllRows);
  text_ = new QLineEdit(this);
  text_->setMinimumWidth(kTextWidth);
  AddField(form, QStringLiteral("Enter Label (255 characters maximum):"), text_);
  connect(text_, &QLineEdit::textEdited, this, [this] { KeepToLimit(); });
}

void LabelDialog::AddLooks() {
  QFormLayout* const justification = AddGroup(QStringLiteral("Justification"));
  alignment_ =
      AddChoice(justification, {},
                {QStringLiteral("Left"), QStringLiteral("Center"), QStringLiteral("Right")});
  QFormLayout* const looks = AddGroup({});
  line_ = AddSwitch(looks, QStringLiteral("Add line"));
  font_ = new QPushButton(WithMnemonic(QStringLiteral("Font")), this);
  colour_ = new QPushButton(WithMnemonic(QStringLiteral("Color")), this);
  font_->setAutoDefault(false);
  colour_->setAutoDefault(false);
  auto* const row = new QHBoxLayout;
  row->addWidget(font_);
  row->addWidget(colour_);
  row->addStretch();
  looks->addRow(row);
  connect(font_, &QPushButton::clicked, this, [this] { ChooseFont(); });
  connect(colour_, &QPushButton::clicked, this, [this] { ChooseColour(); });
}

void LabelDialog::ChooseFont() {
  bool chosen = false;
  const QFont font =
      QFontDialog::getFont(&chosen, FontOf(label_.font), this, QStringLiteral("Font"));
  if (!chosen) return;
  label_.font = DescriptionOf(font, label_.font);
  ShowLooks();
}

void LabelDialog::ChooseColour() {
  const QColor colour =
      QColorDialog::getColor(ColourOf(label_.colour), this, QStringLiteral("Color"));
  if (!colour.isValid()) return;
  label_.colour = WordOf(colour);
  ShowLooks();
}

void LabelDialog::KeepToLimit() {
  const std::string typed = Typed(text_->text());
  const std::string_view kept = CutText(typed, kMaxLabelBytes);
  if (kept.size() == typed.size()) return;
  const int cursor = text_->cursorPosition();
  text_->setText(Shown(kept));
  text_->setCursorPosition(std::min<int>(cursor, static_cast<int>(text_->text().size())));
}

void LabelDialog::ShowLooks() {
  const QString face = Shown(label_.font.faceName());
  // A tooltip has no format of plain text: a name that looks like markup would be taken for it.
  font_->setToolTip(QStringLiteral("<span>%1</span>")
                        .arg(Tr("%1, %2 pixels"))
                        .arg(face.toHtmlEscaped())
                        .arg(label_.font.height()));
  QPixmap swatch(kSwatch, kSwatch);
  swatch.fill(ColourOf(label_.colour));
  colour_->setIcon(swatch);
}

Label LabelDialog::Entered() const {
  Label entered = label_;
  entered.text = std::string(CutText(Typed(text_->text()), kMaxLabelBytes));
  entered.alignment = alignment_->checkedId();
  entered.flag = line_->isChecked() ? 1 : 0;
  return entered;
}

}  // namespace cantorix
