// hint_line.h - a line that says what does not fit the recording, with a button that mends it and
// one that ends the hints. It is there only while it has something to say.
#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QToolButton;

namespace cantorix {

class HintLine : public QWidget {
 public:
  struct Answers {
    std::function<void()> use;
    std::function<void()> close;
  };
  HintLine(Answers answers, QWidget* parent);

  // An empty text hides the line. The button says `use`.
  void Say(const QString& text, const QString& use);
  // Pixels in which the whole sentence stands beside its buttons.
  int NeededWidth() const;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void TakeColours();

  QLabel* text_;
  QToolButton* use_;
  bool isColouring_ = false;
};

}  // namespace cantorix
