// document_observer.h - who is told when a document changes: its views and analysis windows.
#pragma once

namespace cantorix {

enum class DocumentChange {
  kStretch,   // the visible stretch
  kCursor,    // cursor or selection
  kTracks,    // pitch or intensity were computed or dropped
  kLabels,    // labels or tiers
  kReference,  // the reference level of a channel
  kSamples,   // samples, and with them perhaps labels, length and stretch
  kSettings,  // an option dialog was confirmed, or a configuration loaded
  kTitle,     // path, title or the modified flag
};

class DocumentObserver {
 public:
  virtual ~DocumentObserver() = default;
  // `by` made the change (it is not told itself); null when it was none of the observers.
  virtual void DocumentChanged(DocumentChange change, const DocumentObserver* by) = 0;
};

}  // namespace cantorix
