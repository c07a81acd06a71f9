// command_keys.cpp - the keys that a text field would swallow, claimed before it sees them.
#include "desktop/command_keys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace cantorix {
namespace {

bool EditsText(int key) {
  return key == Qt::Key_A || key == Qt::Key_C || key == Qt::Key_V || key == Qt::Key_X ||
         key == Qt::Key_Z;
}

bool BelongsToCommands(const QKeyEvent& event) {
  return event.modifiers() == Qt::ControlModifier && event.key() >= Qt::Key_A &&
         event.key() <= Qt::Key_Z && !EditsText(event.key());
}

}  // namespace

CommandKeys::CommandKeys(QWidget& window) : QObject(&window) {
  for (QLineEdit* const field : window.findChildren<QLineEdit*>()) field->installEventFilter(this);
}

bool CommandKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      BelongsToCommands(*static_cast<QKeyEvent*>(event))) {
    event->ignore();
    return true;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace cantorix
