// group_picture.cpp - parts from the top down, each cut off where the next one begins.
#include "desktop/group_picture.h"

#include <cmath>

#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/picture_layout.h"
#include "desktop/windows/analysis_frame.h"
#include "mainview/document_waveform.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

bool ShowTheSame(const AxisScale& a, const AxisScale& b) {
  constexpr double kNearMs = 0.01;
  return std::abs(a.low - b.low) < kNearMs && std::abs(a.high - b.high) < kNearMs;
}

}  // namespace

GroupPicture::GroupPicture(CSonadexView& view, DocumentWaveform& waveform,
                           const std::vector<AnalysisWindowOf>& windows)
    : width_(view.layout.client.width), style_(StyleOf(PaletteKind::kLight)) {
  AddView(view, waveform);
  for (const AnalysisWindowOf& window : windows) AddWindow(window);
}

void GroupPicture::AddView(CSonadexView& view, DocumentWaveform& waveform) {
  const PixelSize client = view.layout.client;
  const PixelRect& axis = view.layout.timeAxis;
  parts_.push_back({axis.top, axis.bottom, TimeAxisOf(view.channel(), view.layout.axisWidth()),
                    [this, &view, &waveform, client](QPainter& painter) {
                      const PictureLayout layout(view, client);
                      PaintMainView(painter, {view, waveform.Pyramid()}, style_);
                    }});
}

void GroupPicture::AddWindow(const AnalysisWindowOf& window) {
  auto* const frame = dynamic_cast<AnalysisFrame*>(window.window);
  if (frame == nullptr || !frame->isVisible() || frame->isMinimized()) return;
  const auto times = frame->picture().Times();
  if (!times || !frame->model().computed()) return;
  const QSize size(width_, frame->canvas().height());
  const WindowLayout layout = frame->picture().LayoutIn({size.width(), size.height()});
  parts_.push_back({layout.bottomAxis.top, layout.bottomAxis.bottom, *times,
                    [this, frame, size](QPainter& painter) {
                      frame->picture().PaintWhole(painter, size, style_);
                    }});
}

int GroupPicture::HeightOf(std::size_t part) const {
  const bool isAxisBelow =
      part + 1 < parts_.size() && ShowTheSame(parts_[part].time, parts_[part + 1].time);
  return isAxisBelow ? parts_[part].plotEnd : parts_[part].axisEnd;
}

QSize GroupPicture::size() const {
  int height = 0;
  for (std::size_t i = 0; i < parts_.size(); ++i) height += HeightOf(i);
  return {width_, height};
}

void GroupPicture::Paint(QPainter& painter) {
  int top = 0;
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    painter.save();
    painter.translate(0.0, top);
    painter.setClipRect(QRectF(0.0, 0.0, width_, HeightOf(i)), Qt::IntersectClip);
    parts_[i].paint(painter);
    painter.restore();
    top += HeightOf(i);
  }
}

}  // namespace cantorix
