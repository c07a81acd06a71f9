// desk_window.cpp - every move that ends somewhere else than the program wanted was the user's.
#include "desktop/desk_window.h"

#include <QAction>
#include <QMenu>
#include <QScopedValueRollback>

#include "desktop/window_place.h"

namespace cantorix {

void CloseByItsOwnKey(QMdiSubWindow& window) {
  const QList<QAction*> entries = window.systemMenu()->actions();
  for (QAction* const entry : entries) entry->setShortcut({});
  entries.last()->setShortcut(QKeySequence(QStringLiteral("Ctrl+F4")));
}

DeskWindow::DeskWindow(WindowPlacement& placement) : placement_(placement) {
  setAttribute(Qt::WA_DeleteOnClose);
  CloseByItsOwnKey(*this);
}

void DeskWindow::Give(const QRect& place) {
  const QScopedValueRollback giving(isGiving_, true);
  given_ = QRect(place.topLeft(), place.size().expandedTo(minimumSizeHint()));
  if (isMaximized() || isMinimized()) showNormal();
  setGeometry(*given_);
}

void DeskWindow::moveEvent(QMoveEvent* event) {
  QMdiSubWindow::moveEvent(event);
  Follow();
}

void DeskWindow::resizeEvent(QResizeEvent* event) {
  QMdiSubWindow::resizeEvent(event);
  Follow();
}

void DeskWindow::Follow() {
  if (!isVisible() || isMaximized() || isMinimized() || isGiving_ || LiesAsGiven()) return;
  given_.reset();
  placement_ = PlacementOf(geometry());
  if (chosen) chosen();
}

}  // namespace cantorix
