// fft_lpc_view.h - the FFT/LPC window of a document: its settings checked, its spectrum held, its
// axes and its cursor. Relies on the document's samples and settings and on the prompts of its
// host. Draws nothing.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "analysis/sample_range.h"
#include "analysis/spectrum.h"
#include "analysisview/analysis_window.h"
#include "mainview/axis_scale.h"
#include "settings/settings.h"

namespace cantorix {

// What the spectrum is taken of.
struct SpectrumPlace {
  double position = 0.0;                 // sample where the frame starts
  std::optional<SampleRange> selection;  // instead: the average over these samples
};

// The settings that the window names beside its spectrum, as whole numbers.
struct FftLpcTexts {
  std::string points, lpcOrder, rateHz, windowMs, stepMs;
};

class CFFTLPCView : public AnalysisWindow {
 public:
  explicit CFFTLPCView(CSonadexDoc& document, WindowServices services = {})
      : AnalysisWindow(document, std::move(services)) {}

  // Analyses with the settings of the document into `displayPoints` points. Returns false, after a
  // message and with the earlier results kept, when a setting does not fit the sampling rate or the
  // sample buffer cannot be had; the same without a message for an FFT size that no dialog offers,
  // a rate without meaning and no display points. Leaves by Abandoned when the user cancels or
  // memory runs out on the way, by FileError when the samples cannot be read; nothing is computed
  // then.
  bool AnalyseSpectrum(const SpectrumPlace& place, int displayPoints);
  // The same at another place, for the wanted size; the marker stays at its frequency.
  bool Show(const SpectrumPlace& place);

  WindowKind kind() const override { return WindowKind::kFftLpc; }
  bool computed() const override { return computed_; }
  bool hasFormants() const override { return computed_; }
  bool canUpdate() const override { return placed_; }
  void Update() override;
  // The marker is under the pointer while the button is held; it steps by display points.
  void Press(std::int32_t x, std::int32_t y) override;
  void Move(std::int32_t x, std::int32_t y) override;
  void Release(std::int32_t x, std::int32_t y) override;
  void StepCursor(std::int32_t right, std::int32_t up) override;
  std::vector<LogEntry> LogRows(WindowLog log) const override;
  // Frequency and levels at the marker, the formants, the settings of the analysis.
  std::vector<WindowReadout> Readouts() const override;
  std::int32_t* SwitchOf(WindowSwitch which) override;

  const Spectrum& spectrum() const { return spectrum_; }  // empty unless computed
  const SpectrumPlace& place() const { return place_; }
  // "at 1234.5 ms", "mean of 100.0 ms – 350.5 ms"; empty unless computed.
  std::string PlaceText() const;
  const FftLpcTexts& texts() const { return texts_; }
  // The settings of the last analysis.
  const FftLpcSettings& settings() const { return settings_; }

  // 0 Hz to the top of the display over the width of the plot.
  AxisScale FrequencyAxis() const;
  // The top of the level axis, which begins at 0 dB: the level of the options or, when they say
  // relative, a little above the highest of what is drawn; never less than 1 dB.
  double TopLevelDb() const;

  double cursorHz = 0.0;  // of the marker

 private:
  bool SettingsFit(const FftLpcSettings& settings, double rateHz) const;
  bool BufferFits() const;
  void KeepSettings(const FftLpcSettings& settings, double rateHz);
  Spectrum Analyse(const SpectrumPlace& place, int displayPoints) const;
  void PlaceCursor(std::int32_t x);
  bool SettingsMatch() const override;
  void FollowDocument(DocumentChanges changes) override;
  void KeepSwitches() override;
  bool ShowsOther() const override { return marker_.has_value(); }

  SpectrumPlace place_;
  bool placed_ = false;           // place_ was asked for
  std::optional<double> marker_;  // sample of the main view's, where the next spectrum is taken
  FftLpcSettings settings_;
  double preEmphasis_ = 0.0;  // of the last analysis
  FftLpcTexts texts_;
  Spectrum spectrum_;
  bool computed_ = false;
};

}  // namespace cantorix
