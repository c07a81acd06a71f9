// window_picture.h - the picture of an analysis window, for its canvas and for paper and files.
#pragma once

#include <QPainter>
#include <QSize>

namespace cantorix {

struct PaintStyle;

class WindowPicture {
 public:
  virtual ~WindowPicture() = default;

  // Lays the picture out in `size` logical pixels and gives the window's model the place of its
  // plot.
  virtual void LayOut(QSize size) = 0;
  // Draws the picture as it was laid out, at the painter's origin. Throws FileError when samples
  // that it shows cannot be read.
  virtual void Paint(QPainter& painter, const PaintStyle& style) = 0;
};

}  // namespace cantorix
