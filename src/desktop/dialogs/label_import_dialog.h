// label_import_dialog.h - "Import a generic label file into a tier".
#pragma once

#include <string>
#include <vector>

#include "desktop/dialogs/form_dialog.h"
#include "mainview/view_dialogs.h"

class QComboBox;

namespace cantorix {

class LabelImportDialog : public FormDialog {
 public:
  // `tierNames`: of the tiers in use, at least one.
  LabelImportDialog(Prompts& prompts, const std::vector<std::string>& tierNames,
                    const LabelImportOptions& preset, QWidget* parent);

  LabelImportAnswer Entered() const;

 private:
  std::vector<std::string> tierNames_;
  QComboBox* tier_;
  QButtonGroup* unit_;
  QButtonGroup* alignment_;
  QCheckBox* line_;
};

}  // namespace cantorix
