// cached_picture.h - what a window keeps of its picture while only its overlay changes.
#pragma once

#include <QImage>
#include <QPainter>
#include <functional>

#include "mainview/view_ports.h"

namespace cantorix {

class CachedPicture {
 public:
  // Something that the picture shows has changed.
  void Invalidate() { stale_ = true; }

  // Draws what `paint` painted last for this size and the resolution of the painter's device; calls
  // it, with an opaque image to cover, when that is out of date. What it throws comes through, and
  // the picture stays out of date.
  void Draw(QPainter& painter, PixelSize client, const std::function<void(QPainter&)>& paint);

 private:
  QImage image_;
  bool stale_ = true;
};

}  // namespace cantorix
