// generic_dialog.h - "Generic File Selection": how a file of no known kind is read, with a picture
// of what would come out.
#pragma once

#include "desktop/dialogs/option_dialog.h"
#include "platform/generic_parameters.h"

class QLabel;

namespace cantorix {

// The waveform of an outcome from its first to its last sample, over the full range of a sample.
class OutcomeView : public QWidget {
 public:
  static constexpr int kColumns = 320;

  explicit OutcomeView(QWidget* parent);
  void Show(GenericOutcome outcome);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  GenericOutcome outcome_;
};

class GenericDialog : public OptionDialog<GenericParameters> {
 public:
  // `preview` outlives the dialog; it is asked whenever a field changes.
  GenericDialog(Prompts& prompts, const GenericParameters& preset, GenericPreview& preview,
                QWidget* parent);

 private:
  void Refresh();

  GenericPreview& preview_;
  OutcomeView* view_;
  QLabel* text_;
};

}  // namespace cantorix
