// tiers_dialog.h - "Tiers Option": which of the ten tiers are in use, their names and heights.
#pragma once

#include <array>

#include "desktop/dialogs/form_dialog.h"
#include "desktop/dialogs/number_field.h"
#include "document/tier.h"
#include "mainview/dialog_answers.h"
#include "mainview/view_dialogs.h"

class QGridLayout;

namespace cantorix {

class TiersDialog : public FormDialog {
 public:
  TiersDialog(Prompts& prompts, const TierSetups& preset, QWidget* parent);

  TierSetups Entered() const;

 private:
  struct Line {
    TierSetup preset;
    QCheckBox* inUse = nullptr;
    QLineEdit* name = nullptr;
    NumberField* height = nullptr;
  };
  std::optional<FormAnswer> Refusal() const override;
  Line AddLine(QGridLayout& grid, int tier, const TierSetup& preset);

  std::array<Line, kTierCount> lines_;
};

}  // namespace cantorix
