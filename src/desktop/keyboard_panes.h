// keyboard_panes.h - the three panes at the right of the status bar: which of Caps Lock, Num Lock
// and Scroll Lock are on.
#pragma once

#include <QTimer>
#include <array>
#include <string>

class QLabel;
class QStatusBar;

namespace cantorix {

// Whether a keyboard's lamp called `lamp` ("capslock", "numlock", "scrolllock") is lit, by the
// folder in which the kernel lists them.
bool IsLampLit(const std::string& ledFolder, const std::string& lamp);

class KeyboardPanes {
 public:
  explicit KeyboardPanes(QStatusBar& bar);

  void Refresh();

 private:
  struct Pane {
    const char* lamp;
    QLabel* text;
  };
  std::array<Pane, 3> panes_;
  QTimer timer_;
};

}  // namespace cantorix
