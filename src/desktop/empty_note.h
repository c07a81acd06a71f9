// empty_note.h - a grey panel in the middle of a widget that has nothing to show, with a line that
// says what to do next and buttons that do it.
#pragma once

#include <QFrame>
#include <functional>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace cantorix {

class EmptyNote : public QFrame {
 public:
  // Stays in the middle of `over`.
  explicit EmptyNote(QWidget& over);

  void Say(const QString& text);
  // Buttons stand below each other, in the order of the Tab key.
  void AddButton(const QString& text, const std::function<void()>& act);
  void RemoveButtons();
  // Shown, or hidden.
  void ShowWhen(bool isEmpty);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  QWidget& over_;
  QLabel* text_;
  QVBoxLayout* column_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace cantorix
