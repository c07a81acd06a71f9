// texts_dialog.h - a small dialog of text fields, whose texts mean what the question says.
#pragma once

#include <string>
#include <vector>

#include "desktop/dialogs/form_dialog.h"

namespace cantorix {

struct TextsQuestion;

class TextsDialog : public FormDialog {
 public:
  TextsDialog(Prompts& prompts, const TextsQuestion& question, QWidget* parent);

  // In the order of the fields.
  std::vector<std::string> Entered() const;

 private:
  std::vector<QLineEdit*> fields_;
};

}  // namespace cantorix
