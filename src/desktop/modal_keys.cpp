// modal_keys.cpp - the event filter of it.
#include "desktop/modal_keys.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace cantorix {
namespace {

bool IsHeldBack(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::DragEnter:
      return true;
    default:
      return false;
  }
}

// The receiver itself, or whose it is: an action has the widget that it was made for.
const QWidget* WidgetOf(const QObject* receiver) {
  while (receiver != nullptr && !receiver->isWidgetType()) receiver = receiver->parent();
  return static_cast<const QWidget*>(receiver);
}

bool BelongsTo(const QWidget* widget, const QWidget& dialog) {
  while (widget != nullptr && widget != &dialog) widget = widget->parentWidget();
  return widget != nullptr;
}

}  // namespace

ModalKeys::ModalKeys() { QCoreApplication::instance()->installEventFilter(this); }

bool ModalKeys::eventFilter(QObject* receiver, QEvent* event) {
  if (!IsHeldBack(event->type())) return false;
  const QWidget* const dialog = QApplication::activeModalWidget();
  const QWidget* const widget = WidgetOf(receiver);
  if (dialog == nullptr || widget == nullptr) return false;
  // A list that a field of the dialog opens need not be its own, and hands on what it is given,
  // even when it has closed meanwhile.
  return widget->window()->windowType() != Qt::Popup && !BelongsTo(widget, *dialog);
}

}  // namespace cantorix
