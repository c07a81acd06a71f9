// pitch_view.h - the pitch window of a document: the main view's pitch track over axes of its own,
// with a cursor. The track stays the main view's and is asked for each time; the pitch options say
// which strips stand beside it. The size of the picture does not matter to it, so it is
// not told of one. Draws nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "analysisview/analysis_window.h"
#include "mainview/axis_scale.h"

namespace cantorix {

struct PitchSettings;

class CPitchView : public AnalysisWindow {
 public:
  explicit CPitchView(CSonadexView& mainView, WindowServices services = {});
  ~CPitchView() override;

  WindowKind kind() const override { return WindowKind::kPitch; }
  bool computed() const override;
  bool hasFormants() const override { return false; }
  // Once there was a track, its stretch can be analysed again.
  bool canUpdate() const override { return range_.length() > 0.0; }
  void Update() override;
  // The cursor is under the pointer while the button is held. The moves go to the main view, the
  // first of them after their press.
  void Press(std::int32_t x, std::int32_t y) override;
  void Move(std::int32_t x, std::int32_t y) override;
  void Release(std::int32_t x, std::int32_t y) override;
  // The cursor is the main view's wherever the track has it.
  void FollowMainView(MousePhase phase, double ms) override;
  void StepCursor(std::int32_t right, std::int32_t up) override;
  // The marker's time, pitch and intensity.
  std::vector<LogEntry> LogRows(WindowLog log) const override;
  std::vector<WindowReadout> Readouts() const override;
  std::int32_t* SwitchOf(WindowSwitch which) override;

  // In samples: the stretch that the track covers, until another one is shown.
  SampleRange ShownSamples() const override;
  // The same in ms; nothing without a track.
  AxisScale TimeAxis() const;

  double cursorMs = 0.0;

 private:
  void PlaceCursor(double ms);
  double MsUnder(std::int32_t x) const;
  bool SettingsMatch() const override;
  void TakeTrack();
  void FollowDocument(DocumentChanges changes) override;
  void KeepSwitches() override;
  void TakeStretch(const SampleRange& range) override { shown_ = range; }

  CSonadexView& view_;
  SampleRange range_;                        // of the last track
  std::optional<SampleRange> shown_;         // instead of the track's
  std::unique_ptr<PitchSettings> settings_;  // of the last track
  std::optional<double> unpassedPressMs_;    // the main view knows nothing of it yet
  bool wholeRecording_ = false;
};

}  // namespace cantorix
