// modal_keys.h - while a dialog waits for its answer, no key and no drop reaches what lies behind
// it. A window manager may give the keys to the window behind all the same, by a click: Ctrl+F4
// would then close the very recording that the dialog asks about.
#pragma once

#include <QObject>

namespace cantorix {

// From its making to its end, for all windows of the program.
class ModalKeys : public QObject {
 public:
  ModalKeys();

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace cantorix
