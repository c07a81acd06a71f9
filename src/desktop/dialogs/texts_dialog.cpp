// texts_dialog.cpp - a line for each text, and a note below them.
#include "desktop/dialogs/texts_dialog.h"

#include <QFormLayout>
#include <QLineEdit>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "mainview/dialog_answers.h"

namespace cantorix {
namespace {

constexpr int kFieldWidth = 320;  // logical pixels

}  // namespace

TextsDialog::TextsDialog(Prompts& prompts, const TextsQuestion& question, QWidget* parent)
    : FormDialog(prompts, Translated(question.title), parent) {
  QFormLayout* const form = AddGroup({});
  form->setRowWrapPolicy(QFormLayout::WrapAllRows);
  for (const TextField& field : question.fields) {
    auto* const text = new QLineEdit(Shown(field.preset), this);
    text->setMinimumWidth(kFieldWidth);
    text->selectAll();
    AddField(form, Translated(field.label), text);
    fields_.push_back(text);
  }
  if (!question.note.empty()) AddNote(form, Translated(question.note));
  AddButtons();
  if (!fields_.empty()) fields_.front()->setFocus();
}

std::vector<std::string> TextsDialog::Entered() const {
  std::vector<std::string> texts;
  for (const QLineEdit* const field : fields_) texts.push_back(Typed(field->text()));
  return texts;
}

}  // namespace cantorix
