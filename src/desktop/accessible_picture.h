// accessible_picture.h - pictures for assistive technology: a widget that draws one tells it in
// words, and the parts of it that are no widgets stand in the accessible tree below it.
#pragma once

#include <QRect>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <vector>

namespace cantorix {

class AccessiblePicture {
 public:
  struct Part {
    QString name, value;
    QRect place;  // in the widget, logical pixels
  };

  // `widget` is the one that inherits this.
  explicit AccessiblePicture(QWidget* widget);
  virtual ~AccessiblePicture() = default;
  AccessiblePicture(const AccessiblePicture&) = delete;
  AccessiblePicture& operator=(const AccessiblePicture&) = delete;

  // What is drawn, or what is under the pointer once that has rested.
  QString AccessibleValue() { return pointed_.isEmpty() ? PictureValue() : pointed_; }
  virtual std::vector<Part> AccessibleParts() { return {}; }

  // Under the pointer, in any window of the recording; empty: nothing.
  void SayPointed(const QString& line);
  // Tells who listens that the value is another one.
  void ValueChanged();

 protected:
  virtual QString PictureValue() = 0;

 private:
  QWidget* widget_;
  QTimer rest_;
  QString coming_, pointed_;
};

// Whoever asks for the tree of a window finds pictures in it. Once is enough, more do no harm.
void MakePicturesAccessible();

}  // namespace cantorix
