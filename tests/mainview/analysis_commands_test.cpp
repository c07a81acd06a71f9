// analysis_commands_test.cpp - which stretch is analysed, and what becomes of tracks and readouts.
#include "mainview/analysis_commands.h"

#include <gmock/gmock.h>

#include <utility>

#include "analysis/test_signals.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

// Two seconds of a tone of 200 Hz.
class AnalysisCommandsTest : public ViewTest {
 protected:
  AnalysisCommandsTest() { PlaceMarker(view, 1000.0); }
  ViewedRecording recording{world, testing::Sine(32'000, 16'000.0, 200.0, 8000.0), 16'000.0};
  CSonadexDoc& document = recording.document;
  CSonadexView& view = recording.view;
};

TEST_F(AnalysisCommandsTest, StretchesEndWithTheRecording) {
  const auto stretch = [this](Stretch which) {
    const SampleRange range = StretchOf(view, which);
    return Joined(range.start, range.end);
  };
  document.settings.zoomRangeMs = 1000.0;
  PlaceMarker(view, 1500.0);
  ZoomView(view, Zoom::kFromCursor);
  SelectSpan(view, 250.0, 750.0);
  EXPECT_EQ(stretch(Stretch::kAll), "0 32000");
  EXPECT_EQ(stretch(Stretch::kSelection), "4000 12000");
  EXPECT_EQ(stretch(Stretch::kWindow), "24000 32000");
  document.channel().totalLength = 10'000.0;
  EXPECT_EQ(stretch(Stretch::kSelection), "4000 10000");
}

TEST_F(AnalysisCommandsTest, PitchBringsIntensityAndReadouts) {
  AnalysePitch(view, Stretch::kAll);
  EXPECT_NEAR(view.readouts.pitchHz, 200.0, 3.0);
  EXPECT_NEAR(view.readouts.intensityDb, 75.0, 0.3);  // 20 log10(8000 / sqrt 2)
  SelectSpan(view, 500.0, 1500.0);
  EXPECT_NEAR(view.readouts.averagePitchHz, 200.0, 3.0);
  AnalysePitch(view, Stretch::kSelection);
  EXPECT_EQ(view.pitch.range.start, 8000.0);
  EXPECT_EQ(document.channel().intensity.range.end, 24'000.0);
  PlaceMarker(view, 1900.0);  // outside the tracks
  EXPECT_EQ(view.readouts.pitchHz, 0.0);
  AnalyseIntensity(view, Stretch::kAll);
  EXPECT_NEAR(view.readouts.intensityDb, 75.0, 0.3);
}

TEST_F(AnalysisCommandsTest, PitchThatIsGivenUpOrRefusedEndsTheCommand) {
  AnalysePitch(view, Stretch::kAll);
  const auto windows = [this] { return std::exchange(world.test.progress.texts, {}).size(); };
  EXPECT_EQ(windows(), 2U);
  SelectSpan(view, 0.0, 1099.0 / 16.0);  // too short for the method
  AnalysePitch(view, Stretch::kSelection);
  EXPECT_LE(windows(), 1U);
  PlaceMarker(view, 1000.0);
  world.test.progress.CancelFromNow();
  AnalysePitch(view, Stretch::kAll);
  EXPECT_EQ(windows(), 1U);
  EXPECT_FALSE(view.pitch.PitchValid);
  EXPECT_EQ(view.readouts.pitchHz, 0.0);
  // The intensity is still the one of the first command.
  EXPECT_EQ(document.channel().intensity.range.end, 32'000.0);
  EXPECT_THAT(world.test.prompts.TakeTranscript(), ::testing::IsEmpty());
}

TEST_F(AnalysisCommandsTest, AutomaticAnalysisRunsWhenAViewBegins) {
  document.settings.display.automaticAnalysis = 1;
  CSonadexView late(document, world.Services());
  late.Begin({645, 500});
  EXPECT_TRUE(late.pitch.PitchValid);
}

}  // namespace
}  // namespace cantorix
