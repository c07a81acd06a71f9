// sonadex_view.cpp
#include "mainview/sonadex_view.h"

#include <utility>

#include "mainview/analysis_commands.h"

namespace cantorix {

CSonadexView::CSonadexView(CSonadexDoc& document, ViewServices services)
    : document_(document), services_(std::move(services)) {
  document_.Attach(*this);
}

CSonadexView::~CSonadexView() { document_.Detach(*this); }

void CSonadexView::Begin(PixelSize client) {
  horizontal = {};
  LayOut(client);
  FollowStretch();
  if (document_.loaded && document_.settings.display.automaticAnalysis != 0) {
    AnalysePitch(*this, Stretch::kAll);
  }
}

void CSonadexView::LayOut(PixelSize client) {
  const std::int32_t height = LayOutView(document_, client, tierOffset).laidOutHeight;
  const VerticalScroll fitted = FittedVertically({vertical, tierOffset}, height, client.height);
  vertical = fitted.bar;
  tierOffset = fitted.offset;
  layout = LayOutView(document_, client, tierOffset);
  Redraw();
}

void CSonadexView::Redraw() {
  redrawNeeded = true;
  services_.listener.ViewChanged();
}

void CSonadexView::Changed(DocumentChange change) {
  if (change == DocumentChange::kLabels || change == DocumentChange::kSamples) {
    services_.listener.LabelsChanged();
  }
  Redraw();
  document_.Notify(change, this);
}

void CSonadexView::FollowStretch() {
  channel().UpdateVisibleMs();
  horizontal = HorizontalBarOf(channel());
  zoomed = IsZoomed(horizontal);
}

void CSonadexView::DocumentChanged(DocumentChange change, const DocumentObserver* by) {
  switch (change) {
    case DocumentChange::kSamples:
      // The track and the undo file belong to the recording as it was.
      pitch = {};
      undoAvailable = false;
      FollowStretch();
      services_.listener.LabelsChanged();
      break;
    case DocumentChange::kLabels:
      undoAvailable = false;
      services_.listener.LabelsChanged();
      break;
    case DocumentChange::kStretch:
      FollowStretch();
      break;
    case DocumentChange::kSettings:
      LayOut();
      break;
    case DocumentChange::kCursor:
    case DocumentChange::kTracks:
    case DocumentChange::kTitle:
      break;
  }
  if (const auto* other = dynamic_cast<const CSonadexView*>(by)) {
    markerSet = other->markerSet;
    selectionShown = other->selectionShown;
  }
  if (change != DocumentChange::kTitle) Redraw();
}

}  // namespace cantorix
