// cached_picture.cpp - the image, and when it no longer fits.
#include "desktop/paint/cached_picture.h"

#include <cmath>

namespace cantorix {

void CachedPicture::Draw(QPainter& painter, PixelSize client,
                         const std::function<void(QPainter&)>& paint) {
  const double ratio = painter.device()->devicePixelRatioF();
  const QSize pixels(static_cast<int>(std::ceil(client.width * ratio)),
                     static_cast<int>(std::ceil(client.height * ratio)));
  if (pixels.isEmpty()) return;
  if (stale_ || image_.size() != pixels || image_.devicePixelRatio() != ratio) {
    stale_ = true;
    if (image_.size() != pixels) image_ = QImage(pixels, QImage::Format_RGB32);
    image_.setDevicePixelRatio(ratio);
    image_.fill(Qt::white);  // its last pixels may be only partly inside
    QPainter data(&image_);
    paint(data);
    stale_ = false;
  }
  painter.drawImage(QPointF(0.0, 0.0), image_);
}

}  // namespace cantorix
