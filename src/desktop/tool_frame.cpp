// tool_frame.cpp - the place taken when shown and remembered when moved.
#include "desktop/tool_frame.h"

#include "desktop/window_place.h"

namespace cantorix {

ToolFrame::ToolFrame(QWidget* owner, WindowPlacement& placement)
    : QWidget(owner, Qt::Tool), placement_(placement) {}

void ToolFrame::showEvent(QShowEvent* event) {
  if (!placed_) {
    const auto stored = PlaceOf(placement_);
    setGeometry(stored ? *stored : DefaultPlace());
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
  if (placed_ && isVisible()) placement_ = PlacementOf(geometry());
}

}  // namespace cantorix
