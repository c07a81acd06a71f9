// label_commands_test.cpp - labels by mouse, by call and by list, and what every change of them
// does to undo, modified flag and label list.
#include "mainview/label_commands.h"

#include <gtest/gtest.h>

#include "document/label.h"
#include "mainview/dialog_answers.h"
#include "mainview/editing.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_list.h"
#include "mainview/label_moves.h"
#include "mainview/listening.h"
#include "mainview/mouse.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "platform/abandon.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

LabelAnswer Answering(const std::string& text, double ms = 0.0) { return {LabelOf(ms, text)}; }

class LabelCommandsTest : public LabelTest {
 protected:
  DialogScript<LabelAnswer, LabelPreset>& dialog = world.dialogs.label;

  void DragTo(std::int32_t x, std::int32_t y) {
    MoveMouse(view, x, y);
    ReleaseMouse(view, x, y);
  }
  void Click(std::int32_t x, std::int32_t y) {
    PressMouse(view, x, y);
    ReleaseMouse(view, x, y);
  }
};

TEST_F(LabelCommandsTest, UndoOfALabelKeepsTracksAndSamplesAndThatOfSamplesDropsThem) {
  const std::int16_t* const samples = channel.samples.samples().data();
  for (const bool ofSamples : {false, true}) {
    view.pitch.PitchValid = channel.intensity.IntensityValid = true;
    DeleteLabel(view, kWords, 0);
    if (ofSamples) SaveUndoFile(view);
    Undo(view);
    EXPECT_EQ(view.pitch.PitchValid, !ofSamples);
    EXPECT_EQ(channel.intensity.IntensityValid, !ofSamples);
    EXPECT_EQ(channel.samples.samples().data() == samples, !ofSamples);
    EXPECT_EQ(Words(), ofSamples ? "two@6000" : "one@2000 two@6000");
  }
}

TEST_F(LabelCommandsTest, LabelsThatDoNotExistAreIgnored) {
  for (const auto& [tierIndex, index] : {std::pair{-1, 0}, {10, 0}, {kWords, -1}, {kWords, 2}}) {
    EditLabel(view, tierIndex, index, {});
    MoveLabel(view, tierIndex, index, 0.0, 0.0);
    DeleteLabel(view, tierIndex, index);
    AskToEditLabel(view, tierIndex, index);
  }
  AddLabelToTier(view, 10, {});
  EXPECT_EQ(EditOf(view), "no undo");
}

TEST_F(LabelCommandsTest, ChangeWithoutAnUndoFileIsAbandoned) {
  ViewServices services = world.Services();
  services.temporaryDirectory = world.temporary / "gone/";
  CSonadexView refused(document, services);
  EXPECT_THROW(AddLabelToTier(refused, kWords, {}), Abandoned);
  EXPECT_THROW(EditLabel(refused, kWords, 0, {}), Abandoned);
  EXPECT_THROW(MoveLabel(refused, kWords, 0, 0.0, 0.0), Abandoned);
  EXPECT_THROW(DeleteLabel(refused, kWords, 0), Abandoned);
  EXPECT_THROW(ImportLabelLines(refused, kWords, "1\ta", {}), Abandoned);
  EXPECT_EQ(Words(), "one@2000 two@6000");
  EXPECT_FALSE(document.isModified());
  world.test.prompts.TakeTranscript();
}

TEST_F(LabelCommandsTest, ClickInEntryModeAddsEditsOrDeletes) {
  ToggleLabelEntry(view);
  dialog.WillGive(Answering("new", 4000.0));
  Click(40 + 400, 10);  // empty space of "words"
  EXPECT_EQ(Words(), "one@2000 two@6000 new@4000");
  dialog.WillGive(Answering("ONE", 2000.0));
  Click(40 + 205, 28);
  EXPECT_EQ(Words(), "two@6000 new@4000 ONE@2000");
  dialog.WillGive(LabelAnswer{.label = {}, .remove = true});
  Click(40 + 605, 28);
  EXPECT_EQ(Words(), "new@4000 ONE@2000");
  dialog.WillGive(Answering("pause"));
  Click(40 + 205, 45);  // the tier below
  EXPECT_EQ(LabelsOf(channel, kBreaks), "pause@0");
  EXPECT_EQ(JoinedEach(dialog.presets,
                       [](const LabelPreset& preset) {
                         return Joined(preset.exists, preset.label.text, preset.label.timeMs);
                       }),
            "0  4000 1 one 2000 1 two 6000 0  2050");
}

TEST_F(LabelCommandsTest, LabelsWithoutTextAreNotAddedAndDeletedWhenTheUserAgrees) {
  ToggleLabelEntry(view);
  dialog.WillGive(Answering(" \t", 4000.0));
  Click(40 + 400, 10);
  EXPECT_EQ(Words(), "one@2000 two@6000");
  for (const Answer answer : {Answer::kCancel, Answer::kOk}) {
    dialog.WillGive(Answering("", 2000.0));
    world.test.prompts.WillAnswer(answer);
    Click(40 + 205, 28);
    EXPECT_EQ(world.test.prompts.TakeTranscript(),
              std::vector<std::string>{
                  "ask ok/cancel: A label without text cannot be seen.\nDelete it ?"});
    EXPECT_EQ(Words(), answer == Answer::kOk ? "two@6000" : "one@2000 two@6000");
  }
}

TEST_F(LabelCommandsTest, PressesThatAskNothing) {
  Click(40 + 205, 28);  // entry mode is off
  ToggleLabelEntry(view);
  Click(40 + 400, 150);  // in the waveform
  Click(20, 10);         // left of the tiers
  PressMouse(view, 40 + 400, 150);
  DragTo(40 + 403, 10);  // from the waveform into a tier
  PressMouse(view, 40 + 400, 10);
  DragTo(40 + 403, 150);  // and back
  PressMouse(view, 40 + 400, 10);
  DragTo(40 + 500, 10);  // a drag over empty tier space selects
  EXPECT_TRUE(view.selectionShown());
  for (const std::int32_t x : {205, 400}) {
    dialog.WillCancel();
    Click(40 + x, 28);
  }
  EXPECT_EQ(Words(), "one@2000 two@6000");
  EXPECT_EQ(EditOf(view), "no undo");
}

TEST_F(LabelCommandsTest, DraggedLabelStaysWhereItIsDropped) {
  ToggleLabelEntry(view);
  PressMouse(view, 40 + 205, 28);
  MoveMouse(view, 40 + 300, 10);
  EXPECT_EQ(view.labelEntry.label.timeMs, 3000.0);
  EXPECT_EQ(Words(), "one@2000 two@6000") << "moved at the release only";
  EXPECT_EQ(MarksOf(view), "marker 2050 of 2050 2050 = 0");
  DragTo(40 + 700, 80);  // below the tier
  EXPECT_FALSE(view.selectionShown() || view.press.draggedLabel);
  EXPECT_EQ(Words(), "one@7000 two@6000");
  EXPECT_EQ(tier(kWords).labels[0].verticalPosition, 1.0);
  EXPECT_EQ(SelectedLabel(view), 0);

  PressMouse(view, 40 + 605, 28);
  DragTo(40 + 605, 10);  // up only
  EXPECT_EQ(tier(kWords).labels[1].verticalPosition, 0.25);
}

// 10 ms to a pixel: a label of "breaks" at 4000 ms, the cursor at 1000, the selection's end at
// 8000.
TEST_F(LabelCommandsTest, ADraggedLabelSnapsToWhatIsNear) {
  AddLabel(document, kBreaks, 4000.0, "b");
  AddLabel(document, 0, 9000.0, "of a tier that is not in use");
  tier(0).inUse = false;
  ToggleLabelEntry(view);
  const auto drop = [this](std::int32_t ms, Snap snap = Snap::kOn) {
    const auto from = static_cast<std::int32_t>(tier(kWords).labels[0].timeMs / 10.0);
    PressMouse(view, 40 + from + 2, 28);
    MoveMouse(view, 40 + from + 50, 28, snap);
    MoveMouse(view, 40 + ms / 10, 28, snap);
    const bool marked = view.labelEntry.snapMs.has_value();
    ReleaseMouse(view, 40 + ms / 10, 28, snap);
    EXPECT_FALSE(view.labelEntry.snapMs);
    return Joined(tier(kWords).labels[0].timeMs, marked ? "snapped" : "free");
  };
  EXPECT_EQ(drop(3950), "4000 snapped");
  EXPECT_EQ(drop(4060), "4060 free");
  EXPECT_EQ(drop(4040, Snap::kOff), "4040 free");
  EXPECT_EQ(drop(6010), "6010 free") << "of its own tier";
  EXPECT_EQ(drop(9010), "9010 free");
  PlaceMarker(view, 1000.0);
  EXPECT_EQ(drop(1050), "1000 snapped");
  SelectSpan(view, 3980.0, 8000.0);
  EXPECT_EQ(drop(7960), "8000 snapped");
  SelectSpan(view, 3980.0, 8000.0);
  EXPECT_EQ(drop(3985), "3980 snapped") << "the nearest of two";
}

TEST_F(LabelCommandsTest, FirstOfOverlappingLabelsIsPressed) {
  AddLabel(document, kWords, 2010.0, "hidden");
  const auto hit = [this](std::int32_t x) {
    HitTestLabels(view, 40 + x, 28);
    return Joined(view.labelEntry.currentTier, view.labelEntry.pressedLabel);
  };
  EXPECT_EQ(hit(203), "1 0");
  EXPECT_EQ(hit(230), "1 2");
  tier(kWords).inUse = false;
  view.LayOut(kWideClient);
  EXPECT_EQ(hit(203), "-1 -1");
}

TEST_F(LabelCommandsTest, ALabelPlaysToTheNextOneOfItsTierUnlessAClickEditsIt) {
  struct Heard : CountingPlayback {
    void Play(const SampleRange& range) override { text += Joined(range.start, range.end) + ';'; }
    std::string text;
  } heard;
  CSonadexView shown(
      document,
      {world.clipboard, "", world.textMeasurer, world.listener, heard, world.dialogs, {}});
  AddLabel(document, 0, 500.0, "of the first tier");
  for (const auto& [tierIndex, index] :
       {std::pair{0, 0}, {kWords, 0}, {kWords, 1}, {-1, 0}, {10, 0}, {kWords, 2}, {kWords, -1}}) {
    PlayLabel(shown, tierIndex, index);
  }
  shown.labelEntry.currentTier = kWords;
  shown.labelEntry.pressedLabel = 0;
  for (const bool edits : {false, true}) {
    shown.labelEntry.enabled = edits;
    PlayPressedLabel(shown);
  }
  EXPECT_EQ(heard.text, "500 10000;2000 6000;6000 10000;2000 6000;");
}

TEST_F(LabelCommandsTest, ListShowsTiersInUseAndActsOnTheSelectedRow) {
  AddLabel(document, kBreaks, 1000.0, "b");
  AddLabel(document, 0, 500.0, "of a tier that is not in use");
  tier(0).inUse = false;
  const auto rows = LabelListRows(document);
  EXPECT_EQ(JoinedEach(rows, [](const auto& row) { return row.tierName + ":" + row.text; }),
            "words:one words:two breaks:b");
  document.settings.zoomRangeMs = 1000.0;
  ZoomToLabel(view, rows[1]);
  EXPECT_EQ(channel.visibleStart.ms, 5500.0);
  dialog.WillGive(Answering("TWO", 6000.0));
  EditListedLabel(view, rows[1]);
  EditListedLabel(view, rows[1]);  // that label is gone
  DeleteListedLabel(view, rows[1]);
  EXPECT_EQ(Words(), "one@2000 TWO@6000");
  DeleteListedLabel(view, rows[0]);
  EXPECT_EQ(Words(), "TWO@6000");
}

}  // namespace
}  // namespace cantorix
