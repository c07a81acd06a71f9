// label_typing_test.cpp - labels typed in the view, and the way from label to label by keys.
#include "mainview/label_typing.h"

#include <gmock/gmock.h>

#include "mainview/commands.h"
#include "mainview/cursor_moves.h"
#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_moves.h"
#include "mainview/mouse.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "platform/abandon.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

// The typing as it stands, its place, and the tiers in use.
std::string TypingOf(CSonadexView& view) {
  std::string text;
  if (const auto& typing = view.labelEntry.typing) {
    const auto place = TypingPlace(view, 7 * static_cast<std::int32_t>(typing->label.text.size()));
    text = "'" + typing->label.text + "' in " +
           Joined(typing->tier, typing->index, "at", typing->label.timeMs, "field", place->left,
                  place->right, "");
  }
  for (const Tier& tier : view.channel().tiers) text += tier.inUse ? '1' : '0';
  return text;
}

class LabelTypingTest : public LabelTest {
 protected:
  void TypeAt(double ms, const char* text) {
    PlaceMarker(view, ms);
    BeginTyping(view, text);
  }
  static constexpr std::int32_t At(double ms) { return 40 + static_cast<std::int32_t>(ms / 10.0); }
  const Label& Last() { return tier(kWords).labels.back(); }
};

TEST_F(LabelTypingTest, ALetterBeginsALabelAndEnterKeepsItAsOneEdit) {
  tier(kWords).labels.back().colour = 0xff;
  tier(kWords).labels.back().alignment = kAlignCentre;
  tier(kWords).labels.back().font.Set(18, 700, true, false, "Courier");
  TypeAt(3000.0, "t");
  EXPECT_EQ(TypingOf(view), "'t' in 1 -1 at 3000 field 340 400 0110000000");
  EXPECT_TRUE(TypeText(view, "three"));
  EXPECT_EQ(EditOf(view), "no undo");
  EXPECT_TRUE(KeepTyping(view));
  EXPECT_EQ(Words(), "one@2000 two@6000 three@3000");
  EXPECT_EQ(EditOf(view), "undo modified");
  EXPECT_EQ(MarksOf(view), "marker 3000 of 3000 3000 = 0");
  EXPECT_EQ(SelectedLabel(view), 2);
  EXPECT_EQ(Joined(Last().colour, Last().alignment, Last().font.height(), int{Last().flag}),
            "255 1 18 0");
  EXPECT_EQ(world.listener.said.back(), "words: three at 3000.0 ms");
  Undo(view);
  EXPECT_EQ(Words(), "one@2000 two@6000");
}

TEST_F(LabelTypingTest, WhatIsDroppedBlankOrUnchangedLeavesNoTrace) {
  const auto end = [this](auto ending) {
    ending();
    EXPECT_EQ(TypingOf(view), "0110000000");
    EXPECT_EQ(Words() + EditOf(view), "one@2000 two@6000no undo");
  };
  TypeAt(3000.0, "x");
  end([this] { DropTyping(view); });
  TypeAt(3000.0, " ");
  end([this] { EXPECT_TRUE(KeepTyping(view)); });
  SelectLabel(view, kWords, 0);
  TypeOverLabel(view);
  EXPECT_EQ(TypingOf(view), "'one' in 1 0 at 2000 field 240 300 0110000000");
  end([this] { EXPECT_TRUE(KeepTyping(view)); });
  SelectLabel(view, kWords, 0);
  TypeOverLabel(view);
  TypeText(view, "");
  end([this] { EXPECT_TRUE(KeepTyping(view)); });
}

// The field is as wide as its text, over a selection as that, and never leaves the time axis.
TEST_F(LabelTypingTest, TheFieldStandsInItsTier) {
  TypeAt(9900.0, "abcdefghijkl");
  EXPECT_EQ(TypingOf(view), "'abcdefghijkl' in 1 -1 at 9900 field 942 1040 0110000000");
  DropTyping(view);
  SelectSpan(view, 1000.0, 4000.0);
  BeginTyping(view, "a");
  EXPECT_EQ(TypingOf(view), "'a' in 1 -1 at 1000 field 140 440 0110000000");
  const auto place = TypingPlace(view, 0);
  EXPECT_EQ(Joined(place->top, place->bottom), "0 40");
  document.settings.display.drawTiers = 0;
  view.LayOut(kWideClient);
  EXPECT_EQ(Joined(TypingPlace(view, 0)->top, TypingPlace(view, 0)->bottom), "0 20");
}

TEST_F(LabelTypingTest, OverASelectionItsEndMayBeMarkedToo) {
  SelectSpan(view, 1000.0, 4000.0);
  BeginTyping(view, "span");
  EXPECT_TRUE(KeepTypingWithEnd(view));
  EXPECT_EQ(Words(), "one@2000 two@6000 span@1000 @4000");
  EXPECT_EQ(Last().flag, 1);
  EXPECT_TRUE(view.selectionShown());
  EXPECT_EQ(SelectedLabel(view), 2);
  Undo(view);
  EXPECT_EQ(Words(), "one@2000 two@6000");
}

TEST_F(LabelTypingTest, WithoutATierTheFirstLetterTakesWordsIntoUseInTheSameEdit) {
  tier(kWords) = Tier();
  tier(kBreaks).inUse = false;
  view.LayOut(kWideClient);
  for (const char* name : {"words", ""}) {
    tier(kWords).name = name;
    TypeAt(3000.0, "x");
    EXPECT_EQ(TypingOf(view), "'x' in 1 -1 at 3000 field 340 400 0100000000") << name;
    EXPECT_EQ(view.layout.tier(kWords).bottom, 20);
    DropTyping(view);
    EXPECT_EQ(TypingOf(view) + tier(kWords).name, std::string("0000000000") + name);
    EXPECT_EQ(view.layout.tier(kWords).bottom, 0);
    EXPECT_EQ(EditOf(view), "no undo");
  }
  TypeAt(3000.0, "x");
  EXPECT_TRUE(KeepTyping(view));
  EXPECT_EQ(TypingOf(view) + tier(kWords).name + Words(), "0100000000wordsx@3000");
  Undo(view);
  EXPECT_EQ(TypingOf(view) + tier(kWords).name + Words(), "0000000000");
}

TEST_F(LabelTypingTest, ATextThatALabelCannotHoldIsRefusedUntilItChanges) {
  const std::string most(kMaxLabelBytes, 'x');
  TypeAt(3000.0, "");
  EXPECT_TRUE(TypeText(view, most));
  EXPECT_FALSE(TypeText(view, most + 'y'));
  const char* const reason = "A label holds at most 255 bytes. Delete something, or press Esc.";
  EXPECT_EQ(world.listener.said.back(), reason);
  EXPECT_FALSE(KeepTyping(view));
  KeepTypingAndStep(view, 1);
  PressMouse(view, 900, 100);
  EXPECT_EQ(view.labelEntry.typing->label.text, most);
  EXPECT_EQ(channel.cursor.ms, 3000.0);
  EXPECT_TRUE(TypeText(view, "x"));
  EXPECT_TRUE(KeepTyping(view));
  EXPECT_EQ(Words(), "one@2000 two@6000 x@3000");
}

TEST_F(LabelTypingTest, AnEditThatCannotBeginLeavesTheTypingOpen) {
  ViewServices services = world.Services();
  services.temporaryDirectory = world.temporary / "gone/";
  CSonadexView refused(document, services);
  refused.LayOut(kWideClient);
  PlaceMarker(refused, 3000.0);
  BeginTyping(refused, "x");
  EXPECT_THROW(KeepTyping(refused), Abandoned);
  EXPECT_EQ(TypingOf(refused), "'x' in 1 -1 at 3000 field 340 400 0110000000");
  world.test.prompts.TakeTranscript();
  EXPECT_EQ(Words(), "one@2000 two@6000");
}

TEST_F(LabelTypingTest, AClickElsewhereAndANewLabelKeepWhatWasTyped) {
  ToggleLabelEntry(view);
  EXPECT_EQ(world.listener.said.back(), "Type a label for 'words' at 0.0 ms");
  TypeAt(3000.0, "x");
  PressMouse(view, At(4000.0), 200);
  ReleaseMouse(view, At(4000.0), 200);
  EXPECT_EQ(world.listener.said.back(), "Type a label for 'words' at 4000.0 ms");
  BeginTyping(view, "y");
  BeginNewLabel(view);
  EXPECT_EQ(Words(), "one@2000 two@6000 x@3000 y@4000");
  DropTyping(view);
}

TEST_F(LabelTypingTest, TabKeepsAndTypesOverTheNextLabel) {
  TypeAt(3000.0, "x");
  KeepTypingAndStep(view, 1);
  EXPECT_EQ(TypingOf(view), "'two' in 1 1 at 6000 field 640 700 0110000000");
  TypeText(view, "zwei");
  KeepTypingAndStep(view, -1);
  EXPECT_EQ(TypingOf(view), "'x' in 1 1 at 3000 field 340 400 0110000000");
  EXPECT_EQ(Words(), "one@2000 x@3000 zwei@6000");
}

TEST_F(LabelTypingTest, OtherChangesOfLabelsEndTheTyping) {
  tier(kBreaks).inUse = false;
  TypeAt(3000.0, "x");
  DeleteLabel(view, kWords, 0);
  EXPECT_FALSE(view.labelEntry.typing);
  EXPECT_EQ(SelectedLabel(view), -1);
  EXPECT_EQ(Words(), "two@6000");
}

class LabelMovesTest : public LabelTest {
 protected:
  static constexpr std::int32_t At(double ms) { return 40 + static_cast<std::int32_t>(ms / 10.0); }
  std::string Place() const {
    return Joined(CurrentTier(view), SelectedLabel(view), channel.cursor.ms);
  }
};

TEST_F(LabelMovesTest, TabGoesFromLabelToLabelInTheOrderOfTime) {
  AddLabel(document, kWords, 6000.0, "again");
  AddLabel(document, kWords, 500.0, "first");
  Show(channel, 0.0, 1000.0);
  view.FollowStretch();
  std::string way;
  PlaceMarker(view, 500.0);
  const auto step = [&](int direction) {
    way += StepLabel(view, direction) ? "" : "no ";
    way += Place() + ", ";
  };
  for (int i = 0; i < 5; ++i) step(1);
  EXPECT_EQ(way, "1 3 500, 1 0 2000, 1 1 6000, 1 2 6000, no 1 2 6000, ");
  EXPECT_EQ(Joined(channel.visibleStart.samples, channel.visibleEnd.samples), "5000 6000");
  way.clear();
  for (int i = 0; i < 4; ++i) step(-1);
  EXPECT_EQ(way, "1 1 6000, 1 0 2000, 1 3 500, no 1 3 500, ");
  MoveMarkerTo(view, CursorGoal::kEnd);
  StepLabel(view, -1);
  EXPECT_EQ(Place(), "1 2 6000");
  PressAtTime(view, 3000.0);
  StepLabel(view, -1);
  EXPECT_EQ(Place(), "1 0 2000");
  EXPECT_THAT(world.listener.said,
              ::testing::IsSupersetOf({"words: first at 500.0 ms", "No label of 'words' follows.",
                                       "No label of 'words' stands before."}));
}

TEST_F(LabelMovesTest, TheCurrentTierIsOneInUse) {
  StepLabel(view, 1);
  EXPECT_EQ(Place(), "1 0 2000");
  StepTier(view, 1);
  EXPECT_EQ(Place(), "2 -1 2000");
  StepTier(view, 1);
  EXPECT_EQ(CurrentTier(view), kBreaks);
  EXPECT_FALSE(StepLabel(view, 1));
  tier(kBreaks).inUse = false;
  EXPECT_EQ(Place(), "1 -1 2000");
  StepTier(view, -1);
  EXPECT_EQ(CurrentTier(view), kWords);
  tier(kWords).inUse = false;
  EXPECT_EQ(CurrentTier(view), -1);
  StepTier(view, 1);
  EXPECT_FALSE(StepLabel(view, 1));
  EXPECT_THAT(world.listener.said,
              ElementsAre("words: one at 2000.0 ms", "Current tier: 'breaks'",
                          "Current tier: 'breaks'", "No label of 'breaks' follows.",
                          "Current tier: 'words'", "No tier is in use.", "No tier is in use."));
}

TEST_F(LabelMovesTest, ASelectedLabelIsPlayedEditedAndDeletedByCommands) {
  EXPECT_FALSE(RunCommand(view, Command::kDeleteLabel));
  PressMouse(view, At(2000.0), 28);
  ReleaseMouse(view, At(2000.0), 28);
  EXPECT_EQ(SelectedLabel(view), 0);
  EXPECT_TRUE(RunCommand(view, Command::kPlayLabel));
  world.dialogs.label.WillCancel();
  EXPECT_TRUE(RunCommand(view, Command::kEditLabel));
  EXPECT_EQ(world.dialogs.label.presets.back().label.text, "one");
  EXPECT_TRUE(RunCommand(view, Command::kDeleteLabel));
  EXPECT_EQ(Words() + " " + EditOf(view), "two@6000 undo modified");
  Undo(view);
  PressMouse(view, 900, 200);
  EXPECT_EQ(SelectedLabel(view), -1);
}

}  // namespace
}  // namespace cantorix
