// tool_frame.cpp - the place taken when shown and remembered when moved, and the dock.
#include "desktop/tool_frame.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QDockWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QSignalBlocker>
#include <utility>

#include "desktop/paint/words.h"
#include "desktop/window_place.h"

namespace cantorix {
namespace {

// Pixels that a docked window takes at first.
constexpr int kDockedHeight = 150;
constexpr int kDockedWidth = 340;

// Its button asks the window in it to close, which may refuse.
class ToolDock : public QDockWidget {
 public:
  explicit ToolDock(ToolFrame& frame) : frame_(frame) {
    setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    setWidget(&frame);
  }

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    frame_.close();
  }

 private:
  ToolFrame& frame_;
};

}  // namespace

ToolFrame::ToolFrame(QWidget* owner, WindowPlacement& placement)
    : QWidget(owner, Qt::Tool), owner_(*owner), placement_(placement) {}

void ToolFrame::Dock(bool docked) {
  if (docked == isDocked()) return;
  const bool wasVisible = isVisible();
  docked ? EnterDock() : LeaveDock();
  GiveMnemonics(!docked);
  setVisible(wasVisible);
  if (dockButton_ == nullptr) return;
  const QSignalBlocker quiet(dockButton_);
  dockButton_->setChecked(docked);
}

void ToolFrame::EnterDock() {
  dock_ = new ToolDock(*this);
  dock_->setWindowTitle(windowTitle());
  dock_->setWindowModified(isWindowModified());
  auto& main = dynamic_cast<QMainWindow&>(owner_);
  main.addDockWidget(DockArea(), dock_);
  main.resizeDocks({dock_}, {kDockedHeight}, Qt::Vertical);
  main.resizeDocks({dock_}, {kDockedWidth}, Qt::Horizontal);
}

// The button that was pressed may still be at work within the dock.
void ToolFrame::LeaveDock() {
  QDockWidget* const left = std::exchange(dock_, nullptr);
  setParent(&owner_, Qt::Tool);
  dynamic_cast<QMainWindow&>(owner_).removeDockWidget(left);
  left->deleteLater();
  TakePlace();
}

// In the main frame the letters with Alt are those of its menus.
void ToolFrame::GiveMnemonics(bool give) {
  for (QAbstractButton* const button : findChildren<QAbstractButton*>()) {
    button->setShortcut(give ? QKeySequence::mnemonic(button->text()) : QKeySequence());
  }
}

void ToolFrame::setVisible(bool visible) {
  QWidget::setVisible(visible);
  if (isDocked()) dock_->setVisible(visible);
}

QPushButton* ToolFrame::MakeDockButton() {
  dockButton_ = new QPushButton(Tr("D&ock"), this);
  dockButton_->setCheckable(true);
  dockButton_->setToolTip(Tr("At an edge of the main window, where it covers no recording"));
  connect(dockButton_, &QPushButton::toggled, this, [this](bool docked) { Dock(docked); });
  return dockButton_;
}

void ToolFrame::TakePlace() {
  const auto stored = PlaceOf(placement_);
  setGeometry(stored ? *stored : DefaultPlace());
  placed_ = true;
}

void ToolFrame::showEvent(QShowEvent* event) {
  if (!placed_ && !isDocked()) TakePlace();
  QWidget::showEvent(event);
}

void ToolFrame::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  Remember();
}

void ToolFrame::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Remember();
}

void ToolFrame::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (!isDocked()) return;
  if (event->type() == QEvent::WindowTitleChange) dock_->setWindowTitle(windowTitle());
  if (event->type() == QEvent::ModifiedChange) dock_->setWindowModified(isWindowModified());
}

void ToolFrame::Remember() {
  if (placed_ && isVisible() && !isDocked()) placement_ = PlacementOf(geometry());
}

}  // namespace cantorix
