// tool_frame.cpp - the place taken when shown and remembered when moved.
#include "desktop/tool_frame.h"

namespace cantorix {

ToolFrame::ToolFrame(QWidget* owner, WindowPlacement& placement)
    : QWidget(owner, Qt::Tool), placement_(placement) {}

void ToolFrame::showEvent(QShowEvent* event) {
  if (!placed_) {
    const bool stored = placement_.width > 0 && placement_.height > 0;
    setGeometry(stored ? QRect(placement_.x, placement_.y, placement_.width, placement_.height)
                       : DefaultPlace());
    placed_ = true;
  }
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

void ToolFrame::Remember() {
  if (!placed_ || !isVisible()) return;
  const QRect place = geometry();
  placement_ = {place.x(), place.y(), place.width(), place.height()};
}

}  // namespace cantorix
