// main_view_canvas.cpp
#include "desktop/paint/main_view_canvas.h"

#include <cmath>

#include "desktop/paint/picture_text.h"
#include "desktop/qt_text.h"
#include "platform/file_error.h"

namespace cantorix {

MainViewCanvas::MainViewCanvas(CSonadexView& view, DocumentWaveform& waveform)
    : view_(view), waveform_(waveform) {
  view_.document().Attach(*this);
}

MainViewCanvas::~MainViewCanvas() { view_.document().Detach(*this); }

void MainViewCanvas::DocumentChanged(DocumentChange change, const DocumentObserver*) {
  // Cursor and selection are in the overlay, the title in the window's frame.
  if (change != DocumentChange::kCursor && change != DocumentChange::kTitle) stale_ = true;
}

MainViewCanvas::Key MainViewCanvas::KeyOf(double pixelRatio, const PaintStyle& style) const {
  const CChannel& channel = view_.channel();
  return {view_.layout.client.width,    view_.layout.client.height, view_.tierOffset,
          channel.visibleStart.samples, channel.visibleEnd.samples, pixelRatio,
          style.background.rgba()};
}

void MainViewCanvas::Paint(QPainter& painter, const PaintStyle& style) {
  const double pixelRatio = painter.device()->devicePixelRatioF();
  const Key key = KeyOf(pixelRatio, style);
  view_.redrawNeeded = false;
  try {
    const MainViewPicture picture{view_, waveform_.Pyramid()};
    if (stale_ || key != key_) Render(picture, key, style);
    painter.drawImage(QPointF(0.0, 0.0), image_);
    PaintMainViewOverlay(painter, picture, style);
  } catch (const FileError& error) {
    stale_ = true;
    const QRectF client(0.0, 0.0, key.width, key.height);
    painter.fillRect(client, style.background);
    painter.setPen(style.text);
    painter.setFont(style.font);
    painter.drawText(client, Qt::AlignCenter | Qt::TextWordWrap, Shown(error.what()));
  }
}

void MainViewCanvas::Render(const MainViewPicture& picture, const Key& key,
                            const PaintStyle& style) {
  const QSize pixels(static_cast<int>(std::ceil(key.width * key.pixelRatio)),
                     static_cast<int>(std::ceil(key.height * key.pixelRatio)));
  if (image_.size() != pixels) image_ = QImage(pixels, QImage::Format_RGB32);
  image_.setDevicePixelRatio(key.pixelRatio);
  if (image_.isNull()) return;
  QPainter painter(&image_);
  PaintMainViewBackground(painter, picture, style);
  PaintMainViewData(painter, picture, style);
  key_ = key;
  stale_ = false;
}

}  // namespace cantorix
