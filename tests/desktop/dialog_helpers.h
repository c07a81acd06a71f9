// dialog_helpers.h - dialogs used as a user would: fields by what a screen reader says, texts
// typed, buttons pressed.
#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
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

// Waits until a dialog of this kind stands in front, then uses it; it is closed afterwards.
template <typename Dialog>
class DialogUser {
 public:
  explicit DialogUser(std::function<void(Dialog&)> use) {
    QObject::connect(&timer_, &QTimer::timeout, [this, use = std::move(use)] {
      auto* const dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr || !dialog->isVisible()) return;
      timer_.stop();
      ++used;
      use(*dialog);
    });
    timer_.start(5);
  }
  int used = 0;

 private:
  QTimer timer_;
};

class DialogTest : public testing::Test {
 protected:
  // OK is pressed: the message that keeps the dialog open, or "" when it closed.
  std::string Ok(QDialog& dialog) {
    dialog.show();
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    const auto shown = prompts.TakeTranscript();
    EXPECT_EQ(shown.empty(), !dialog.isVisible());
    EXPECT_LE(shown.size(), 1U);
    return shown.empty() ? "" : shown[0].substr(std::string("message: ").size());
  }

  ScriptedPrompts prompts;
};

}  // namespace cantorix
