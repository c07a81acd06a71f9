// tool_frame.h - a floating window over the main frame that keeps its place between runs.
#pragma once

#include <QWidget>

#include "settings/application_settings.h"

namespace cantorix {

class ToolFrame : public QWidget {
 public:
  // `placement` is kept up to date while the window is moved and sized; it outlives the window.
  ToolFrame(QWidget* owner, WindowPlacement& placement);

 protected:
  // The place of the first time, when none is stored.
  virtual QRect DefaultPlace() const = 0;

  void showEvent(QShowEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Remember();

  WindowPlacement& placement_;
  bool placed_ = false;
};

}  // namespace cantorix
