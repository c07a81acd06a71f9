// generic_dialog.h - "Generic File Selection": how a file of no known type is read.
#pragma once

#include "desktop/dialogs/form_dialog.h"
#include "platform/generic_parameters.h"

namespace cantorix {

class GenericDialog : public FormDialog {
 public:
  GenericDialog(Prompts& prompts, const GenericParameters& preset, QWidget* parent);

  GenericParameters Entered() const;

 private:
  WholeField* headerBytes_;
  WholeField* rateHz_;
  QButtonGroup* kind_;
  QButtonGroup* width_;
  QButtonGroup* order_;
};

}  // namespace cantorix
