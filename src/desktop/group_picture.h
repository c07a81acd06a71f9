// group_picture.h - the windows of one recording as one picture: working view, spectrogram and
// pitch under each other with the same edges. Parts that show the same stretch have one axis of
// time, below the last of them; readouts of cursors are left out.
#pragma once

#include <QPainter>
#include <QSize>
#include <functional>
#include <vector>

#include "desktop/analysis_windows.h"
#include "desktop/paint/paint_style.h"
#include "mainview/axis_scale.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

class DocumentWaveform;

class GroupPicture {
 public:
  // The windows that are in sight, computed and over time, as high as they are now and as wide as
  // the view, in the light palette. All of it outlives the picture.
  GroupPicture(CSonadexView& view, DocumentWaveform& waveform,
               const std::vector<AnalysisWindowOf>& windows);

  // Logical pixels.
  QSize size() const;
  // Throws FileError when samples cannot be read.
  void Paint(QPainter& painter);

 private:
  struct Part {
    int plotEnd = 0;  // pixels from its top
    int axisEnd = 0;  // with its axis of time
    AxisScale time;
    std::function<void(QPainter&)> paint;
  };

  void AddView(CSonadexView& view, DocumentWaveform& waveform);
  void AddWindow(const AnalysisWindowOf& window);
  int HeightOf(std::size_t part) const;

  int width_;
  PaintStyle style_;
  std::vector<Part> parts_;
};

}  // namespace cantorix
