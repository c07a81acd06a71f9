// option_dialog.h - a dialog made of a table of rows: each row is filled from its members of the
// settings, judged, read back into them and restored.
#pragma once

#include <vector>

#include "desktop/dialogs/form_dialog.h"
#include "desktop/dialogs/number_field.h"
#include "settings/option_forms.h"

class QAbstractButton;
class QComboBox;
class QLabel;

namespace cantorix {

template <typename S>
struct OptionValues {
  S preset;                 // what the dialog shows first; what no row holds is given back from it
  S defaults{};             // what its button restores
  double rateHz = 11025.0;  // of the recording
};

// Exists for every struct that option_forms.h has a form of.
template <typename S>
class OptionDialog : public FormDialog {
 public:
  // `form` outlives the dialog.
  OptionDialog(Prompts& prompts, const OptionForm<S>& form, OptionValues<S> values,
               QWidget* parent);

  // The preset with what the rows hold. A number out of use is never refused: what cannot be taken
  // keeps its preset.
  S Entered() const;

 private:
  struct Line {
    const OptionRow<S>* row;
    QCheckBox* on = nullptr;
    QButtonGroup* choice = nullptr;
    NumberField* number = nullptr;
    QComboBox* sizes = nullptr;
    double filledFrom = 0.0;  // the setting that the number shows
  };
  struct Remark {
    std::string (*text)(const S& entered, double rateHz);
    QLabel* label;
  };
  std::optional<FormAnswer> Refusal() const override;
  void AddLines(QFormLayout* form, std::span<const OptionRow<S>> rows);
  void AddLine(QFormLayout* form, Line& line);
  void AddBeside(QFormLayout* form, Line& first, Line& second);
  void AddTwoButtons(QFormLayout* form, Line& line);
  void AddSizes(QFormLayout* form, Line& line);
  void Fill(Line& line, const S& settings);
  // What the number of a line shows of the setting that it was filled from.
  double ShownOf(const Line& line) const;
  // False where a number in use cannot be taken.
  bool Read(const Line& line, S& entered) const;
  void ShowUse();
  void AddRestoring(const OptionForm<S>& form);
  void Restore(bool sizeOnly);
  // Fills what is suggested for the recording; what was typed elsewhere stays.
  void Suggest(S (*suggested)(S entered, double rateHz));

  OptionValues<S> values_;
  std::vector<Line> lines_;
  std::vector<Remark> remarks_;
};

}  // namespace cantorix
