// command_keys.h - lets the accelerators of commands through the text fields of floating windows. A
// line edit takes Ctrl+U and Ctrl+E for itself; what edits its text (copy, cut, paste, select all,
// undo) stays with it.
#pragma once

#include <QObject>

namespace cantorix {

class CommandKeys : public QObject {
 public:
  // Watches the text fields that `window` has now; belongs to it.
  explicit CommandKeys(QWidget& window);

  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace cantorix
