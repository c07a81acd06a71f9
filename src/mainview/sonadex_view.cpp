// sonadex_view.cpp - what follows a change, and who is told of it.
#include "mainview/sonadex_view.h"

#include <exception>
#include <utility>

#include "mainview/analysis_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_typing.h"
#include "mainview/view_edit.h"
#include "mainview/view_readouts.h"
#include "platform/prompts.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

using enum DocumentChange;

}  // namespace

CSonadexView::CSonadexView(CSonadexDoc& document, ViewServices services)
    : ownLabelEntry_(std::make_unique<LabelEntryState>()),
      labelEntry(*ownLabelEntry_),
      document_(document),
      services_(std::move(services)) {
  document_.Attach(*this);
}

CSonadexView::~CSonadexView() { document_.Detach(*this); }

void CSonadexView::Begin(PixelSize client) {
  ViewEdit begin(*this, Playback::kGoesOn);
  try {
    LayOut(client);
    TakeStretch();
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
  PlaceStrips(client);
  Redraw();
}

void CSonadexView::PlaceStrips(PixelSize client) {
  const std::int32_t height = LayOutView(document_, client, tierOffset).laidOutHeight;
  const VerticalScroll fitted = FittedVertically({vertical, tierOffset}, height, client.height);
  vertical = fitted.bar;
  tierOffset = fitted.offset;
  layout = LayOutView(document_, client, tierOffset);
}

void CSonadexView::Changed(DocumentChanges changes) {
  const ViewEdit edit(*this, Playback::kGoesOn);
  untold_.any = true;
  untold_.notice.changes |= changes;
}

void CSonadexView::Say(std::string text) {
  const ViewEdit edit(*this, Playback::kGoesOn);
  untold_.any = true;
  untold_.notice.said = std::move(text);
}

// Everything at once: the own state first, then the window, then whoever else shows the document.
void CSonadexView::Tell() {
  Untold untold = std::exchange(untold_, {});
  DocumentChanges& changes = untold.notice.changes;
  if (untold.modified && document_.MarkModified()) changes |= kTitle;
  if (!untold.any && changes.empty()) return;
  Refresh(changes);
  services_.listener.ViewChanged(untold.notice);
  if (!changes.empty()) document_.Notify(changes, this);
}

void CSonadexView::SetMarker() {
  markerSet_ = true;
  selectionShown_ = document_.hasSelection = false;
  Changed(kCursor);
}

void CSonadexView::SetSelection() {
  markerSet_ = false;
  selectionShown_ = document_.hasSelection = true;
  Changed(kCursor);
}

void CSonadexView::DropMarks() {
  markerSet_ = selectionShown_ = document_.hasSelection = false;
  Changed(kCursor);
}

void CSonadexView::FollowStretch() {
  TakeStretch();
  Changed(kStretch);
}

void CSonadexView::TakeStretch() {
  channel().UpdateVisibleMs();
  horizontal = HorizontalBarOf(channel());
  zoomed_ = IsZoomed(horizontal);
}

void CSonadexView::DocumentChanged(DocumentChanges changes, const DocumentObserver* by) {
  // The track belongs to the samples, the undo file to the recording as it was.
  if (changes.Has(kSamples)) pitch = {};
  if (changes.HasAny(kSamples | kLabels | kReference)) undoAvailable = false;
  if (changes.HasAny(kSamples | kStretch)) TakeStretch();
  if (const auto* other = dynamic_cast<const CSonadexView*>(by)) TakeStateOf(*other, changes);
  if (changes.HasOther(kTitle)) Refresh(changes);
  services_.listener.ViewChanged({changes, {}, {}});
}

// The parts of what the views share that are not in the document.
void CSonadexView::TakeStateOf(const CSonadexView& other, DocumentChanges changes) {
  if (changes.HasAny(kCursor | kSamples)) {
    markerSet_ = other.markerSet_;
    selectionShown_ = other.selectionShown_;
  }
  if (changes.HasAny(kStretch | kSamples)) {
    horizontal = other.horizontal;
    zoomed_ = other.zoomed_;
  }
}

// What depends on a change, whichever view made it.
void CSonadexView::Refresh(DocumentChanges changes) {
  redrawNeeded = true;
  if (changes.Has(kSamples)) otherPointerMs.reset();
  if (changes.HasAny(kSamples | kLabels)) ForgetTyping(*this);
  if (changes.HasAny(kSamples | kLabels | kSettings)) PlaceStrips(layout.client);
  const auto tracks = kSamples | kTracks;
  if (changes.HasAny(tracks | kCursor)) ReadCursor(*this);
  // Not before the button is released: a drag would walk through the track at every move.
  if (changes.HasAny(tracks) || (changes.Has(kCursor) && !press.held)) ReadSelection(*this);
}

}  // namespace cantorix
