// pointer_status.h - two texts in the status bar: the values under the pointer on the left, what
// the view in front shows on the right.
#pragma once

#include <string>

class QLabel;
class QStatusBar;

namespace cantorix {

class PointerStatus {
 public:
  explicit PointerStatus(QStatusBar& bar);

  // UTF-8; empty: nothing.
  void ShowPointed(const std::string& text);
  void ShowStretch(const std::string& text);

 private:
  QLabel* pointed_;
  QLabel* stretch_;
};

}  // namespace cantorix
