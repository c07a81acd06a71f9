// view_commands_test.cpp - zoom, scroll, wheel and selection commands as they change the view:
// playback, flags, bars and what is drawn. The arithmetic has tests of its own.
#include "mainview/view_commands.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "mainview/label_list.h"
#include "mainview/time_axis.h"
#include "settings/config_file.h"
#include "wide_view.h"

namespace cantorix {
namespace {

using testing::ElementsAre;

using ViewCommandsTest = WideViewTest;

TEST_F(ViewCommandsTest, NewViewIsUnzoomedAndReadsNothing) {
  EXPECT_FALSE(view.zoomed() || view.markerSet() || view.selectionShown() || view.undoAvailable);
  EXPECT_EQ(view.horizontal.page, kUnzoomedPage);
  EXPECT_EQ(view.horizontal.position, 0);
  EXPECT_TRUE(view.redrawNeeded);
}

TEST_F(ViewCommandsTest, ZoomsStopPlaybackAndSetTheBar) {
  document.settings.zoomRangeMs = 1000.0;
  const struct {
    const char* name;
    Zoom zoom;
    bool zoomed;
    std::int32_t position, page;
  } cases[] = {
      {"selection", Zoom::kSelection, true, 6000, 12000},
      {"in", Zoom::kIn, true, 9000, 6000},
      {"back", Zoom::kUnZoom, true, 6000, 12000},
      {"out", Zoom::kOut, true, 0, 24000},
      {"from the cursor", Zoom::kFromCursor, true, 6000, 3000},
      {"home", Zoom::kHome, false, 0, kUnzoomedPage},
      {"out of everything", Zoom::kOut, false, 0, kUnzoomedPage},
  };
  SelectSpan(view, 2000.0, 6000.0);
  int stops = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    view.redrawNeeded = false;
    ZoomView(view, c.zoom);
    EXPECT_EQ(view.zoomed(), c.zoomed);
    EXPECT_EQ(view.horizontal.position, c.position);
    EXPECT_EQ(view.horizontal.page, c.page);
    EXPECT_TRUE(view.redrawNeeded);
    EXPECT_EQ(playback.stops, ++stops);
  }
  ZoomViewToTime(view, 9900.0);
  EXPECT_EQ(channel.visibleStart.samples, 9400.0);
  EXPECT_EQ(channel.visibleEnd.samples, 10'000.0);
  EXPECT_TRUE(view.zoomed());
  EXPECT_EQ(playback.stops, ++stops);
}

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
  TurnWheel(view, 120);
  EXPECT_EQ(view.horizontal.position, 6000 + 1200);
  EXPECT_EQ(channel.visibleStart.samples, 7200.0 * (10'000.0 * 3.3333333333333335e-5));
  TurnWheel(view, -1);
  TurnWheel(view, -1);
  EXPECT_EQ(view.horizontal.position, 6000 - 1200);
  TurnWheel(view, 0);
  EXPECT_EQ(view.horizontal.position, 6000 - 1200);
  EXPECT_EQ(playback.stops, 4);
  ScrollView(view, ScrollRequest::kTrack, 9000);
  EXPECT_EQ(view.horizontal.position, 9000);
  EXPECT_TRUE(view.zoomed());
  EXPECT_EQ(playback.stops, 4);
}

TEST_F(ViewCommandsTest, SelectionsEndWithTheRecordingAndReplaceTheMarker) {
  document.settings.zoomRangeMs = 3000.0;
  PlaceMarker(view, 9000.0);
  EXPECT_TRUE(view.markerSet());
  ZoomView(view, Zoom::kFromCursor);
  SelectWindow(view);
  EXPECT_TRUE(view.selectionShown() && document.hasSelection);
  EXPECT_FALSE(view.markerSet());
  EXPECT_EQ(channel.selectionStart.samples, 9000.0);
  EXPECT_EQ(channel.selectionEnd.samples, 10'000.0);
  EXPECT_EQ(view.readouts.durationMs, 1000.0);
  SelectAll(view);
  EXPECT_EQ(channel.selectionLength.ms, 10'000.0);
  SelectSpan(view, 12'000.0, 8000.0);
  EXPECT_EQ(channel.selectionStart.ms, 8000.0);
  EXPECT_EQ(channel.selectionEnd.ms, 10'000.0);

  const double cursorMs = channel.cursor.ms;
  DropSelection(view);
  EXPECT_FALSE(view.selectionShown() || document.hasSelection || view.markerSet());
  EXPECT_EQ(channel.selectionEnd.ms, 0.0);
  EXPECT_EQ(channel.cursor.ms, cursorMs);
  EXPECT_EQ(view.readouts.durationMs, 0.0);
}

TEST_F(ViewCommandsTest, ZoomRangeIsKeptInTheConfigurationAtOnce) {
  const std::string path = ConfigPath(world.test.folder.path());
  ASSERT_TRUE(WriteConfiguration(path, {{}, DefaultDocumentSettings()}));
  document.settings.zoomRangeMs = 250.9;
  auto& dialog = world.dialogs.zoomRange;
  dialog.WillCancel();
  SetZoomRange(view);
  EXPECT_EQ(document.settings.zoomRangeMs, 250.9);
  dialog.WillGive(750);
  SetZoomRange(view);
  EXPECT_THAT(dialog.presets, ElementsAre(250, 250));
  EXPECT_EQ(document.settings.zoomRangeMs, 750.0);
  Settings stored;
  ASSERT_TRUE(DecodeRecord(ReadConfiguration(path), stored));
  EXPECT_EQ(stored.document.zoomRangeMs, 750.0);
}

TEST_F(ViewCommandsTest, SettingsOfTheProgramReachLayoutAndLabelList) {
  document.settings.display.drawPitch = 0;
  listener = {};
  document.Notify(DocumentChange::kSettings);
  EXPECT_EQ(view.layout.pitch.bottom, view.layout.pitch.top);
  ASSERT_EQ(listener.notices.size(), 1U);
  EXPECT_TRUE(listener.notices[0].HasAny(kLabelListChanges));  // times follow the time base
}

TEST_F(ViewCommandsTest, VerticalScrollMovesTiersAndPanesUpwards) {
  document.settings.display.audioPanePercent = 100;
  document.settings.display.pitchPanePercent = 100;
  channel.tiers[2].inUse = true;
  view.LayOut(kWideClient);
  ASSERT_GT(view.layout.laidOutHeight, kWideClient.height);
  ScrollViewVertically(view, ScrollRequest::kTrack, 30);
  EXPECT_EQ(view.tierOffset, -30);
  EXPECT_EQ(view.layout.tier(2).top, -30);
  EXPECT_EQ(view.layout.audio.top, -10);
  document.settings.display.audioPanePercent = 50;
  document.settings.display.pitchPanePercent = 50;
  view.LayOut({1045, 2000});
  EXPECT_EQ(view.tierOffset, 0);
  EXPECT_EQ(view.layout.tier(2).top, 0);
}

TEST_F(ViewCommandsTest, VerticalScrollNeverLeavesTheEndOfTheLayout) {
  document.settings.display.audioPanePercent = 200;
  document.settings.display.pitchPanePercent = 200;
  view.LayOut(kWideClient);
  const std::int32_t last = view.vertical.range - view.vertical.page + 1;
  const auto scroll = [this](ScrollRequest request) {
    ScrollViewVertically(view, request);
    EXPECT_EQ(view.tierOffset, -view.vertical.position);
  };
  for (int i = 0; i < 9; ++i) scroll(ScrollRequest::kPageForward);
  EXPECT_EQ(view.tierOffset, -last);
  scroll(ScrollRequest::kPageBack);
  for (int i = 0; i < 40; ++i) ScrollViewVertically(view, ScrollRequest::kLineForward);
  EXPECT_EQ(view.tierOffset, -last);
  for (int i = 0; i < 80; ++i) ScrollViewVertically(view, ScrollRequest::kLineBack);
  EXPECT_EQ(view.tierOffset, 0);

  ScrollViewVertically(view, ScrollRequest::kTrack, last);
  document.settings.display.pitchPanePercent = 50;
  document.Notify(DocumentChange::kSettings);
  EXPECT_EQ(view.tierOffset, -(view.vertical.range - view.vertical.page + 1));
}

TEST_F(ViewCommandsTest, ViewThatCannotAnalyseAtFirstSaysSoAndOpens) {
  Hold(document, Ramp(2000), 1000.0, Place::kDisk);
  for (const std::string& name : world.test.folder.Names()) {
    std::filesystem::resize_file(world.test.folder / name, 0);
  }
  document.settings.display.automaticAnalysis = 1;
  CSonadexView late(document, world.Services());
  late.Begin(kWideClient);
  EXPECT_THAT(world.test.prompts.TakeTranscript(),
              ElementsAre("beep", "message: Error in initilization of view."));
  EXPECT_EQ(late.layout.client.width, kWideClient.width);
}

}  // namespace
}  // namespace cantorix
