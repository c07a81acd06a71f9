// sonadex_view.h - the working view of one document: what is visible, where the cursor is, what is
// selected, the analyses that belong to it and one step of undo. It keeps the state and delegates
// the rules to the files beside it, so that a window has only to paint it and to pass input on.
// Several views of one document share the stretch, cursor and selection, which live in the channel.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "analysis/pitch.h"
#include "document/document.h"
#include "mainview/log_entry.h"
#include "mainview/readout_texts.h"
#include "mainview/scroll_bar.h"
#include "mainview/undo_file.h"
#include "mainview/view_dialogs.h"
#include "mainview/view_layout.h"
#include "mainview/view_ports.h"

namespace cantorix {

struct Clipboard;
struct LabelEntryState;

// What a view is given by the program around it. All of it outlives the view.
struct ViewServices {
  Clipboard& clipboard;
  std::string temporaryDirectory;  // with a separator at its end
  const TextMeasurer& textMeasurer;
  ViewListener& listener;
  SoundControl& sound;
  ViewDialogs& dialogs;
  std::function<LogSink*()> openLog;  // null while no log is open
  bool keepsUndo = true;              // false: no edit of this view is ever to be undone
};

// Cursor and selection as they are when a press begins.
struct Marks {
  TimePoint cursor, dragPoint, selectionStart, selectionEnd;
  bool markerSet = false;
  bool selectionShown = false;
};

enum class SelectionEdge { kStart, kEnd };

// A press of the left button that has not been released yet.
struct PressState {
  bool held = false;   // by the user's own pointer
  std::int32_t x = 0;  // pixels, of the press
  std::int32_t y = 0;
  bool moved = false;         // more than kClickPixels away at least once
  bool draggedLabel = false;  // the press took a label along, so that nothing is selected
  bool snaps = true;          // the label comes to rest at what is near
  Marks before = {};          // of the press
  // The edge of the selection that the press may pull; a plain click there places the cursor.
  std::optional<SelectionEdge> edge = {};
};

class CSonadexView : public DocumentObserver {
 public:
  CSonadexView(CSonadexDoc& document, ViewServices services);
  ~CSonadexView() override;
  CSonadexView(const CSonadexView&) = delete;
  CSonadexView& operator=(const CSonadexView&) = delete;

  CSonadexDoc& document() { return document_; }
  const CSonadexDoc& document() const { return document_; }
  CChannel& channel() { return document_.channel(); }
  const CChannel& channel() const { return document_.channel(); }
  ViewServices& services() { return services_; }
  const ViewServices& services() const { return services_; }
  Prompts& prompts() { return document_.host().prompts; }
  Progress& progress() { return document_.host().progress; }

  // The first update: an unzoomed view, laid out in a client area, with "Pitch All" when it is
  // automatic. A failure is shown.
  void Begin(PixelSize client);
  // The view in a client area of another size.
  void LayOut(PixelSize client);

  // What changes the view says so here, inside the scope of a ViewEdit (view_edit.h) that tells it;
  // outside of one it is told at once. The layout of tiers and panes, the readouts and the other
  // views of the document follow by themselves.
  void Changed(DocumentChanges changes);
  // This view alone looks different.
  void Redraw() { Changed({}); }
  // One line for the user, in the status bar and to a screen reader.
  void Say(std::string text);
  void StopPlayback() { services_.sound.StopPlayback(); }

  // The visible stretch is shorter than the recording.
  bool zoomed() const { return zoomed_; }
  // A cursor was placed without a selection.
  bool markerSet() const { return markerSet_; }
  // A selection exists in this view. The document notes the same for saving.
  bool selectionShown() const { return selectionShown_; }

  // The only ways to change these three: the channel's cursor is shown as a marker, its selection
  // as a selection, or neither.
  void SetMarker();
  void SetSelection();
  void DropMarks();
  // Scroll bar, zoomed() and the visible ms in step with the channel's stretch, as after a zoom.
  void FollowStretch();

  void DocumentChanged(DocumentChanges changes, const DocumentObserver* by) override;

 private:
  std::unique_ptr<LabelEntryState> ownLabelEntry_;

 public:
  bool redrawNeeded = false;  // set by every change, consumed by the drawing
  bool undoAvailable = false;
  UndoScope undoScope = UndoScope::kSamples;  // of the edit that the undo file was saved for
  std::int32_t tierOffset = 0;                // pixels, <= 0: vertical offset of tiers and panes
  ScrollBar horizontal;
  ScrollBar vertical;
  double pressedMs = 0.0;  // cursor time of the last press
  // Where the pointer of a window that does not track was used last.
  std::optional<double> otherPointerMs;
  PressState press;
  Readouts readouts;
  LabelEntryState& labelEntry;
  PitchResult pitch;
  ViewLayout layout;
  std::unique_ptr<UndoFile> undoFile;  // made by the first edit

 private:
  friend class ViewEdit;

  // What has changed and was not told yet.
  struct Untold {
    bool any = false;
    bool modified = false;
    ViewNotice notice;
  };

  void Tell();
  void Refresh(DocumentChanges changes);
  void PlaceStrips(PixelSize client);
  void TakeStretch();
  void TakeStateOf(const CSonadexView& other, DocumentChanges changes);

  CSonadexDoc& document_;
  ViewServices services_;
  bool zoomed_ = false;
  bool markerSet_ = false;
  bool selectionShown_ = false;
  int openEdits_ = 0;
  Untold untold_;
};

}  // namespace cantorix
