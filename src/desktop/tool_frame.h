// tool_frame.h - a floating window over the main frame that keeps its place between runs. Some can
// be docked: they stand at an edge of the main frame then and take their room from the recordings,
// which they cover no more.
#pragma once

#include <QWidget>

#include "settings/application_settings.h"

class QDockWidget;
class QPushButton;

namespace cantorix {

class ToolFrame : public QWidget {
 public:
  // `placement` is kept up to date while the window is moved and sized; it outlives the window.
  ToolFrame(QWidget* owner, WindowPlacement& placement);

  bool isDocked() const { return dock_ != nullptr; }
  // Of a main window. Stays shown or hidden. For as long as the program runs; the next run begins
  // with it floating.
  void Dock(bool docked);
  void setVisible(bool visible) override;

 protected:
  // The place of the first time, when none is stored.
  virtual QRect DefaultPlace() const = 0;
  // Where it is docked at first; the user may drag it to another edge.
  virtual Qt::DockWidgetArea DockArea() const { return Qt::RightDockWidgetArea; }
  // Docks and lets go, for whoever has a row of buttons.
  QPushButton* MakeDockButton();

  void showEvent(QShowEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Remember();
  void EnterDock();
  void LeaveDock();
  void TakePlace();
  void GiveMnemonics(bool give);

  QWidget& owner_;
  WindowPlacement& placement_;
  QDockWidget* dock_ = nullptr;
  QPushButton* dockButton_ = nullptr;
  bool placed_ = false;
};

}  // namespace cantorix
