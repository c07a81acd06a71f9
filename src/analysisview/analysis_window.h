// analysis_window.h - what the windows of spectrum, spectrogram and pitch have in common: the
// document they follow, whether their picture still fits it, cursor, switches and log rows.
// Draws nothing; a window is told through `changed` and asks the rest.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/sample_range.h"
#include "document/document.h"
#include "mainview/axis_scale.h"
#include "mainview/log_entry.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

enum class WindowKind { kFftLpc, kSpectrogram, kPitch };

// What an analysis window is given by the program around it. A window without a main view tracks
// nothing and keeps its switches out of the configuration file.
struct WindowServices {
  CSonadexView* mainView = nullptr;   // that it was opened from; outlives the window
  std::function<void()> changed;      // the picture or a readout is stale
  std::function<LogSink*()> openLog;  // null while no log is open
  // The main view has taken a press or a drag of this window, as a time: other windows follow it.
  std::function<void(MousePhase, double)> passed = {};
};

// Columns and rows of pixels that a picture is computed for.
struct PictureSize {
  std::int64_t columns = 0;
  int rows = 0;
  bool operator==(const PictureSize&) const = default;
};

// How well the results fit the document.
enum class Freshness {
  kCurrent,
  kSettingsChanged,  // to be computed again as soon as the user rests
  kSamplesChanged    // of the recording before an edit: shown as such, not entered into the log
};

enum class WindowLog { kMarker, kFormantsHere, kFormantsAll, kEntireFrame };
enum class WindowSwitch {
  kDrawLpc,
  kRelativeLevel,
  kDrawFormants,
  kDrawAudio,
  kDrawIntensity,
  kDrawLabels,
  kTrackMouse,
  kFollowView,   // over time: shows the visible stretch of the main view
  kFollowMarker  // a spectrum: is taken at the marker of the main view
};

struct WindowReadout {
  std::string label;
  std::string value;
};

// A press of the left button in a window.
struct WindowPress {
  bool held = false;
  std::int32_t x = 0;  // pixels
};

class AnalysisWindow : public DocumentObserver {
 public:
  AnalysisWindow(CSonadexDoc& document, WindowServices services);
  ~AnalysisWindow() override;
  AnalysisWindow(const AnalysisWindow&) = delete;
  AnalysisWindow& operator=(const AnalysisWindow&) = delete;

  virtual WindowKind kind() const = 0;
  // Whether there is a picture.
  virtual bool computed() const = 0;
  virtual bool hasFormants() const = 0;
  // The samples along the window's time axis; none when it has no such axis.
  virtual SampleRange ShownSamples() const { return {}; }
  // Another stretch along the window's axis of time: what is computed is scaled at once, the rest
  // comes when the user rests. Nothing for a window without such an axis or without a picture.
  void ShowStretch(const SampleRange& range);
  // Whether the window shows the visible stretch of a main view.
  bool FollowsView();
  // Whether there is something for Update to compute.
  virtual bool canUpdate() const = 0;
  // Computes again, for the wanted size, what the window shows, cut to the recording. What is tried
  // is not tried again by itself, however it ends. Throws as the computation of the window does.
  virtual void Update() = 0;

  // The left button, in client pixels. A press outside the plot or without a picture is ignored,
  // and then so are the move and the release that follow it. Throw FileError when the main view
  // cannot read its store.
  virtual void Press(std::int32_t x, std::int32_t y) = 0;
  virtual void Move(std::int32_t x, std::int32_t y) = 0;
  virtual void Release(std::int32_t x, std::int32_t y) = 0;
  // The cursor some pixels to the right and, where it has a height, upward, as a click there places
  // it; to the low end of the axes where there is none.
  virtual void StepCursor(std::int32_t right, std::int32_t up) = 0;

  // The main view's press, move or release, at the cursor time of its press: a cursor over time
  // goes there, too.
  virtual void FollowMainView(MousePhase /*phase*/, double /*ms*/) {}

  // The rows of a log command; none when the window has no such rows.
  virtual std::vector<LogEntry> LogRows(WindowLog log) const = 0;
  virtual std::vector<WindowReadout> Readouts() const = 0;
  // 0 or 1; null when the window has no such switch.
  virtual std::int32_t* SwitchOf(WindowSwitch which) = 0;
  // Turns a switch and keeps it where the window's options are kept; which windows follow the main
  // view is kept by the document alone.
  void Toggle(WindowSwitch which);

  CSonadexDoc& document() { return document_; }
  const CSonadexDoc& document() const { return document_; }
  const CChannel& channel() const { return document_.channel(); }
  DocumentHost& host() const { return document_.host(); }
  CSonadexView* mainView() const { return services_.mainView; }
  LogSink* openLog() const { return services_.openLog ? services_.openLog() : nullptr; }
  // A readout or the cursor is stale; with another revision, the picture below them, too.
  void Changed() const;
  void PictureChanged();
  std::int64_t revision() const { return revision_; }

  Freshness freshness() const { return freshness_; }
  bool samplesChanged() const { return freshness_ == Freshness::kSamplesChanged; }
  // The picture in another size: it is scaled at once and computed again when the user rests.
  void WantSize(const PictureSize& size);
  const PictureSize& wantedSize() const { return wantedSize_; }
  // Whether a rest of the user is to be used for an Update.
  bool UpdateDue() const;
  // Whether the window's pointer is the main view's, too: all windows track the mouse, and both
  // show the same samples. A main view that does not follow shows where the pointer is.
  bool Tracks() const;
  // Passes a press or a move, or a release where it happens, to the main view.
  void PassPress(double ms) const;
  void PassMove(double ms) const;

  void DocumentChanged(DocumentChanges changes, const DocumentObserver* by) override;

  bool InPlot(std::int32_t x, std::int32_t y) const;
  PixelRect plot;  // where the window draws the data, in client pixels
  bool markerSet = false;
  WindowPress press;

 protected:
  // `low` ... `high` over the width of the plot.
  AxisScale AxisOver(double low, double high) const;
  bool IsWholeRecording(const SampleRange& range) const;
  // What is left of `range` in the recording as it is now; all of the recording for a `whole` one.
  SampleRange Remaining(const SampleRange& range, bool whole) const;
  // The nearest pixel column of the plot: the edge behind the last one does not belong to it.
  std::int32_t ColumnNear(std::int32_t x) const;
  // A computation with the present settings and wanted size has ended; `fresh`: with results.
  void Tried(bool fresh);
  // Whether the results were computed with the document's settings.
  virtual bool SettingsMatch() const = 0;
  // After a change of the document, before the window is told.
  virtual void FollowDocument(DocumentChanges changes) = 0;
  // The switches of the window were turned.
  virtual void KeepSwitches() = 0;
  // Of another stretch, which is not empty; tells nobody.
  virtual void TakeStretch(const SampleRange&) {}
  // Whether something else is to be shown than was computed.
  virtual bool ShowsOther() const { return false; }

 private:
  void LeavePointer(double ms) const;
  bool IsOn(WindowSwitch which);
  void FollowVisibleStretch();

  CSonadexDoc& document_;
  WindowServices services_;
  Freshness freshness_ = Freshness::kCurrent;
  PictureSize wantedSize_;
  PictureSize triedSize_;
  std::int64_t revision_ = 0;
};

// "Time(ms)=" or "Time(sec)=" with the value in the document's time base.
WindowReadout TimeReadout(const CSonadexDoc& document, std::string_view name, double ms);
// What a time in ms is multiplied by in the document's time base.
double TimeFactor(const CSonadexDoc& document);

}  // namespace cantorix
