// form_dialog.cpp - rows are made so that a screen reader finds the label of every field.
#include "desktop/dialogs/form_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/prompts.h"

namespace cantorix {

FormDialog::FormDialog(Prompts& prompts, const QString& title, QWidget* parent)
    : QDialog(parent),
      prompts_(prompts),
      outer_(new QVBoxLayout(this)),
      columns_(new QHBoxLayout),
      usedLetters_(QStringLiteral("oc")) {  // of OK and Cancel
  setWindowTitle(title);
  outer_->setSizeConstraint(QLayout::SetFixedSize);
  outer_->addLayout(columns_);
  columns_->setSpacing(12);
  BeginColumn();
}

void FormDialog::accept() {
  const auto refusal = Refusal();
  if (!refusal) return QDialog::accept();
  prompts_.Message(refusal->message);
  if (refusal->field == nullptr) return;
  refusal->field->setFocus();
  refusal->field->selectAll();
}

void FormDialog::BeginColumn() {
  if (column_ != nullptr) column_->addStretch();
  column_ = new QVBoxLayout;
  columns_->addLayout(column_);
}

QFormLayout* FormDialog::AddGroup(const QString& title) {
  auto* const box = new QGroupBox(title, this);
  auto* const form = new QFormLayout(box);
  form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  column_->addWidget(box);
  return form;
}

void FormDialog::AddField(QFormLayout* form, const QString& label, QWidget* field) {
  field->setAccessibleName(SpokenName(label));
  auto* const text = new QLabel(WithMnemonic(label), this);
  text->setBuddy(field);
  form->addRow(text, field);
}

QCheckBox* FormDialog::AddSwitch(QFormLayout* form, const QString& text) {
  auto* const box = new QCheckBox(WithMnemonic(text), this);
  box->setAccessibleName(SpokenName(text));
  form->addRow(box);
  return box;
}

QButtonGroup* FormDialog::AddChoice(QFormLayout* form, const QString& label,
                                    const QStringList& texts) {
  auto* const row = new QWidget(this);
  auto* const line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  auto* const group = new QButtonGroup(row);
  for (const QString& text : texts) {
    auto* const button = new QRadioButton(WithMnemonic(text), row);
    button->setAccessibleName(SpokenName(text));
    group->addButton(button, static_cast<int>(group->buttons().size()));
    line->addWidget(button);
  }
  line->addStretch();
  row->setAccessibleName(SpokenName(label));
  if (label.isEmpty()) {
    form->addRow(row);
  } else {
    form->addRow(label, row);
  }
  return group;
}

void FormDialog::AddNote(QFormLayout* form, const QString& text) {
  auto* const note = new QLabel(text, this);
  note->setTextFormat(Qt::PlainText);
  form->addRow(note);
}

void FormDialog::AddButtons(const std::vector<FormButton>& further, const QString& text) {
  column_->addStretch();
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  for (const FormButton& added : further) {
    QPushButton* const button =
        buttons->addButton(WithMnemonic(added.text), QDialogButtonBox::ResetRole);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, added.act);
  }
  outer_->addWidget(buttons);
  if (!text.isEmpty()) outer_->addWidget(new QLabel(text, this));
}

QString FormDialog::SpokenName(QString label) {
  label.remove('&');
  while (label.endsWith(' ') || label.endsWith('=')) label.chop(1);
  return label.simplified();
}

QString FormDialog::WithMnemonic(const QString& text) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar letter = text[i].toLower();
    if (!letter.isLetter() || usedLetters_.contains(letter)) continue;
    usedLetters_ += letter;
    return QString(text).insert(i, '&');
  }
  return text;
}

}  // namespace cantorix
