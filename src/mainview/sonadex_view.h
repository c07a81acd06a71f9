// sonadex_view.h - the working view of one document: what is visible, where the cursor is, what is
// selected, the analyses that belong to it and one step of undo. It keeps the state and delegates
// the rules to the files beside it, so that a window has only to paint it and to pass input on.
// Several views of one document share the stretch, cursor and selection, which live in the channel.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "analysis/pitch.h"
#include "document/document.h"
#include "mainview/log_entry.h"
#include "mainview/scroll_bar.h"
#include "mainview/view_ports.h"

namespace cantorix {

struct Clipboard;

// What a view is given by the program around it. All of it outlives the view.
struct ViewServices {
  Clipboard& clipboard;
  std::string temporaryDirectory;  // with a separator at its end
  const TextMeasurer& textMeasurer;
  ViewListener& listener;
  PlaybackControl& playback;
  std::function<LogSink*()> openLog;  // null while no log is open
};

// The numbers of the readout strip, before they become texts.
struct Readouts {
  double pitchHz = 0.0;      // at the cursor
  double intensityDb = 0.0;  // at the cursor
  double durationMs = 0.0;   // of the selection
  double cursorMs = 0.0;
  double averagePitchHz = 0.0;  // over the selection
};

// Label entry by the mouse.
struct LabelEntryState {
  bool enabled = false;
  int currentTier = -1;   // the tier that was pressed last
  int pressedLabel = -1;  // its label under the press; -1: none
  Label label;            // a copy of that label
  bool dragging = false;
};

class CSonadexView {
 public:
  CSonadexView(CSonadexDoc& document, ViewServices services);

  CSonadexDoc& document() { return document_; }
  const CSonadexDoc& document() const { return document_; }
  CChannel& channel() { return document_.channel(); }
  const CChannel& channel() const { return document_.channel(); }
  ViewServices& services() { return services_; }
  Prompts& prompts() { return document_.host().prompts; }
  Progress& progress() { return document_.host().progress; }

  // Everything that is drawn is stale.
  void Redraw();
  // The user does something that ends a playback in progress.
  void StopPlayback() { services_.playback.StopPlayback(); }

  bool zoomed = false;          // the visible stretch is shorter than the recording
  bool markerSet = false;       // a cursor was placed without a selection
  bool selectionShown = false;  // a selection exists in this view
  bool redrawNeeded = false;    // set by every change, consumed by the drawing
  bool undoAvailable = false;
  std::int32_t tierOffset = 0;  // pixels, <= 0: vertical offset of the tier area
  ScrollBar horizontal;
  ScrollBar vertical;
  double pressedMs = 0.0;  // cursor time of the last press
  Readouts readouts;
  LabelEntryState labelEntry;
  PitchResult pitch;

 private:
  CSonadexDoc& document_;
  ViewServices services_;
};

}  // namespace cantorix
