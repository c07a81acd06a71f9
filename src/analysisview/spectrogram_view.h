// spectrogram_view.h - the spectrogram window of a document: its levels and formants held, its
// axes, its cursor and selection.
// Relies on the document's samples and settings and on the prompts of its host. Draws nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "analysis/sample_range.h"
#include "analysis/spectrogram.h"
#include "analysisview/analysis_window.h"
#include "analysisview/spectrogram_log.h"
#include "mainview/axis_scale.h"
#include "settings/settings.h"

namespace cantorix {

// Size of the picture; a formant track alone needs no levels, but the rows decide what is silent.
struct SpectrogramSize {
  std::int64_t columns = 0;
  int rows = 0;
  bool keepLevels = true;
  bool keepSource = false;  // another dynamic range is to need no transform
  LevelTaker takeLevels{};  // the levels are given away instead
};

// Times of a window's own selection, ordered.
struct TimeSpan {
  double startMs = 0.0;
  double endMs = 0.0;
};

class CSpectrogramView : public AnalysisWindow {
 public:
  explicit CSpectrogramView(CSonadexDoc& document, WindowServices services = {})
      : AnalysisWindow(document, std::move(services)) {}

  // Computes the picture of `range` (samples) with the settings of the document; an earlier one is
  // dropped first. Returns false when there is nothing to compute: no columns or rows, or a
  // sampling rate without meaning. Leaves by Abandoned when the user cancels, when memory runs out
  // and, after a message, when a column's formants cannot be found; by FileError when the samples
  // cannot be read. Nothing is computed then.
  bool ComputeSpectrogram(const SampleRange& range, const SpectrogramSize& size);
  // The same for the wanted size; the whole recording stays the whole recording when it changes.
  // Here and in Update the user is told when memory runs out.
  bool Show(const SampleRange& range);

  WindowKind kind() const override { return WindowKind::kSpectrogram; }
  bool computed() const override { return spectrogram_.computed(); }
  bool hasFormants() const override { return computed() && !spectrogram_.formants.empty(); }
  SampleRange ShownSamples() const override { return shown_.value_or(range_); }
  bool canUpdate() const override { return range_.length() > 0.0; }
  void Update() override;
  // A press places the cursor, a drag of more than kClickPixels selects. While all windows track
  // the mouse the main view is pressed at the same times.
  void Press(std::int32_t x, std::int32_t y) override;
  void Move(std::int32_t x, std::int32_t y) override;
  void Release(std::int32_t x, std::int32_t y) override;
  void StepCursor(std::int32_t right, std::int32_t up) override;
  // The main view's press, move or release, at the cursor time of its press: the cursor goes there,
  // at its own frequency, and the window shows the main view's selection.
  void FollowMainView(MousePhase phase, double ms) override;
  std::vector<LogEntry> LogRows(WindowLog log) const override;
  // Time, frequency and level at the cursor with the formants there, length of the selection.
  std::vector<WindowReadout> Readouts() const override;
  std::int32_t* SwitchOf(WindowSwitch which) override;

  const Spectrogram& spectrogram() const { return spectrogram_; }  // empty unless computed
  // Those of the last computation.
  const SpectrogramSettings& settings() const { return settings_; }
  // Number of the last computation, and of the last time that its levels were made.
  std::int64_t computation() const { return computation_; }
  std::int64_t levelsNumber() const { return levelsNumber_; }
  // Of the picture; what it was when it was computed.
  SpectrogramLogContext LogContext() const;
  // What the levels of the picture count up to, in dB; another range may be wanted by now.
  double dynamicRangeDb() const { return settings_.dynamicRangeDb; }

  // Of what is shown, ms; the computed stretch may be another one until the user rests.
  AxisScale TimeAxis() const;
  // The same in samples; empty unless computed.
  SampleRange AxisSamples() const { return shown_.value_or(spectrogram_.range); }
  // Of a row of pixels, the nearest one of the plot.
  double HzUnder(std::int32_t y) const;
  // The row of a frequency; nothing outside the picture.
  std::optional<std::int32_t> RowOf(double hz) const;
  // The level at the cursor's column and row; nothing outside the picture.
  std::optional<double> LevelAtCursor() const;

  double cursorMs = 0.0;
  double cursorHz = 0.0;
  double dragMs = 0.0;          // where the pointer is while it is held
  bool selectionShown = false;  // dragged here, or followed from the main view
  TimeSpan selection;

 private:
  void FollowDynamicRange();
  bool ComputeOrSay(const SampleRange& range, const char* lowMemory);
  void PlaceCursor(double ms, double hz);
  void Drag(std::int32_t x);
  double MsUnder(std::int32_t x) const;
  double HzPerPixel() const;
  bool SettingsMatch() const override;
  void FollowDocument(DocumentChanges changes) override;
  void KeepSwitches() override;
  void TakeStretch(const SampleRange& range) override;
  bool ShowsOther() const override { return shown_.has_value(); }

  Spectrogram spectrogram_;
  SpectrogramSettings settings_;  // of the last computation
  double msPerSample_ = 0.0;
  SampleRange range_;  // that was asked for last
  bool wholeRecording_ = false;
  std::optional<SampleRange> shown_;  // instead of the range of the levels
  std::int64_t computation_ = 0;
  std::int64_t levelsNumber_ = 0;
};

}  // namespace cantorix
