// window_fixture.h - a recording for the analysis windows, and one in a laid-out main view that the
// windows follow.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "analysis/test_signals.h"
#include "analysisview/analysis_window.h"
#include "mainview/view_fixture.h"

namespace cantorix {

struct RecordingFixture {
  explicit RecordingFixture(const testing::Samples& samples, double rateHz = 11025.0) {
    Hold(document, samples, rateHz);
  }

  ViewWorld around;
  TestHost& world = around.test;
  CSonadexDoc document{world.host};
};

// One second at 10 samples per ms, 1000 pixels wide from the margin on: a pixel is a millisecond.
class MainViewTest : public RecordingFixture, public ::testing::Test {
 protected:
  MainViewTest() : RecordingFixture(testing::Noise(10000, 5000), 10000.0) {
    document.SetPathName("/recordings/talk.wav");
    document.settings.display.trackMouse = 1;
    around.logOpen = true;
    view.Begin({1045, 500});
  }

  // For a window of this view.
  WindowServices Services() {
    return {&view, [this] { ++changes; }, around.Services().openLog};
  }
  // The samples go away but for the first ones, as a cut leaves them.
  void CutTo(std::int64_t samples) {
    const auto all = document.channel().samples.samples();
    Hold(document, Samples(all.begin(), all.begin() + samples), 10000.0);
    document.Notify(DocumentChange::kSamples);
  }

  RecordingLog& log = around.log;
  int changes = 0;
  CSonadexView view{document, around.Services()};
};

// Every readout as one text.
inline std::string TextOf(const AnalysisWindow& window) {
  return JoinedEach(window.Readouts(),
                    [](const WindowReadout& readout) { return readout.label + readout.value; });
}

}  // namespace cantorix
