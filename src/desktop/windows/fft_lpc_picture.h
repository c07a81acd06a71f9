// fft_lpc_picture.h - temporary
#pragma once
#include "desktop/windows/window_picture.h"
#include "mainview/document_waveform.h"
#include "windows/color_map.h"
#include "windows/fft_lpc_view.h"
namespace cantorix {
class FftLpcPicture : public WindowPicture {
 public:
  FftLpcPicture(CFFTLPCView& model) : model_(model) {}
  void LayOut(QSize size) override {
    size_ = size;
    model_.plot = {48, 10, std::max(size.width() - 12, 48), std::max(size.height() - 30, 10)};
  }
  void Paint(QPainter& p, const PaintStyle&) override {
    p.drawRect(model_.plot.left, model_.plot.top, model_.plot.right - model_.plot.left,
               model_.plot.bottom - model_.plot.top);
  }
  ColorMap colors = ColorMap::kGrey;

 private:
  CFFTLPCView& model_;
  QSize size_;
};
}  // namespace cantorix
