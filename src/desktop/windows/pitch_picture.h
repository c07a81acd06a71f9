// pitch_picture.h - the picture of the pitch window, as the window is now.
#pragma once

#include "analysisview/pitch_view.h"
#include "desktop/paint/pitch_painter.h"
#include "desktop/windows/window_picture.h"
#include "mainview/document_waveform.h"

namespace cantorix {

class PitchWindowPicture : public WindowPicture {
 public:
  // All outlive the picture.
  PitchWindowPicture(CPitchView& model, const CSonadexView& view, DocumentWaveform& waveform)
      : WindowPicture(model), model_(model), view_(view), waveform_(waveform) {}

 protected:
  WindowLayout LayoutIn(PixelSize client) override;
  std::optional<AxisScale> Times() const override { return model_.TimeAxis(); }
  void PaintData(QPainter& painter, PixelSize client, const PaintStyle& style) override;
  void PaintOverlay(QPainter& painter, PixelSize client, const PaintStyle& style) override;

 private:
  // Without the waveform, which only the data pass needs.
  PitchPicture Now(PixelSize client) const;

  CPitchView& model_;
  const CSonadexView& view_;
  DocumentWaveform& waveform_;
};

}  // namespace cantorix
