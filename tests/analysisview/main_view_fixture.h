// main_view_fixture.h - a recording in a laid-out main view, for the analysis windows that follow
// it.
#pragma once

#include <functional>

#include "analysisview/window_fixture.h"
#include "mainview/clipboard.h"
#include "mainview/sonadex_view.h"
#include "support/view_fakes.h"

namespace cantorix {

// Hands the main view's own presses, moves and releases to `cursorMoved`.
class ForwardingListener : public ViewListener {
 public:
  void ViewChanged(const ViewNotice& notice) override {
    if (cursorMoved && notice.pointer) cursorMoved(notice.pointer->phase, notice.pointer->ms);
  }
  std::function<void(MousePhase, double)> cursorMoved;
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
  ScriptedDialogs dialogs;
  FixedTextMeasurer measurer;
  CountingPlayback playback;
  ForwardingListener listener;
  RecordingLog log;
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
