// main_view_fixture.h - a recording in a laid-out main view, with dialogs that are always
// cancelled, for the analysis windows that follow it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "mainview/clipboard.h"
#include "mainview/sonadex_view.h"
#include "windows/window_fixture.h"

namespace cantorix {

class CancelledDialogs : public ViewDialogs {
 public:
  std::optional<LabelAnswer> AskLabel(const Label&, bool) override { return {}; }
  std::optional<TierSetups> AskTiers(const TierSetups&) override { return {}; }
  std::optional<LabelImportAnswer> AskLabelImport(const std::vector<std::string>&,
                                                  const LabelImportOptions&) override {
    return {};
  }
  std::optional<GainSettings> AskGain(const GainSettings&) override { return {}; }
  std::optional<std::int32_t> AskZoomRange(std::int32_t) override { return {}; }
  std::optional<FftLpcSettings> AskFftLpc(const FftLpcSettings&, double) override { return {}; }
  std::optional<SpectrogramSettings> AskSpectrogram(const SpectrogramSettings&, double) override {
    return {};
  }
  std::optional<PitchSettings> AskPitch(const PitchSettings&) override { return {}; }
  std::optional<IntensitySettings> AskIntensity(const IntensitySettings&) override { return {}; }
  std::optional<std::int32_t> AskLogStep(std::int32_t) override { return {}; }
};

class OnePixelText : public TextMeasurer {
 public:
  PixelSize Measure(const FontDescription&, std::string_view) const override { return {1, 1}; }
};

class NoPlayback : public PlaybackControl {
 public:
  void StopPlayback() override {}
};

// Hands the main view's own presses, moves and releases to `cursorMoved`.
class ForwardingListener : public ViewListener {
 public:
  void ViewChanged() override {}
  void LabelsChanged() override {}
  void CursorMoved(MousePhase phase, double ms) override {
    if (cursorMoved) cursorMoved(phase, ms);
  }
  std::function<void(MousePhase, double)> cursorMoved;
};

// Keeps the rows; has had enough after `mostRows` of them.
class KeptRows : public LogSink {
 public:
  bool Append(const LogEntry& entry) override {
    rows.push_back(entry);
    return rows.size() >= mostRows;
  }
  std::vector<LogEntry> rows;
  std::size_t mostRows = SIZE_MAX;
};

// One second at 10 samples per ms, 1000 pixels wide from the margin on: a pixel is a millisecond.
class MainViewFixture : public RecordingFixture {
 public:
  MainViewFixture() : RecordingFixture(testing::Noise(10000, 5000), 10000.0) {
    inMemory.loaded = true;
    inMemory.SetPathName("/recordings/talk.wav");
    inMemory.channel().ShowWholeFile();
    view.Begin({1045, 500});
  }

  // For a window of this view, with the log open while `logOpen`.
  WindowServices Services() {
    return {&view, [this] { ++changes; },
            [this]() -> LogSink* { return logOpen ? &log : nullptr; }};
  }
  // The samples go away but for the first ones, as a cut leaves them.
  void CutTo(std::int64_t samples) {
    SampleBlock block(samples);
    const auto kept = inMemory.channel().samples.samples();
    std::copy_n(kept.begin(), samples, block.samples().begin());
    inMemory.HoldInMemory(std::move(block));
    inMemory.channel().totalLength = static_cast<double>(samples);
    inMemory.channel().totalDurationMs = static_cast<double>(samples) * 0.1;
    inMemory.Notify(DocumentChange::kSamples);
  }

  Clipboard clipboard;
  CancelledDialogs dialogs;
  OnePixelText measurer;
  NoPlayback playback;
  ForwardingListener listener;
  KeptRows log;
  bool logOpen = true;
  int changes = 0;
  CSonadexView view{inMemory,
                    {.clipboard = clipboard,
                     .temporaryDirectory = world.folder.path() + "/",
                     .textMeasurer = measurer,
                     .listener = listener,
                     .playback = playback,
                     .dialogs = dialogs,
                     .openLog = {}}};
};

}  // namespace cantorix
