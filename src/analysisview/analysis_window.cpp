// analysis_window.cpp - freshness, and what the three windows do alike with plot and recording.
#include "analysisview/analysis_window.h"

#include <algorithm>
#include <utility>

#include "mainview/analysis_commands.h"
#include "mainview/mouse.h"
#include "mainview/option_commands.h"
#include "platform/numbers.h"
#include "settings/settings.h"
#include "settings/time_base.h"

namespace cantorix {

AnalysisWindow::AnalysisWindow(CSonadexDoc& document, WindowServices services)
    : document_(document), services_(std::move(services)) {
  document_.Attach(*this);
}

AnalysisWindow::~AnalysisWindow() { document_.Detach(*this); }

void AnalysisWindow::Toggle(WindowSwitch which) {
  std::int32_t* const value = SwitchOf(which);
  if (value == nullptr) return;
  *value = *value == 0 ? 1 : 0;
  if (which == WindowSwitch::kFollowView || which == WindowSwitch::kFollowMarker) {
    FollowVisibleStretch();
    FollowDocument(DocumentChange::kCursor);
  } else if (which == WindowSwitch::kTrackMouse) {
    if (services_.mainView != nullptr) KeepOptions(*services_.mainView, SettingsDialog::kDisplay);
  } else {
    KeepSwitches();
  }
  PictureChanged();
}

bool AnalysisWindow::IsOn(WindowSwitch which) {
  const std::int32_t* const value = SwitchOf(which);
  return value != nullptr && *value != 0;
}

bool AnalysisWindow::FollowsView() {
  return mainView() != nullptr && IsOn(WindowSwitch::kFollowView);
}

void AnalysisWindow::FollowVisibleStretch() {
  if (!FollowsView() || !computed() || samplesChanged()) return;
  const SampleRange visible = StretchOf(*mainView(), Stretch::kWindow);
  if (visible.length() > 0.0) TakeStretch(visible);
}

void AnalysisWindow::ShowStretch(const SampleRange& range) {
  if (!computed() || !(range.length() > 0.0)) return;
  TakeStretch(range);
  PictureChanged();
}

void AnalysisWindow::Changed() const {
  if (services_.changed) services_.changed();
}

void AnalysisWindow::PictureChanged() {
  ++revision_;
  Changed();
}

void AnalysisWindow::WantSize(const PictureSize& size) {
  if (size == wantedSize_) return;
  wantedSize_ = size;
  Changed();
}

bool AnalysisWindow::UpdateDue() const {
  if (!computed() || samplesChanged()) return false;
  return freshness_ == Freshness::kSettingsChanged || !(wantedSize_ == triedSize_) || ShowsOther();
}

bool AnalysisWindow::Tracks() const {
  return services_.mainView != nullptr && !samplesChanged() &&
         document_.settings.display.trackMouse != 0;
}

void AnalysisWindow::PassPress(double ms) const {
  if (!Tracks()) return LeavePointer(ms);
  PressAtTime(*mainView(), ms);
  if (services_.passed) services_.passed(MousePhase::kPress, ms);
}

void AnalysisWindow::PassMove(double ms) const {
  if (!Tracks()) return LeavePointer(ms);
  MoveAtTime(*mainView(), ms);
  if (services_.passed) services_.passed(MousePhase::kMove, ms);
}

void AnalysisWindow::LeavePointer(double ms) const {
  if (mainView() != nullptr && !samplesChanged()) ShowPointerAtTime(*mainView(), ms);
}

bool AnalysisWindow::InPlot(std::int32_t x, std::int32_t y) const {
  return x >= plot.left && x < plot.right && y >= plot.top && y < plot.bottom;
}

AxisScale AnalysisWindow::AxisOver(double low, double high) const {
  return {.low = low,
          .high = high,
          .left = static_cast<double>(plot.left),
          .width = static_cast<double>(plot.right - plot.left)};
}

bool AnalysisWindow::IsWholeRecording(const SampleRange& range) const {
  return range.start <= 0.0 && range.end >= channel().totalLength;
}

SampleRange AnalysisWindow::Remaining(const SampleRange& range, bool whole) const {
  const double end = std::max(channel().totalLength, 0.0);
  if (whole) return {0.0, end};
  return {std::clamp(range.start, 0.0, end), std::clamp(range.end, 0.0, end)};
}

std::int32_t AnalysisWindow::ColumnNear(std::int32_t x) const {
  return std::clamp(x, plot.left, std::max(plot.right - 1, plot.left));
}

void AnalysisWindow::Tried(bool fresh) {
  // Results that a failed computation has kept are as old as before.
  if (fresh || !samplesChanged() || !computed()) freshness_ = Freshness::kCurrent;
  triedSize_ = wantedSize_;
}

void AnalysisWindow::DocumentChanged(DocumentChanges changes, const DocumentObserver*) {
  if (changes.Has(DocumentChange::kSamples) && computed()) {
    freshness_ = Freshness::kSamplesChanged;
    press.held = false;
  }
  if (changes.Has(DocumentChange::kSettings) && !samplesChanged()) {
    freshness_ = SettingsMatch() ? Freshness::kCurrent : Freshness::kSettingsChanged;
  }
  if (changes.Has(DocumentChange::kStretch)) FollowVisibleStretch();
  FollowDocument(changes);
  // Cursor and selection lie over the picture, the title is the frame's.
  const bool picture = changes.HasOther(DocumentChange::kCursor | DocumentChange::kTitle);
  picture ? PictureChanged() : Changed();
}

double TimeFactor(const CSonadexDoc& document) {
  return TimeFactor(document.settings.display.timeBase);
}

WindowReadout TimeReadout(const CSonadexDoc& document, std::string_view name, double ms) {
  const bool seconds = document.settings.display.timeBase != 0;
  return {std::string(name) + (seconds ? "(sec)=" : "(ms)="),
          FormatOneDecimal(ms * TimeFactor(document))};
}

}  // namespace cantorix
