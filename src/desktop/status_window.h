// status_window.h - the floating window with the status text and the bar of a long operation.
#pragma once

#include <QFrame>

class QLabel;
class QProgressBar;

namespace cantorix {

class CStatusWindow : public QFrame {
 public:
  explicit CStatusWindow(QWidget* owner);

  // Shows `text`; a `totalUnits` that is not positive or not finite gives an empty bar.
  void ShowText(const QString& text, double totalUnits);
  void SetDone(double doneUnits);

  QString Text() const;
  int Percent() const;

 private:
  void CentreOverOwner();

  QWidget* owner_;
  QLabel* text_;
  QProgressBar* bar_;
  double totalUnits_ = 0.0;
};

}  // namespace cantorix
