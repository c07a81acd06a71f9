// label_dialog.h - "Label entry": a label's text and looks.
#pragma once

#include "desktop/dialogs/form_dialog.h"
#include "document/label.h"

class QPushButton;

namespace cantorix {

class LabelDialog : public FormDialog {
 public:
  // `exists`: the label is in a tier already, so that Delete is offered.
  LabelDialog(Prompts& prompts, const Label& preset, bool exists, QWidget* parent);

  Label Entered() const;
  bool removed() const { return removed_; }

 private:
  void AddText();
  void AddLooks();
  void ChooseFont();
  void ChooseColour();
  // Shortens the text at a character border to what a label holds.
  void KeepToLimit();
  void ShowLooks();

  Label label_;  // the preset, with font and colour as chosen
  bool removed_ = false;
  QLineEdit* text_;
  QPushButton* font_;
  QPushButton* colour_;
  QButtonGroup* alignment_;
  QCheckBox* line_;
};

}  // namespace cantorix
