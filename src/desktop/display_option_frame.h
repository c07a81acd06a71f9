// display_option_frame.h - the floating window that chooses what the main view draws. A change
// works at once on the document in front and goes into the configuration file.
#pragma once

#include <QWidget>
#include <vector>

#include "desktop/frame_host.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QSpinBox;

namespace cantorix {

struct DisplaySettings;

class CDisplayOptionFrame : public QWidget {
 public:
  CDisplayOptionFrame(QWidget* owner, FrameHost& host);

  // Shows the settings of a view's document; null: there is none, and nothing can be changed.
  void Follow(CSonadexView* view);

  struct Switch {
    QCheckBox* box;
    std::int32_t DisplaySettings::*field;
  };
  const std::vector<Switch>& switches() const { return switches_; }
  QSpinBox& audioPercent() { return *audioPercent_; }
  QSpinBox& pitchPercent() { return *pitchPercent_; }
  QButtonGroup& timeBase() { return *timeBase_; }
  QDoubleSpinBox& printWidth() { return *printWidth_; }
  QDoubleSpinBox& printHeight() { return *printHeight_; }
  QComboBox& printUnit() { return *printUnit_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void AddDrawing(QWidget* parent);
  void AddTime(QWidget* parent);
  void AddBehaviour(QWidget* parent);
  void AddPrintSize(QWidget* parent);
  void AddSwitch(QWidget* group, const QString& text, std::int32_t DisplaySettings::*field);
  QSpinBox* AddPercent(QFormLayout* form, const QString& text,
                       std::int32_t DisplaySettings::*field);
  QDoubleSpinBox* AddLength(QFormLayout* form, const QString& text, double DisplaySettings::*field);
  // What the user changed goes into the document in front and, with its group, into the file.
  template <typename Value>
  void Set(Value DisplaySettings::*field, Value value);

  FrameHost& host_;
  CSonadexView* view_ = nullptr;
  std::vector<Switch> switches_;
  QSpinBox* audioPercent_;
  QSpinBox* pitchPercent_;
  QButtonGroup* timeBase_;
  QDoubleSpinBox* printWidth_;
  QDoubleSpinBox* printHeight_;
  QComboBox* printUnit_;
  bool filling_ = false;
  bool placed_ = false;
};

}  // namespace cantorix
