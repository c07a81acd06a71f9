// main_view_canvas.h - the working view for a window: background and data are kept as an image and
// painted anew only when something that they show has changed, so that a cursor drag costs the
// overlay alone. One per widget; ends before its view does.
#pragma once

#include <QPainter>

#include "desktop/paint/cached_picture.h"
#include "desktop/paint/main_view_painter.h"
#include "mainview/document_waveform.h"

namespace cantorix {

class MainViewCanvas : public DocumentObserver {
 public:
  // Watches the view's document.
  MainViewCanvas(CSonadexView& view, DocumentWaveform& waveform);
  ~MainViewCanvas() override;
  MainViewCanvas(const MainViewCanvas&) = delete;
  MainViewCanvas& operator=(const MainViewCanvas&) = delete;

  // Paints the client area at the painter's origin, in the resolution of its device, and consumes
  // the view's redrawNeeded. When the samples cannot be read, the reason stands in the picture.
  void Paint(QPainter& painter, const PaintStyle& style);
  // For a changed style.
  void Invalidate() { image_.Invalidate(); }

  void DocumentChanged(DocumentChanges changes, const DocumentObserver* by) override;

 private:
  // What the image depends on beside the document's content and its own size.
  struct Key {
    std::int32_t offset = 0;
    double start = 0.0, end = 0.0;
    QRgb background = 0;
    int tier = -1;        // the current one, in label entry mode
    int typedLabel = -1;  // the field stands in its place
    bool operator==(const Key&) const = default;
  };
  Key KeyOf(const PaintStyle& style) const;

  CSonadexView& view_;
  DocumentWaveform& waveform_;
  CachedPicture image_;
  Key key_;
};

}  // namespace cantorix
