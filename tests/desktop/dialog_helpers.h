// dialog_helpers.h - dialogs used as a user would: fields by what a screen reader says, texts
// typed, buttons pressed.
#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <string>

#include "desktop/qt_text.h"
#include "support/scripted_prompts.h"

namespace cantorix {

// The field whose label, or whose own text, is `label`.
template <typename Field>
Field* FieldOf(QDialog& dialog, const QString& label) {
  for (Field* const field : dialog.findChildren<Field*>()) {
    if (field->accessibleName() == label) return field;
  }
  throw std::runtime_error("no field " + Typed(label));
}

inline void Type(QDialog& dialog, const char* label, const char* text) {
  FieldOf<QLineEdit>(dialog, QString::fromUtf8(label))->setText(QString::fromUtf8(text));
}

// The button beside OK and Cancel.
inline void PressExtra(QDialog& dialog) {
  auto* const box = dialog.findChild<QDialogButtonBox*>();
  for (QAbstractButton* const button : box->buttons()) {
    if (box->buttonRole(button) == QDialogButtonBox::ResetRole) return button->click();
  }
  throw std::runtime_error("no further button");
}

class DialogTest : public testing::Test {
 protected:
  // OK is pressed: the message that keeps the dialog open, or "" when it closed.
  std::string Ok(QDialog& dialog) {
    dialog.show();
    dialog.accept();
    const auto shown = prompts.TakeTranscript();
    EXPECT_EQ(shown.empty(), !dialog.isVisible());
    EXPECT_LE(shown.size(), 1U);
    return shown.empty() ? "" : shown[0].substr(std::string("message: ").size());
  }

  ScriptedPrompts prompts;
};

}  // namespace cantorix
