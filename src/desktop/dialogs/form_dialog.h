// form_dialog.h - what the dialogs of the program share: groups of labelled fields with a keyboard
// mnemonic each, the buttons at the bottom, and an OK that refuses with a message and leaves the
// dialog open with its values as typed.
#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QFormLayout;
class QHBoxLayout;
class QLineEdit;
class QVBoxLayout;

namespace cantorix {

class Prompts;

// What OK answers instead of closing, and the field that it is about, if it is about one.
struct FormAnswer {
  std::string message;
  QLineEdit* field = nullptr;
};

// A button beside OK and Cancel.
struct FormButton {
  QString text;
  std::function<void()> act;
};

class FormDialog : public QDialog {
 public:
  FormDialog(Prompts& prompts, const QString& title, QWidget* parent);

  // OK: closes unless Refusal() has something to say.
  void accept() override;

 protected:
  virtual std::optional<FormAnswer> Refusal() const { return std::nullopt; }

  // Below what is there already, or in a further column.
  QFormLayout* AddGroup(const QString& title);
  void BeginColumn();

  // A field that is made elsewhere, with its label.
  void AddField(QFormLayout* form, const QString& label, QWidget* field);
  QCheckBox* AddSwitch(QFormLayout* form, const QString& text);
  // Buttons of which one is down, in a row; a group gives the index of that one.
  QButtonGroup* AddChoice(QFormLayout* form, const QString& label, const QStringList& texts);
  void AddNote(QFormLayout* form, const QString& text);

  // OK and Cancel with further ones, and a line of text below, always last.
  void AddButtons(const std::vector<FormButton>& further = {}, const QString& text = {});

  // `text` with an ampersand before a letter that no other row of the dialog uses.
  QString WithMnemonic(const QString& text);
  // A label as a screen reader is to say it: without its equals sign and blanks around it.
  static QString SpokenName(QString label);

 private:
  Prompts& prompts_;
  QVBoxLayout* outer_;
  QHBoxLayout* columns_;
  QVBoxLayout* column_ = nullptr;
  QString usedLetters_;
};

}  // namespace cantorix
