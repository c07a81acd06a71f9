// window_picture.cpp - the kept image, and the same picture on other devices.
#include "desktop/windows/window_picture.h"

#include <cmath>

namespace cantorix {
namespace {

PixelSize ClientOf(QSize size) { return {size.width(), size.height()}; }

}  // namespace

void WindowPicture::LayOut(QSize size) { model_.plot = LayoutIn(ClientOf(size)).plot; }

void WindowPicture::PaintCanvas(QPainter& painter, QSize size, const PaintStyle& style) {
  const Key key{model_.revision(), size, painter.device()->devicePixelRatioF(),
                style.background.rgba()};
  if (image_.isNull() || !(key == key_)) Render(key, style);
  painter.drawImage(QPointF(0.0, 0.0), image_);
  PaintOverlay(painter, ClientOf(size), style);
}

void WindowPicture::PaintWhole(QPainter& painter, QSize size, const PaintStyle& style) {
  PaintData(painter, ClientOf(size), style);
  PaintOverlay(painter, ClientOf(size), style);
}

void WindowPicture::Render(const Key& key, const PaintStyle& style) {
  const QSizeF pixels = QSizeF(key.size) * key.pixelRatio;
  QImage image(static_cast<int>(std::ceil(pixels.width())),
               static_cast<int>(std::ceil(pixels.height())), QImage::Format_RGB32);
  image.setDevicePixelRatio(key.pixelRatio);
  if (image.isNull()) return;
  // Its last pixels may be only partly inside the canvas.
  image.fill(style.background);
  QPainter painter(&image);
  PaintData(painter, ClientOf(key.size), style);
  painter.end();
  image_ = image;
  key_ = key;
}

}  // namespace cantorix
