// window_picture.h - the picture of an analysis window, on its canvas, on paper and in files.
// What lies below the cursor is kept as an image and painted anew only when it has changed, so that
// a cursor drag costs the overlay alone.
#pragma once

#include <QPainter>
#include <QSize>

#include "analysisview/analysis_window.h"
#include "analysisview/window_layout.h"
#include "desktop/paint/cached_picture.h"
#include "desktop/paint/paint_style.h"
#include "desktop/sound/play_cursor.h"

namespace cantorix {

class WindowPicture {
 public:
  explicit WindowPicture(AnalysisWindow& model) : model_(model) {}
  virtual ~WindowPicture() = default;
  WindowPicture(const WindowPicture&) = delete;
  WindowPicture& operator=(const WindowPicture&) = delete;

  // Gives the model the place of its plot in a canvas of `size` logical pixels.
  void LayOut(QSize size);
  // Draws the picture on a canvas of that size, in the resolution of the painter's device. Throws
  // FileError when samples that it shows cannot be read.
  void PaintCanvas(QPainter& painter, QSize size, const PaintStyle& style);
  // Draws all of it at the painter's origin, for paper or a file. Throws FileError.
  void PaintWhole(QPainter& painter, QSize size, const PaintStyle& style);
  // Where a time of the recording stands in a canvas of that size; nothing when the picture is not
  // of the recording as it sounds, or does not show it.
  std::optional<QLine> PlaceOf(QSize size, double ms);
  // The same of a frequency, in a picture with an axis of frequency.
  virtual std::optional<QLine> PlaceOfHz(QSize /*size*/, double /*hz*/) { return std::nullopt; }
  // For a change that the model does not know.
  void Invalidate() { image_.Invalidate(); }

  virtual WindowLayout LayoutIn(PixelSize client) = 0;
  // The times from the left to the right edge of the plot, of a picture over time.
  virtual std::optional<AxisScale> Times() const { return std::nullopt; }

 protected:
  virtual void PaintData(QPainter& painter, PixelSize client, const PaintStyle& style) = 0;
  virtual void PaintOverlay(QPainter& painter, PixelSize client, const PaintStyle& style) = 0;

 private:
  // What the image depends on beside its size.
  struct Key {
    std::int64_t revision = -1;
    QRgb background = 0;
    bool operator==(const Key&) const = default;
  };

  AnalysisWindow& model_;
  CachedPicture image_;
  Key key_;
};

}  // namespace cantorix
