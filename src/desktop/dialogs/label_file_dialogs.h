// label_file_dialogs.h - "Import Label File" and "Export Labels": in which format, and how.
#pragma once

#include <string>
#include <vector>

#include "desktop/dialogs/form_dialog.h"
#include "mainview/dialog_answers.h"

class QComboBox;

namespace cantorix {

class LabelFileDialog : public FormDialog {
 public:
  LabelFileDialog(Prompts& prompts, const LabelFileOptions& preset, QWidget* parent);

  LabelFileOptions Entered() const;

 private:
  LabelFileOptions preset_;
  QComboBox* format_;
  QCheckBox* emptyIntervals_;
};

class LabelExportDialog : public FormDialog {
 public:
  // `tierNames`: of the tiers in use, at least one.
  LabelExportDialog(Prompts& prompts, const std::vector<std::string>& tierNames,
                    const LabelFileOptions& preset, QWidget* parent);

  LabelExportAnswer Entered() const;

 private:
  // A format that holds only one of points and intervals leaves no choice.
  void OfferKinds();

  std::vector<std::string> tierNames_;
  LabelFileOptions preset_;
  QComboBox* format_;
  QComboBox* tier_;
  QButtonGroup* kind_;
};

}  // namespace cantorix
