// cursor_moves_test.cpp - cursor and selection by keys, by typed times and at zero crossings.
#include "mainview/cursor_moves.h"

#include <gmock/gmock.h>

#include "mainview/go_to_commands.h"
#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/mouse.h"
#include "mainview/picture_keys.h"
#include "mainview/typed_times.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "mainview/zero_crossing.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

class CursorMovesTest : public WideViewTest {
 protected:
  // Presses keys of the table, one after the other.
  void Press(const std::vector<std::string_view>& keys) {
    for (const std::string_view key : keys) {
      const auto rows = PictureKeys();
      const auto row = std::find_if(rows.begin(), rows.end(),
                                    [key](const PictureKey& other) { return other.keys == key; });
      ASSERT_NE(row, rows.end()) << key;
      row->act(view);
    }
  }
  std::string Stretch() const {
    return Joined(channel.visibleStart.samples, channel.visibleEnd.samples);
  }
};

// From a marker at 5000.5 ms with 10 ms to a pixel, in a stretch of 4000 ... 6000 where it says so.
TEST_F(CursorMovesTest, KeysMoveTheCursorAndExtendTheSelection) {
  const struct {
    std::vector<std::string_view> keys;
    const char* marks;
  } rows[] = {
      {{"Ctrl+Left"}, "marker 4998.5 of 4998.5 4998.5 = 0"},
      {{"Ctrl+Right", "Ctrl+Right"}, "marker 5004.5 of 5004.5 5004.5 = 0"},
      {{"Alt+Left"}, "marker 5000 of 5000 5000 = 0"},
      {{"Alt+Left", "Alt+Left"}, "marker 4999 of 4999 4999 = 0"},
      {{"Alt+Right"}, "marker 5001 of 5001 5001 = 0"},
      {{"Shift+Right"}, "selection to save 5000.5 of 5000.5 5020.5 = 20"},
      {{"Shift+Right", "Shift+Left"}, "marker 5000.5 of 5000.5 5000.5 = 0"},
      {{"Shift+Right", "Shift+Left", "Shift+Left"},
       "selection to save 5000.5 of 4980.5 5000.5 = 20"},
      {{"Ctrl+Shift+Left"}, "selection to save 5000.5 of 4998.5 5000.5 = 2"},
      {{"Ctrl+Shift+Right"}, "selection to save 5000.5 of 5000.5 5002.5 = 2"},
      {{"Alt+Shift+Left"}, "selection to save 5000.5 of 5000 5000.5 = 0.5"},
      {{"Alt+Shift+Right"}, "selection to save 5000.5 of 5000.5 5001 = 0.5"},
      {{"Shift+Right", "Ctrl+Left"}, "marker 4998.5 of 4998.5 4998.5 = 0"},
      {{"Shift+Right", "Ctrl+Right"}, "marker 5022.5 of 5022.5 5022.5 = 0"},
      {{"Home"}, "marker 4000 of 4000 4000 = 0"},
      {{"End"}, "marker 6000 of 6000 6000 = 0"},
      {{"Ctrl+Home", "Ctrl+Left"}, "marker 0 of 0 0 = 0"},
      {{"Ctrl+End", "Alt+Right"}, "marker 10000 of 10000 10000 = 0"},
      {{"Shift+Home"}, "selection to save 5000.5 of 4000 5000.5 = 1000.5"},
      {{"Shift+End"}, "selection to save 5000.5 of 5000.5 6000 = 999.5"},
      {{"Ctrl+Shift+Home"}, "selection to save 5000.5 of 0 5000.5 = 5000.5"},
      {{"Ctrl+Shift+End"}, "selection to save 5000.5 of 5000.5 10000 = 4999.5"},
      {{"Shift+End", "Esc"}, "5000.5 of 0 0 = 0"},
  };
  for (const auto& row : rows) {
    Show(channel, 4000.0, 6000.0);
    view.FollowStretch();
    PlaceMarker(view, 5000.5);
    Press(row.keys);
    EXPECT_EQ(MarksOf(view), row.marks) << ::testing::PrintToString(row.keys);
  }
  EXPECT_EQ(playback.stops, 0);
}

TEST_F(CursorMovesTest, ASelectionThatNoDragMadeIsMovedAtItsEnd) {
  SelectAll(view);
  Press({"Shift+Left"});
  EXPECT_EQ(MarksOf(view), "selection to save 0 of 0 9900 = 9900");
}

TEST_F(CursorMovesTest, WhatMovesComesIntoSight) {
  Show(channel, 4000.0, 5000.0);
  view.FollowStretch();
  Press({"End", "Ctrl+Right"});
  EXPECT_EQ(Stretch(), "4001 5001");
  Press({"Home", "Shift+Left"});
  EXPECT_EQ(Stretch(), "3991 4991");
  Press({"Ctrl+Shift+End"});
  EXPECT_EQ(Stretch(), "9000 10000");
  Press({"Ctrl+Home"});
  EXPECT_EQ(Stretch(), "0 1000");
  EXPECT_TRUE(view.zoomed());
  EXPECT_EQ(view.horizontal.position, 0);
}

TEST_F(CursorMovesTest, OtherWindowsHearOfAKeyAsOfARelease) {
  PlaceMarker(view, 1000.0);
  Press({"Ctrl+Right", "Shift+Right"});
  EXPECT_THAT(listener.moves,
              ElementsAre(Pair(MousePhase::kRelease, 1010.0), Pair(MousePhase::kRelease, 1010.0)));
}

TEST_F(CursorMovesTest, EscGivesADragUpThenLeavesLabelEntryThenTheSelection) {
  SelectSpan(view, 2000.0, 3000.0);
  ToggleLabelEntry(view);
  PressMouse(view, 500, 100);
  MoveMouse(view, 700, 100);
  EXPECT_EQ(MarksOf(view), "selection to save 4600 of 4600 6600 = 2000");
  Press({"Esc"});
  EXPECT_EQ(MarksOf(view), "selection to save 2000 of 2000 3000 = 1000");
  ReleaseMouse(view, 800, 100);
  EXPECT_EQ(MarksOf(view), "selection to save 2000 of 2000 3000 = 1000");
  EXPECT_TRUE(view.labelEntry.enabled);
  Press({"Esc"});
  EXPECT_FALSE(view.labelEntry.enabled);
  EXPECT_TRUE(view.selectionShown());
  Press({"Esc"});
  EXPECT_FALSE(view.selectionShown());
}

TEST(TypedTimes, AreReadInMsOrSeconds) {
  const std::pair<const char*, const char*> rows[] = {
      {"1234.5", "1 1234.5 0"},
      {" 1234.5 ms ", "1 1234.5 0"},
      {"1.5s", "1 1500 0"},
      {"1.5 s", "1 1500 0"},
      {"500 800", "2 500 800"},
      {"0.5 s 800", "2 500 800"},
      {"500; 0.8 s", "2 500 800"},
      {"500 + 300", "2 500 800"},
      {"0.5 s+300 ms", "2 500 800"},
      {"", "0 0 0"},
      {"x", "0 0 0"},
      {"1 2 3", "0 0 0"},
      {"500 +", "0 0 0"},
      {"1e3", "0 0 0"},
      {"5 min", "0 0 0"},
      {"-5", "1 -5 0"},
      {"nan", "0 0 0"},
      {"1,5", "0 0 0"},
  };
  for (const auto& [text, read] : rows) {
    const TypedTimes times = ReadTypedTimes(text);
    EXPECT_EQ(Joined(times.count, times.firstMs, times.secondMs), read) << text;
  }
}

TEST_F(CursorMovesTest, TypedTimesAreAskedForUntilTheyFit) {
  auto& texts = world.dialogs.texts;
  for (const char* typed : {"soon", "10001", "1 2", "6.5 s"}) texts.WillGive({typed});
  GoToTypedTime(view);
  EXPECT_EQ(MarksOf(view), "marker 6500 of 6500 6500 = 0");
  EXPECT_EQ(texts.presets[2].fields.front().preset, "10001");
  const char* const oneTime = "message: Enter one time, for example 1234.5 or 1.2345 s.";
  const char* const range = "message: The recording goes from 0 to 10000.0 ms.";
  EXPECT_THAT(world.test.prompts.TakeTranscript(), ElementsAre(oneTime, range, oneTime));

  for (const char* typed : {"5", "9 s + 1001", "-1 5", "8 s 7 s"}) texts.WillGive({typed});
  SelectTypedTimes(view);
  EXPECT_EQ(MarksOf(view), "selection to save 8000 of 7000 8000 = 1000");
  EXPECT_THAT(world.test.prompts.TakeTranscript(),
              ElementsAre("message: Enter two times, or a time and a length, for example 500 800 "
                          "or 0.5 s + 300.",
                          range, range));
  texts.WillCancel();
  SelectTypedTimes(view);
  EXPECT_EQ(texts.presets.back().fields.front().preset, "7000.0 8000.0");
  EXPECT_EQ(MarksOf(view), "selection to save 8000 of 7000 8000 = 1000");
}

// The slow twin: every sample of the recording.
std::optional<std::int64_t> SlowCrossing(const Samples& samples, double from, double reference) {
  std::optional<std::int64_t> nearest;
  const auto take = [&](std::size_t i) {
    const auto at = static_cast<std::int64_t>(i);
    const auto distance = [&](std::int64_t x) { return std::abs(static_cast<double>(x) - from); };
    if (!nearest || distance(at) < distance(*nearest)) nearest = at;
  };
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double here = samples[i] - reference;
    if (here == 0.0) take(i);
    if (i + 1 == samples.size()) break;
    const double next = samples[i + 1] - reference;
    if (here * next < 0.0) take(std::abs(next) < std::abs(here) ? i + 1 : i);
  }
  return nearest;
}

TEST(ZeroCrossing, IsTheNearestOfAllHoweverFar) {
  Samples lonely(300'000, 5);
  for (std::size_t i = 140'000; i < 140'100; ++i) lonely[i] = static_cast<std::int16_t>(i % 7 - 3);
  Samples wave(500);
  for (std::size_t i = 0; i < wave.size(); ++i)
    wave[i] = static_cast<std::int16_t>(i * i % 61) - 30;
  for (const Samples& samples : {lonely, wave, Ramp(10, -5), Ramp(10, 5), Samples{0}, Samples{7}}) {
    for (const double reference : {0.0, 5.5}) {
      const double end = static_cast<double>(samples.size());
      for (const double part : {0.0, 0.1, 0.4668, 0.5, 0.9, 1.0}) {
        const double from = part * end;
        EXPECT_EQ(NearestZeroCrossing(SpanSource(samples), from, reference, [](double) {}),
                  SlowCrossing(samples, from, reference))
            << samples.size() << " from " << from << " reference " << reference;
      }
    }
  }
  EXPECT_EQ(NearestZeroCrossing(SpanSource({}), 0.0, 0.0, [](double) {}), std::nullopt);
}

class ZeroCrossingTest : public ViewTest {
 protected:
  ZeroCrossingTest() {
    for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = i % 1000 < 500 ? 100 : -100;
  }
  Samples samples = Samples(10'000);
};

TEST_F(ZeroCrossingTest, TakesCursorOrBothEdgesThereAndSaysSo) {
  ViewedRecording recording(world, samples);
  CSonadexView& view = recording.view;
  PlaceMarker(view, 1100.0);
  MoveToZeroCrossing(view);
  EXPECT_EQ(MarksOf(view), "marker 999 of 999 999 = 0");
  MoveToZeroCrossing(view);
  SelectSpan(view, 1600.0, 2450.0);
  MoveToZeroCrossing(view);
  EXPECT_EQ(MarksOf(view), "selection to save 1499 of 1499 2499 = 1000");
  SelectSpan(view, 1510.0, 1520.0);
  MoveToZeroCrossing(view);
  EXPECT_EQ(MarksOf(view), "selection to save 1510 of 1510 1520 = 10");
  recording.channel().referenceLevel = 200.0;
  MoveToZeroCrossing(view);
  view.DropMarks();
  MoveToZeroCrossing(view);
  EXPECT_THAT(
      world.listener.said,
      ElementsAre("The cursor moved by -101.00 ms to the zero crossing at 999.0 ms.",
                  "The cursor stands at a zero crossing already.",
                  "The start moved by -101.00 ms to the zero crossing at 1499.0 ms. The end moved "
                  "by +49.00 ms to the zero crossing at 2499.0 ms.",
                  "Both edges have the same nearest zero crossing.",
                  "The recording never crosses zero.", "The recording never crosses zero."));
}

TEST_F(ZeroCrossingTest, LeavesTheCursorWhenTheStoreIsGoneOrTheUserCancels) {
  ViewedRecording recording(world, Samples(300'000, 7), 1000.0, Place::kDisk);
  PlaceMarker(recording.view, 1100.0);
  world.test.progress.CancelFromNow();
  EXPECT_THROW(MoveToZeroCrossing(recording.view), Abandoned);
  EmptyStores(world);
  EXPECT_THROW(MoveToZeroCrossing(recording.view), FileError);
  EXPECT_EQ(MarksOf(recording.view), "marker 1100 of 1100 1100 = 0");
}

}  // namespace
}  // namespace cantorix
