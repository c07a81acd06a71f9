// view_commands_test.cpp - zoom, scroll, wheel and selection commands as they change the view:
// playback, flags, bars and what is drawn. The arithmetic has tests of its own.
#include "mainview/view_commands.h"

#include <gmock/gmock.h>

#include "mainview/label_list.h"
#include "mainview/option_commands.h"
#include "mainview/time_axis.h"
#include "mainview/view_fixture.h"
#include "settings/config_file.h"
#include "settings/field_text.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

class ViewCommandsTest : public WideViewTest {
 protected:
  DisplaySettings& display = document.settings.display;

  void SetPanes(std::int32_t percent, std::int32_t pitchPercent) {
    display.audioPanePercent = percent;
    display.pitchPanePercent = pitchPercent;
  }
  std::string BarOf() const {
    return Joined(view.horizontal.position, view.horizontal.page, view.zoomed());
  }
};

// The zoomed part beyond the end is a part of the page.
TEST_F(ViewCommandsTest, PageOfAStretchBeyondTheEndCountsAllOfItIsKept) {
  document.settings.zoomRangeMs = 100.0;
  PlaceMarker(view, 9990.0);
  ZoomView(view, Zoom::kFromCursor);
  EXPECT_EQ(channel.visibleEnd.samples, 10'090.0);
  EXPECT_EQ(view.horizontal.page, 300);
}

TEST_F(ViewCommandsTest, WheelStopsPlaybackAndScrollsALineTheScrollBarLeavesItRunning) {
  SelectSpan(view, 2000.0, 6000.0);
  ZoomView(view, Zoom::kSelection);
  playback.stops = 0;
  const std::pair<std::int32_t, const char*> turns[] = {
      {120, "7200 12000 1"}, {-1, "6000 12000 1"}, {-1, "4800 12000 1"}, {0, "4800 12000 1"}};
  for (const auto& [delta, bar] : turns) {
    TurnWheel(view, delta);
    EXPECT_EQ(BarOf(), bar);
  }
  EXPECT_EQ(channel.visibleStart.samples, 4800.0 * (10'000.0 * 3.3333333333333335e-5));
  EXPECT_EQ(playback.stops, 4);
  ScrollView(view, ScrollRequest::kTrack, 9000);
  EXPECT_EQ(BarOf(), "9000 12000 1");
  EXPECT_EQ(playback.stops, 4);
}

TEST_F(ViewCommandsTest, SelectionsEndWithTheRecordingAndReplaceTheMarker) {
  document.settings.zoomRangeMs = 3000.0;
  PlaceMarker(view, 9000.0);
  EXPECT_EQ(MarksOf(view), "marker 9000 of 9000 9000 = 0");
  ZoomView(view, Zoom::kFromCursor);
  SelectWindow(view);
  EXPECT_EQ(MarksOf(view), "selection to save 9000 of 9000 10000 = 1000");
  EXPECT_EQ(view.readouts.durationMs, 1000.0);
  SelectAll(view);
  EXPECT_EQ(MarksOf(view), "selection to save 9000 of 0 10000 = 10000");
  SelectSpan(view, 12'000.0, 8000.0);
  EXPECT_EQ(MarksOf(view), "selection to save 10000 of 8000 10000 = 2000");
  DropSelection(view);
  EXPECT_EQ(MarksOf(view), "10000 of 0 0 = 0");
  EXPECT_EQ(view.readouts.durationMs, 0.0);
}

TEST_F(ViewCommandsTest, OptionsAreKeptInTheConfigurationAtOnce) {
  const std::string path = ConfigPath(world.test.folder.path());
  ASSERT_TRUE(WriteConfiguration(path, {{}, DefaultDocumentSettings()}));
  ScriptedDialogs& dialogs = world.dialogs;
  document.settings.zoomRangeMs = 250.9;
  dialogs.zoomRange.WillCancel();
  SetZoomRange(view);
  EXPECT_EQ(document.settings.zoomRangeMs, 250.9);
  EXPECT_THAT(dialogs.zoomRange.presets, ElementsAre(250));
  dialogs.zoomRange.WillGive(77);
  dialogs.fftLpc.WillGive({.stepMs = 77});
  dialogs.spectrogram.WillGive({.lpcOrder = 77});
  dialogs.pitch.WillGive({.stepMs = 77.0});
  dialogs.intensity.WillGive({.stepMs = 77.0});
  dialogs.logStep.WillGive(77);
  const std::pair<const char*, void (*)(CSonadexView&)> rows[] = {
      {"zoom.rangeMs", SetZoomRange},
      {"fftlpc.stepMs", SetFftLpcOptions},
      {"pitch.stepMs", SetPitchOptions},
      {"spectrogram.lpcOrder", SetSpectrogramOptions},
      {"intensity.stepMs", SetIntensityOptions},
      {"log.stepHz", SetLogOptions}};
  for (const auto& [name, set] : rows) {
    listener = {};
    set(view);
    Settings stored;
    ASSERT_TRUE(DecodeRecord(ReadConfiguration(path), stored));
    EXPECT_EQ(FieldText(stored, *FindField(name)), "77") << name;
    EXPECT_EQ(FieldText({{}, document.settings}, *FindField(name)), "77") << name;
    ASSERT_EQ(listener.notices.size(), 1U) << name;
    EXPECT_EQ(listener.notices[0], DocumentChange::kSettings) << name;
  }
}

TEST_F(ViewCommandsTest, SettingsOfTheProgramReachLayoutAndLabelList) {
  display.drawPitch = 0;
  listener = {};
  document.Notify(DocumentChange::kSettings);
  EXPECT_EQ(view.layout.pitch.bottom, view.layout.pitch.top);
  ASSERT_EQ(listener.notices.size(), 1U);
  EXPECT_TRUE(listener.notices[0].HasAny(kLabelListChanges));  // times follow the time base
}

TEST_F(ViewCommandsTest, VerticalScrollNeverLeavesTheEndOfTheLayout) {
  SetPanes(200, 200);
  view.LayOut(kWideClient);
  const auto last = [this] { return view.vertical.range - view.vertical.page + 1; };
  const auto scroll = [this](ScrollRequest request, int times) {
    for (int i = 0; i < times; ++i) ScrollViewVertically(view, request);
    EXPECT_EQ(view.tierOffset, -view.vertical.position);
    return -view.tierOffset;
  };
  EXPECT_EQ(scroll(ScrollRequest::kPageForward, 9), last());
  scroll(ScrollRequest::kPageBack, 1);
  EXPECT_EQ(scroll(ScrollRequest::kLineForward, 40), last());
  EXPECT_EQ(scroll(ScrollRequest::kLineBack, 80), 0);
  ScrollViewVertically(view, ScrollRequest::kTrack, last());
  EXPECT_EQ(view.layout.audio.top, view.tierOffset) << "the panes go along";
  SetPanes(200, 50);
  document.Notify(DocumentChange::kSettings);
  EXPECT_EQ(view.tierOffset, -last());
}

TEST_F(ViewCommandsTest, ViewThatCannotAnalyseAtFirstSaysSoAndOpens) {
  Hold(document, Ramp(2000), 1000.0, Place::kDisk);
  EmptyStores(world);
  display.automaticAnalysis = 1;
  CSonadexView late(document, world.Services());
  late.Begin(kWideClient);
  EXPECT_THAT(world.test.prompts.TakeTranscript(),
              ElementsAre("beep", "message: Error in initilization of view."));
  EXPECT_EQ(late.layout.client.width, kWideClient.width);
}

}  // namespace
}  // namespace cantorix
