// mouse_test.cpp - what a press, a drag and a release do to cursor, selection and readouts, in one
// view, in two views of one document and on behalf of another window.
#include "mainview/mouse.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "document/label.h"
#include "mainview/label_entry_state.h"
#include "mainview/view_commands.h"
#include "platform/file_error.h"
#include "wide_view.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr std::int32_t kY = 100;  // in the waveform

// The pixel column of a time of the whole recording.
constexpr std::int32_t At(double ms) { return 40 + static_cast<std::int32_t>(ms / 10.0); }

PitchResult PitchOf(std::vector<double> track, double endSamples) {
  PitchResult pitch;
  pitch.PitchFrameCount = static_cast<double>(track.size());
  pitch.PitchTrack = std::move(track);
  pitch.PitchTrack.resize(pitch.PitchTrack.size() + 5);
  pitch.PitchValid = true;
  pitch.range = {0.0, endSamples};
  return pitch;
}

class MouseTest : public WideViewTest {
 protected:
  void Click(std::int32_t x) {
    PressMouse(view, x, kY);
    ReleaseMouse(view, x, kY);
  }
  void DragFromTo(double fromMs, double toMs) {
    PressMouse(view, At(fromMs), kY);
    MoveMouse(view, At(toMs), kY);
    ReleaseMouse(view, At(toMs), kY);
  }
};

TEST_F(MouseTest, MoreThanFivePixelsSelectAndStaySelected) {
  const struct {
    const char* name;
    std::vector<std::int32_t> moves;  // pixels from the press at 5000 ms
    std::int32_t release;
    bool selects;
    double startMs, endMs;
  } cases[] = {
      {"a click", {}, 0, false, 5000.0, 5000.0},
      {"five to the right", {5}, 5, false, 5000.0, 5050.0},
      {"five to the left", {-5}, -5, false, 4950.0, 5000.0},
      {"six to the right", {6}, 6, true, 5000.0, 5060.0},
      {"six to the left", {-6}, -6, true, 4940.0, 5000.0},
      {"six without a move on the way", {}, 6, true, 5000.0, 5060.0},
      {"there and back", {20}, 0, true, 5000.0, 5000.0},
      {"to the other side", {20, -30}, -40, true, 4600.0, 5000.0},
      {"beyond the left edge", {-600}, -600, true, 0.0, 5000.0},
      {"beyond the right edge", {700}, 700, true, 5000.0, 10000.0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PlaceMarker(view, 0.0);
    PressMouse(view, At(5000.0), kY);
    EXPECT_TRUE(view.markerSet());
    for (const std::int32_t dx : c.moves) MoveMouse(view, At(5000.0) + dx, kY);
    ReleaseMouse(view, At(5000.0) + c.release, kY);
    EXPECT_EQ(view.selectionShown(), c.selects);
    EXPECT_EQ(document.hasSelection, c.selects);
    EXPECT_EQ(view.markerSet(), !c.selects);
    EXPECT_EQ(channel.selectionStart.ms, c.startMs);
    EXPECT_EQ(channel.selectionEnd.ms, c.endMs);
    EXPECT_EQ(channel.selectionLength.samples, c.endMs - c.startMs);
    EXPECT_EQ(channel.cursor.ms, 5000.0);
    EXPECT_EQ(view.readouts.cursorMs, 5000.0);
    EXPECT_EQ(view.readouts.durationMs, c.selects ? c.endMs - c.startMs : 0.0);
  }
}

TEST_F(MouseTest, ClicksAtTheEdgesStayInsideStretchAndRecording) {
  channel.referenceLevel = 100.0;
  const struct {
    std::int32_t x;
    double ms, value;
  } cases[] = {{40, 0.0, -100.0}, {0, 0.0, -100.0}, {540, 5000.0, 4900.0}, {1044, 10000.0, -100.0}};
  for (const auto& c : cases) {
    Click(c.x);
    EXPECT_EQ(channel.cursor.ms, c.ms) << c.x;
    EXPECT_EQ(channel.cursorValue, c.value) << c.x;
  }
  SelectSpan(view, 4000.0, 8000.0);
  ZoomView(view, Zoom::kSelection);
  Click(40);
  EXPECT_EQ(channel.cursor.samples, 4000.0);
}

TEST_F(MouseTest, PressOnASelectionOnlyRemovesItAndTheNextPlacesAMarker) {
  DragFromTo(2000.0, 4000.0);
  Click(At(7000.0));
  EXPECT_FALSE(view.selectionShown());
  EXPECT_FALSE(document.hasSelection);
  EXPECT_FALSE(view.markerSet());
  EXPECT_EQ(channel.cursor.ms, 7000.0);
  EXPECT_EQ(channel.selectionLength.ms, 0.0);
  Click(At(7000.0));
  EXPECT_TRUE(view.markerSet());
}

TEST_F(MouseTest, PressWithoutARecordingOrOutsideTheClientAreaIsIgnoredToItsRelease) {
  const auto pressAndDrag = [this](std::int32_t x, std::int32_t y) {
    PressMouse(view, x, y);
    MoveMouse(view, 500, kY);
    ReleaseMouse(view, 800, kY);
  };
  for (const auto& [x, y] : {std::pair{-1, kY}, {1045, kY}, {500, -1}, {500, 300}}) {
    pressAndDrag(x, y);
  }
  document.loaded = false;
  pressAndDrag(300, kY);
  PressAtTime(view, 3000.0);
  MoveAtTime(view, 4000.0);
  MoveAtTime(view, 5000.0);
  EXPECT_EQ(channel.cursor.ms, 0.0);
  EXPECT_FALSE(view.selectionShown());
  EXPECT_EQ(playback.stops, 0);
  EXPECT_THAT(listener.moves, IsEmpty());
}

TEST_F(MouseTest, PressStopsPlaybackAndPassesOnTheTimeOfThePress) {
  DragFromTo(3000.0, 6000.0);
  EXPECT_EQ(playback.stops, 1);
  EXPECT_TRUE(view.redrawNeeded);
  EXPECT_THAT(listener.moves,
              ElementsAre(Pair(MousePhase::kPress, 3000.0), Pair(MousePhase::kMove, 3000.0),
                          Pair(MousePhase::kRelease, 3000.0)));
}

TEST_F(MouseTest, ReadoutsFollowCursorSelectionAndTracks) {
  view.pitch = PitchOf({100.0, 200.0, 0.0, 300.0}, 10'000.0);  // 2500 ms each
  channel.intensity.IntensityTrack = LevelTrack({50.0}, 10'000.0, 10'000.0, 10'000);
  channel.intensity.IntensityValid = true;
  channel.intensity.range = {0.0, 10'000.0};
  Click(At(3000.0));
  EXPECT_EQ(view.readouts.pitchHz, 200.0);
  EXPECT_EQ(view.readouts.intensityDb, 50.0);
  EXPECT_EQ(view.readouts.averagePitchHz, 0.0);

  PressMouse(view, At(8000.0), kY);
  MoveMouse(view, At(8030.0), kY);
  EXPECT_EQ(view.readouts.durationMs, 30.0);  // of a drag that may still become a selection
  MoveMouse(view, At(1000.0), kY);
  EXPECT_EQ(view.readouts.pitchHz, 300.0);
  EXPECT_EQ(view.readouts.averagePitchHz, 0.0);
  ReleaseMouse(view, At(1000.0), kY);
  EXPECT_EQ(view.readouts.averagePitchHz, 250.0);  // (200 + 300) / 2, frames at 2500 and 7500 ms

  Click(At(3000.0));  // removes the selection
  EXPECT_EQ(view.readouts.pitchHz, 200.0);
  EXPECT_EQ(view.readouts.durationMs, 0.0);
  EXPECT_EQ(view.readouts.averagePitchHz, 0.0);
  view.pitch = {};
  view.Changed(DocumentChange::kTracks);
  EXPECT_EQ(view.readouts.pitchHz, 0.0);
}

TEST_F(MouseTest, CursorLeftBeyondAShortenedRecordingReadsAsItsEnd) {
  Click(At(9000.0));
  channel.totalLength = 6000.0;
  channel.totalDurationMs = 6000.0;
  view.Changed(DocumentChange::kSamples);
  EXPECT_EQ(view.readouts.cursorMs, 6000.0);
}

TEST_F(MouseTest, AnotherWindowPlacesCursorAndSelectionByTheExactTime) {
  PressAtTime(view, 1234.5);
  EXPECT_EQ(channel.cursor.ms, 1234.5);
  EXPECT_TRUE(view.markerSet());
  MoveAtTime(view, 1284.0);  // 5 pixels
  EXPECT_FALSE(view.selectionShown());
  MoveAtTime(view, 1290.0);  // 6 pixels
  EXPECT_TRUE(view.selectionShown());
  MoveAtTime(view, 987.65);
  EXPECT_EQ(channel.selectionStart.ms, 987.65);
  EXPECT_EQ(channel.selectionEnd.ms, 1234.5);
  EXPECT_EQ(view.pressedMs, 1234.5);
  EXPECT_EQ(playback.stops, 1);
  EXPECT_THAT(listener.moves, IsEmpty());

  PressAtTime(view, 99'999.0);
  EXPECT_EQ(channel.cursor.ms, 10'000.0);
  EXPECT_FALSE(view.markerSet());  // there was a selection
}

TEST_F(MouseTest, TimesFarOutsideATinyStretchAreNoTrouble) {
  SelectSpan(view, 5000.0, 5000.0 + 1e-9);
  ZoomView(view, Zoom::kSelection);
  PressAtTime(view, 0.0);
  MoveAtTime(view, 10'000.0);
  EXPECT_EQ(channel.selectionLength.ms, 10'000.0);
}

TEST_F(MouseTest, PressWhoseSampleCannotBeReadChangesNothing) {
  Hold(document, Ramp(10'000), 1000.0, Place::kDisk);
  DragFromTo(2000.0, 4000.0);
  for (const std::string& name : world.test.folder.Names()) {
    std::filesystem::resize_file(world.test.folder / name, 0);
  }
  EXPECT_THROW(Click(At(7000.0)), FileError);
  MoveMouse(view, At(9000.0), kY);
  EXPECT_TRUE(view.selectionShown() && document.hasSelection);
  EXPECT_EQ(channel.cursor.ms, 2000.0);
  EXPECT_EQ(channel.selectionEnd.ms, 4000.0);
}

TEST_F(MouseTest, LabelsAreFoundInTheLayoutOfTheirOwnWindow) {
  CSonadexView other(document, world.Services());
  AddLabel(document, 1, 2000.0, "one");
  document.Notify(DocumentChange::kLabels);
  other.Begin({545, 200});
  ScrollViewVertically(other, ScrollRequest::kTrack, 30);
  PressMouse(view, At(2000.0) + 5, 10);
  EXPECT_EQ(view.labelEntry.pressedLabel, 0);
  PressMouse(other, 40 + 105, 10);
  EXPECT_EQ(other.layout.tier(1).top, other.tierOffset);
}

class TwoViewsTest : public MouseTest {
 protected:
  TwoViewsTest() { second.Begin({545, 200}); }  // 20 ms per pixel
  CSonadexView second{document, world.Services()};
};

TEST_F(TwoViewsTest, ShareCursorAndSelectionThoughTheirSizesDiffer) {
  second.pitch = PitchOf({100.0}, 10'000.0);
  DragFromTo(2000.0, 4000.0);
  EXPECT_EQ(channel.selectionEnd.ms, 4000.0);
  EXPECT_TRUE(second.selectionShown());
  EXPECT_EQ(second.readouts.cursorMs, 2000.0);
  EXPECT_EQ(second.readouts.durationMs, 2000.0);
  EXPECT_EQ(second.readouts.pitchHz, 100.0);

  PressMouse(second, 40 + 300, 50);
  EXPECT_EQ(channel.cursor.ms, 6000.0);
  EXPECT_FALSE(view.selectionShown());
  EXPECT_FALSE(view.markerSet());
  MoveMouse(second, 40 + 350, 50);
  ReleaseMouse(second, 40 + 350, 50);
  EXPECT_EQ(view.readouts.durationMs, 1000.0);
  Click(At(1000.0));
  EXPECT_EQ(channel.cursor.ms, 1000.0);
  EXPECT_FALSE(second.selectionShown());
}

TEST_F(TwoViewsTest, AnalysisInOneLeavesTheSelectionOfTheOther) {
  DragFromTo(2000.0, 4000.0);
  CSonadexView third(document, world.Services());  // shows no selection
  third.Changed(DocumentChange::kTracks);
  EXPECT_TRUE(view.selectionShown());
}

TEST_F(TwoViewsTest, ShareTheStretchAndItsScrollBar) {
  ZoomView(view, Zoom::kIn);
  ScrollView(view, ScrollRequest::kLineForward);
  EXPECT_TRUE(second.zoomed());
  EXPECT_EQ(second.horizontal.position, view.horizontal.position);
  EXPECT_EQ(second.horizontal.page, view.horizontal.page);
  ZoomView(second, Zoom::kHome);
  EXPECT_FALSE(view.zoomed());
}

TEST_F(TwoViewsTest, EditsInOneEndTrackAndUndoOfTheOther) {
  view.undoAvailable = second.undoAvailable = true;
  view.pitch = second.pitch = PitchOf({100.0}, 10'000.0);
  view.Changed(DocumentChange::kLabels);
  EXPECT_TRUE(view.undoAvailable);
  EXPECT_FALSE(second.undoAvailable);
  EXPECT_TRUE(second.pitch.PitchValid);
  view.Changed(DocumentChange::kSamples);
  EXPECT_TRUE(view.pitch.PitchValid);
  EXPECT_FALSE(second.pitch.PitchValid);
}

}  // namespace
}  // namespace cantorix
