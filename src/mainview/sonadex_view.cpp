// sonadex_view.cpp
#include "mainview/sonadex_view.h"

#include <exception>
#include <utility>

#include "mainview/analysis_commands.h"
#include "mainview/view_readouts.h"
#include "platform/prompts.h"

namespace cantorix {

CSonadexView::CSonadexView(CSonadexDoc& document, ViewServices services)
    : document_(document), services_(std::move(services)) {
  document_.Attach(*this);
}

CSonadexView::~CSonadexView() { document_.Detach(*this); }

void CSonadexView::Begin(PixelSize client) {
  try {
    LayOut(client);
    FollowStretch();
    if (document_.loaded && document_.settings.display.automaticAnalysis != 0) {
      AnalysePitch(*this, Stretch::kAll);
    }
  } catch (const std::exception&) {
    prompts().Beep();
    prompts().Message("Error in initilization of view.");
  }
  ReadCursor(*this);
}

void CSonadexView::LayOut(PixelSize client) {
  const std::int32_t height = LayOutView(document_, client, tierOffset).laidOutHeight;
  const VerticalScroll fitted = FittedVertically({vertical, tierOffset}, height, client.height);
  vertical = fitted.bar;
  tierOffset = fitted.offset;
  layout = LayOutView(document_, client, tierOffset);
  Redraw();
}

void CSonadexView::PlaceLayout() { layout = LayOutView(document_, layout.client, tierOffset); }

void CSonadexView::Redraw() {
  redrawNeeded = true;
  services_.listener.ViewChanged();
}

void CSonadexView::Changed(DocumentChange change) {
  Refresh(change);
  Redraw();
  document_.Notify(change, this);
}

void CSonadexView::FollowStretch() {
  channel().UpdateVisibleMs();
  horizontal = HorizontalBarOf(channel());
  zoomed = IsZoomed(horizontal);
}

void CSonadexView::DocumentChanged(DocumentChange change, const DocumentObserver* by) {
  if (change == DocumentChange::kTitle) return;
  switch (change) {
    case DocumentChange::kSamples:
      // The track and the undo file belong to the recording as it was.
      pitch = {};
      undoAvailable = false;
      LayOut();
      FollowStretch();
      break;
    case DocumentChange::kLabels:
      undoAvailable = false;
      LayOut();
      break;
    case DocumentChange::kReference:
      undoAvailable = false;
      break;
    case DocumentChange::kStretch:
      FollowStretch();
      break;
    case DocumentChange::kSettings:
      LayOut();
      break;
    default:
      break;
  }
  if (const auto* other = dynamic_cast<const CSonadexView*>(by)) TakeStateOf(*other, change);
  Refresh(change);
  if (change == DocumentChange::kCursor) ReadSelection(*this);
  Redraw();
}

// The parts of what the views share that are not in the document.
void CSonadexView::TakeStateOf(const CSonadexView& other, DocumentChange change) {
  if (change == DocumentChange::kCursor || change == DocumentChange::kSamples) {
    markerSet = other.markerSet;
    selectionShown = other.selectionShown;
  }
  if (change == DocumentChange::kStretch || change == DocumentChange::kSamples) {
    horizontal = other.horizontal;
    zoomed = other.zoomed;
  }
}

// What depends on a change, whichever view made it.
void CSonadexView::Refresh(DocumentChange change) {
  const bool samples = change == DocumentChange::kSamples;
  const bool tracks = samples || change == DocumentChange::kTracks;
  // The label list shows times in the time base of the settings.
  const bool list = change == DocumentChange::kLabels || change == DocumentChange::kSettings;
  if (samples || list) services_.listener.LabelsChanged();
  if (tracks || change == DocumentChange::kCursor) ReadCursor(*this);
  if (tracks) ReadSelection(*this);
}

}  // namespace cantorix
