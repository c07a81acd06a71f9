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

#include "desktop/dialogs/number_field.h"
#include "desktop/dialogs/print_size_group.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace cantorix {

class Prompts;

class FormDialog : public QDialog {
 public:
  FormDialog(Prompts& prompts, const QString& title, QWidget* parent);

  // OK: the first field that cannot be taken, then Refusal(), keeps the dialog open.
  void accept() override;

 protected:
  // The message that keeps the dialog open although every field by itself can be taken.
  virtual std::optional<std::string> Refusal() const { return std::nullopt; }

  // Below what is there already, or in a further column.
  QFormLayout* AddGroup(const QString& title);
  void BeginColumn();
  QVBoxLayout* column() { return column_; }

  WholeField* AddWhole(QFormLayout* form, const QString& label, WholeLimits limits);
  DecimalField* AddDecimal(QFormLayout* form, const QString& label, DecimalLimits limits);
  QCheckBox* AddSwitch(QFormLayout* form, const QString& text);
  // A switch with a number that counts only while it is on.
  struct SwitchedWhole {
    QCheckBox* on;
    WholeField* value;
  };
  SwitchedWhole AddSwitchedWhole(QFormLayout* form, const QString& text, WholeLimits limits);
  // A row of two numbers: "LABEL [low] to [high]".
  struct WholePair {
    WholeField* low;
    WholeField* high;
  };
  WholePair AddRange(QFormLayout* form, const QString& label, WholeLimits limits);
  // Buttons of which one is down, in a row; a group gives the index of that one.
  QButtonGroup* AddChoice(QFormLayout* form, const QString& label, const QStringList& texts);
  // "Width", "Height" and their unit.
  PrintSizeGroup AddPrintSize(QFormLayout* form, PrintUnits units);
  void AddNote(QFormLayout* form, const QString& text);
  // A field that is made elsewhere, with its label.
  void AddField(QFormLayout* form, const QString& label, QWidget* field);

  // OK and Cancel, always last; `extra` texts a further button with what it does.
  void AddButtons(const QString& extra = {}, std::function<void()> onExtra = {});

  // `text` with an ampersand before a letter that no other row of the dialog uses.
  QString WithMnemonic(const QString& text);
  void Check(CheckedField* field) { checked_.push_back(field); }
  Prompts& prompts() { return prompts_; }

 private:
  Prompts& prompts_;
  QVBoxLayout* outer_;
  QHBoxLayout* columns_;
  QVBoxLayout* column_ = nullptr;
  std::vector<CheckedField*> checked_;  // in the order in which OK asks them
  QString usedLetters_;
};

}  // namespace cantorix
