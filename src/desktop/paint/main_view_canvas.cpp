// main_view_canvas.cpp - which change makes which layer stale.
#include "desktop/paint/main_view_canvas.h"

#include "desktop/qt_text.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_moves.h"
#include "platform/file_error.h"

namespace cantorix {

MainViewCanvas::MainViewCanvas(CSonadexView& view, DocumentWaveform& waveform)
    : view_(view), waveform_(waveform) {
  view_.document().Attach(*this);
}

MainViewCanvas::~MainViewCanvas() { view_.document().Detach(*this); }

void MainViewCanvas::DocumentChanged(DocumentChanges changes, const DocumentObserver*) {
  // Cursor and selection are in the overlay, the title in the window's frame.
  if (changes.HasOther(DocumentChange::kCursor | DocumentChange::kTitle)) image_.Invalidate();
}

MainViewCanvas::Key MainViewCanvas::KeyOf(const PaintStyle& style) const {
  const CChannel& channel = view_.channel();
  const LabelEntryState& entry = view_.labelEntry;
  return {view_.tierOffset,
          channel.visibleStart.samples,
          channel.visibleEnd.samples,
          style.background.rgba(),
          entry.enabled ? CurrentTier(view_) : -1,
          entry.typing ? entry.typing->index : -1};
}

void MainViewCanvas::Paint(QPainter& painter, const PaintStyle& style) {
  const PixelSize client = view_.layout.client;
  const Key key = KeyOf(style);
  if (key != key_) image_.Invalidate();
  key_ = key;
  view_.redrawNeeded = false;
  try {
    const MainViewPicture picture{view_, waveform_.Pyramid()};
    image_.Draw(painter, client, [&](QPainter& data) {
      PaintMainViewBackground(data, picture, style);
      PaintMainViewData(data, picture, style);
    });
    PaintMainViewOverlay(painter, picture, style);
  } catch (const FileError& error) {
    const QRectF whole(0.0, 0.0, client.width, client.height);
    painter.fillRect(whole, style.background);
    painter.setPen(style.text);
    painter.setFont(style.font);
    painter.drawText(whole, Qt::AlignCenter | Qt::TextWordWrap, Shown(error.what()));
  }
}

}  // namespace cantorix
