// window_picture.cpp - the kept image, and the same picture on other devices.
#include "desktop/windows/window_picture.h"

#include <cmath>

#include "desktop/paint/window_strips.h"

namespace cantorix {
namespace {

PixelSize ClientOf(QSize size) { return {size.width(), size.height()}; }

}  // namespace

void WindowPicture::LayOut(QSize size) { model_.plot = LayoutIn(ClientOf(size)).plot; }

void WindowPicture::PaintCanvas(QPainter& painter, QSize size, const PaintStyle& style) {
  const Key key{model_.revision(), style.background.rgba()};
  if (key != key_) image_.Invalidate();
  key_ = key;
  image_.Draw(painter, ClientOf(size),
              [&](QPainter& data) { PaintData(data, ClientOf(size), style); });
  PaintOverlay(painter, ClientOf(size), style);
}

std::optional<QLine> WindowPicture::PlaceOf(QSize size, double ms) {
  const auto times = Times();
  if (!times || !model_.computed() || model_.samplesChanged()) return std::nullopt;
  const double x = times->X(ms);
  if (x < times->left || x > times->right()) return std::nullopt;
  const WindowLayout layout = LayoutIn(ClientOf(size));
  return QLine(ColumnOf(x), TopOfParts(layout), ColumnOf(x), layout.plot.bottom - 1);
}

void WindowPicture::PaintWhole(QPainter& painter, QSize size, const PaintStyle& style) {
  PaintData(painter, ClientOf(size), style);
  PaintOverlay(painter, ClientOf(size), style);
}

}  // namespace cantorix
