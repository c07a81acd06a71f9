// mouse_test.cpp - what a press, a drag and a release do to cursor, selection and readouts, in one
// view, in two views of one document and on behalf of another window.
#include "mainview/mouse.h"

#include <gmock/gmock.h>

#include "document/label.h"
#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/selection_edges.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "platform/file_error.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr std::int32_t kY = 100;  // in the waveform

// The pixel column of a time of the whole recording.
constexpr std::int32_t At(double ms) { return 40 + static_cast<std::int32_t>(ms / 10.0); }

// Cursor, pitch, intensity, duration and average pitch.
std::string StripOf(const CSonadexView& view) {
  const Readouts& strip = view.readouts;
  return Joined(strip.cursorMs, strip.pitchHz, strip.intensityDb, strip.durationMs,
                strip.averagePitchHz);
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

// Moves from a press at 5000 ms, in pixels; the last one is the release.
TEST_F(MouseTest, MoreThanFivePixelsSelectAndStaySelectedAsApproved) {
  std::string text;
  for (const std::vector<std::int32_t>& moves : {std::vector{0},
                                                 {5, 5},
                                                 {-5, -5},
                                                 {6, 6},
                                                 {-6, -6},
                                                 {6},
                                                 {20, 0},
                                                 {20, -30, -40},
                                                 {-600, -600},
                                                 {700, 700}}) {
    PlaceMarker(view, 0.0);
    PressMouse(view, At(5000.0), kY);
    EXPECT_EQ(MarksOf(view), "marker 5000 of 5000 5000 = 0");
    for (const std::int32_t dx : moves) {
      if (&dx != &moves.back()) MoveMouse(view, At(5000.0) + dx, kY);
      text += Joined(dx, "");
    }
    ReleaseMouse(view, At(5000.0) + moves.back(), kY);
    text += ": " + MarksOf(view) + " | " + StripOf(view) + '\n';
  }
  ExpectText("mainview/expected/Drags.txt", text);
}

TEST_F(MouseTest, ClicksAtTheEdgesStayInsideStretchAndRecording) {
  channel.referenceLevel = 100.0;
  const std::pair<std::int32_t, const char*> cases[] = {
      {40, "0 -100"}, {0, "0 -100"}, {540, "5000 4900"}, {1044, "10000 -100"}};
  for (const auto& [x, cursor] : cases) {
    Click(x);
    EXPECT_EQ(Joined(channel.cursor.ms, channel.cursorValue), cursor) << x;
  }
  SelectSpan(view, 4000.0, 8000.0);
  ZoomView(view, Zoom::kSelection);
  Click(40);
  EXPECT_EQ(channel.cursor.samples, 4000.0);
}

TEST_F(MouseTest, PressOnASelectionOnlyRemovesItAndTheNextPlacesAMarker) {
  DragFromTo(2000.0, 4000.0);
  Click(At(7000.0));
  EXPECT_EQ(MarksOf(view), "7000 of 7000 7000 = 0");
  Click(At(7000.0));
  EXPECT_EQ(MarksOf(view), "marker 7000 of 7000 7000 = 0");
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
  EXPECT_EQ(MarksOf(view), "0 of 0 0 = 0");
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
  view.pitch = PitchOf({100.0, 200.0, 0.0, 300.0}, {0.0, 10'000.0});  // 2500 ms each
  channel.intensity = IntensityOf({50.0}, {0.0, 10'000.0});
  Click(At(3000.0));
  EXPECT_EQ(StripOf(view), "3000 200 50 0 0");
  PressMouse(view, At(8000.0), kY);
  MoveMouse(view, At(8030.0), kY);
  EXPECT_EQ(StripOf(view), "8000 300 50 30 0") << "a drag that may still become a selection";
  MoveMouse(view, At(1000.0), kY);
  EXPECT_EQ(StripOf(view), "8000 300 50 7000 0");
  ReleaseMouse(view, At(1000.0), kY);
  EXPECT_EQ(StripOf(view), "8000 300 50 7000 250") << "of the frames at 2500 and 7500 ms";
  Click(At(3000.0));  // removes the selection
  EXPECT_EQ(StripOf(view), "3000 200 50 0 0");
  view.pitch = {};
  view.Changed(DocumentChange::kTracks);
  channel.totalLength = channel.totalDurationMs = 2000.0;
  view.Changed(DocumentChange::kSamples);
  EXPECT_EQ(StripOf(view), "2000 0 50 0 0") << "a cursor behind a shortened recording";
}

TEST_F(MouseTest, AnotherWindowPlacesCursorAndSelectionByTheExactTime) {
  PressAtTime(view, 1234.5);
  EXPECT_EQ(MarksOf(view), "marker 1234.5 of 1234.5 1234.5 = 0");
  MoveAtTime(view, 1284.0);  // 5 pixels
  EXPECT_FALSE(view.selectionShown());
  MoveAtTime(view, 1290.0);  // 6 pixels
  EXPECT_TRUE(view.selectionShown());
  MoveAtTime(view, 987.65);
  EXPECT_EQ(MarksOf(view), "selection to save 1234.5 of 987.65 1234.5 = 246.85");
  EXPECT_EQ(view.pressedMs, 1234.5);
  EXPECT_EQ(playback.stops, 1);
  EXPECT_THAT(listener.moves, IsEmpty());
  PressAtTime(view, 99'999.0);
  EXPECT_EQ(MarksOf(view), "10000 of 10000 10000 = 0") << "there was a selection";

  SelectSpan(view, 5000.0, 5000.0 + 1e-9);
  ZoomView(view, Zoom::kSelection);
  PressAtTime(view, 0.0);
  MoveAtTime(view, 10'000.0);
  EXPECT_EQ(channel.selectionLength.ms, 10'000.0) << "far outside a tiny stretch";
}

TEST_F(MouseTest, PressWhoseSampleCannotBeReadChangesNothing) {
  Hold(document, Ramp(10'000), 1000.0, Place::kDisk);
  DragFromTo(2000.0, 4000.0);
  const std::string marks = MarksOf(view);
  EmptyStores(world);
  EXPECT_THROW(Click(At(7000.0)), FileError);
  MoveMouse(view, At(9000.0), kY);
  EXPECT_EQ(MarksOf(view), marks);
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

// The selection 2000 ... 4000 ms, pixels 240 ... 440.
TEST_F(MouseTest, AnEdgeOfTheSelectionIsPulledBeyondFivePixelsAndClickedBelow) {
  const struct {
    std::int32_t press, release;
    const char* marks;
  } rows[] = {
      {244, 300, "selection to save 4000 of 2600 4000 = 1400"},
      {236, 230, "selection to save 4000 of 1900 4000 = 2100"},
      {440, 500, "selection to save 2000 of 2000 4600 = 2600"},
      {436, 200, "selection to save 2000 of 1600 2000 = 400"},
      {240, 245, "2000 of 2000 2050 = 50"},
      {245, 300, "selection to save 2050 of 2050 2600 = 550"},
      {445, 445, "4050 of 4050 4050 = 0"},
  };
  for (const auto& row : rows) {
    SelectSpan(view, 2000.0, 4000.0);
    PressMouse(view, row.press, kY);
    MoveMouse(view, row.release, kY);
    ReleaseMouse(view, row.release, kY);
    EXPECT_EQ(MarksOf(view), row.marks) << row.press << " to " << row.release;
    EXPECT_FALSE(view.press.held);
  }
}

TEST_F(MouseTest, EdgesAreWithinReachInThePanesAlone) {
  const auto edges = [this] {
    std::string text;
    for (const auto& [x, y] : {std::pair{235, 100},
                               {236, 100},
                               {244, 10},
                               {245, 100},
                               {436, 100},
                               {444, 249},
                               {444, 250},
                               {340, 100}}) {
      const auto edge = EdgeUnder(view, x, y);
      text += !edge ? '.' : *edge == SelectionEdge::kStart ? 's' : 'e';
    }
    return text;
  };
  EXPECT_EQ(edges(), "........");
  SelectSpan(view, 2000.0, 4000.0);
  EXPECT_EQ(edges(), ".ss.ee..");
  AddLabel(document, 1, 5000.0, "one");
  view.LayOut(kWideClient);
  ToggleLabelEntry(view);
  EXPECT_EQ(edges(), ".s..ee..");
}

TEST_F(MouseTest, ShiftMovesTheNearerEdgeToThePointer) {
  const auto click = [this](std::int32_t x, std::int32_t to) {
    PressToExtend(view, x, kY);
    ReleaseMouse(view, to, kY);
    return MarksOf(view);
  };
  EXPECT_EQ(click(300, 300), "marker 2600 of 2600 2600 = 0");
  EXPECT_EQ(click(500, 500), "selection to save 2600 of 2600 4600 = 2000");
  EXPECT_EQ(click(480, 480), "selection to save 2600 of 2600 4400 = 1800");
  EXPECT_EQ(click(320, 330), "selection to save 4400 of 2900 4400 = 1500");
  EXPECT_EQ(click(140, 140), "selection to save 4400 of 1000 4400 = 3400");
  EXPECT_EQ(listener.moves.back(), std::pair(MousePhase::kRelease, 4400.0));
}

TEST(SelectionTexts, NameStartLengthRateAndEnd) {
  const struct {
    double start, end;
    std::int32_t timeBase;
    const char* texts;
  } rows[] = {{713.04, 1749.44, 0, "713.0 | 1036.4 ms (0.96 Hz) | 1749.4"},
              {713.04, 1749.44, 1, "0.713 | 1.036 s (0.96 Hz) | 1.749"},
              {100.0, 105.0, 0, "100.0 | 5.0 ms (200.0 Hz) | 105.0"},
              {100.0, 100.0, 0, "100.0 | 0.0 ms | 100.0"}};
  for (const auto& row : rows) {
    const SelectionTexts texts = TextsOfSelection(row.start, row.end, row.timeBase);
    EXPECT_EQ(texts.start + " | " + texts.length + " | " + texts.end, row.texts);
  }
}

class TwoViewsTest : public MouseTest {
 protected:
  TwoViewsTest() { second.Begin({545, 200}); }  // 20 ms per pixel
  CSonadexView second{document, world.Services()};
};

TEST_F(TwoViewsTest, ShareCursorAndSelectionThoughTheirSizesDiffer) {
  second.pitch = PitchOf({100.0}, {0.0, 10'000.0});
  DragFromTo(2000.0, 4000.0);
  EXPECT_EQ(MarksOf(second), "selection to save 2000 of 2000 4000 = 2000");
  EXPECT_EQ(StripOf(second), "2000 100 0 2000 0");
  PressMouse(second, 40 + 300, 50);
  EXPECT_EQ(MarksOf(view), "6000 of 6000 6000 = 0");
  MoveMouse(second, 40 + 350, 50);
  ReleaseMouse(second, 40 + 350, 50);
  EXPECT_EQ(StripOf(view), "6000 0 0 1000 0");
  CSonadexView third(document, world.Services());  // shows no selection
  third.Changed(DocumentChange::kTracks);
  EXPECT_TRUE(view.selectionShown());
  Click(At(1000.0));
  EXPECT_EQ(MarksOf(second), "1000 of 1000 1000 = 0");
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
  view.pitch = second.pitch = PitchOf({100.0}, {0.0, 10'000.0});
  const auto valid = [this] {
    return Joined(view.undoAvailable, view.pitch.PitchValid, second.undoAvailable,
                  second.pitch.PitchValid);
  };
  view.Changed(DocumentChange::kLabels);
  EXPECT_EQ(valid(), "1 1 0 1");
  view.Changed(DocumentChange::kSamples);
  EXPECT_EQ(valid(), "1 1 0 0");
}

}  // namespace
}  // namespace cantorix
