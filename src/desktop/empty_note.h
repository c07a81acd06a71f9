// empty_note.h - a grey panel over a widget that has nothing to show, or nothing new, with a line
// that says what to do next and buttons that do it.
#pragma once

#include <QFrame>
#include <functional>
#include <vector>

class QBoxLayout;
class QLabel;
class QPushButton;

namespace cantorix {

class EmptyNote : public QFrame {
 public:
  enum class At {
    kMiddle,  // buttons below the line
    kTop,     // beside it, so that what is shown below stays in sight
  };
  // Stays where it is in `over`, whatever its size; over a table or list, in the room of its rows.
  explicit EmptyNote(QWidget& over, At at = At::kMiddle);

  void Say(const QString& text);
  QString text() const;
  // In the order of the Tab key.
  void AddButton(const QString& text, const std::function<void()>& act);
  void RemoveButtons();
  // Shown, or hidden.
  void ShowWhen(bool isEmpty);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  QWidget& room_;  // `over`, or its viewport
  At at_;
  QLabel* text_;
  QBoxLayout* parts_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace cantorix
