// sample_edits_test.cpp - edits that change samples where they stand, in memory and on disk.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mainview/editing.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "platform/abandon.h"
#include "settings/config_file.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

using SampleEditsTest = ViewTest;

TEST_F(SampleEditsTest, ClearSetsTheSelectionOfTheFirstChannelAloneIsKept) {
  ViewedRecording talk(world, Ramp(8, 100));
  talk.document.channelCount = 2;
  AssignOrReport(talk.document.channels[1], talk.channel(), world.test.memory, world.test.prompts);
  talk.channel().referenceLevel = -2.9;
  SelectSamples(talk, 2.5, 5.75);
  ClearToReference(talk.view);
  EXPECT_EQ(talk.samples(), (Samples{100, 101, -2, -2, -2, 105, 106, 107}));
  EXPECT_THAT(talk.document.channels[1].samples.samples(),
              ElementsAre(100, 101, 102, 103, 104, 105, 106, 107));
  EXPECT_EQ(EditOf(talk.view), "undo modified");
  EXPECT_TRUE(talk.view.selectionShown());
}

TEST_F(SampleEditsTest, GainWrapsAroundIsKept) {
  const struct {
    GainSettings gain;
    Samples before, after;
  } rows[] = {
      {{0, 0}, {-32768, -1, 0, 1, 32767}, {-32768, -1, 0, 1, 32767}},
      {{100, 0}, {16383, 16384, -16384, -16385, 32767}, {32766, -32768, -32768, 32766, -2}},
      {{-100, 0}, {-32768, 5, 32767}, {0, 0, 0}},
      {{15, 0}, {100, -100, 101}, {114, -114, 116}},
      {{0, 3.9}, {0, 32767, -32768}, {3, -32766, -32765}},
      {{50, -10}, {10, 13, 7, -32768}, {0, 4, -4, -16399}},
      {{1e9, 70000},
       {0},
       {static_cast<std::int16_t>(
           static_cast<std::uint16_t>(static_cast<std::int64_t>((1e9 * 0.01 + 1.0) * 4464)))}},
  };
  for (const Place place : {Place::kMemory, Place::kDisk}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.gain.gainPercent);
      ViewedRecording talk(world, row.before, 2.0, place);
      ApplyReferenceAndGain(talk.view, row.gain);
      EXPECT_EQ(talk.samples(), row.after);
      Undo(talk.view);
      EXPECT_EQ(talk.samples(), row.before);
    }
  }
}

TEST_F(SampleEditsTest, GainWarnsAndNeitherAnswerSavesIsKept) {
  const std::string path = ConfigPath(world.test.folder.path());
  ASSERT_TRUE(WriteConfiguration(path, {{}, DefaultDocumentSettings()}));
  const char* const kQuestion =
      "ask yes/no/cancel: This operation will change the current data permanently.\n"
      "Save ' talk.qrv ' before proceeding ?";
  for (const Answer answer : {Answer::kCancel, Answer::kYes, Answer::kNo}) {
    ViewedRecording talk(world, {100});
    talk.document.SetPathName("/nowhere/talk.qrv");
    talk.document.settings.gain = {12.9, -3.9};
    world.dialogs.gain.WillCancel();
    ReferenceAndGain(talk.view);
    world.dialogs.gain.WillGive({100.0, 1.0});
    world.test.prompts.WillAnswer(answer);
    ReferenceAndGain(talk.view);
    const GainSettings& preset = world.dialogs.gain.presets.back();
    EXPECT_EQ(Joined(preset.gainPercent, preset.reference), "12 -3");
    EXPECT_THAT(world.test.prompts.TakeTranscript(), ElementsAre(kQuestion));
    EXPECT_EQ(talk.samples(), answer == Answer::kCancel ? Samples{100} : Samples{202});
    EXPECT_EQ(talk.view.undoAvailable, answer != Answer::kCancel);
    Settings stored;
    ASSERT_TRUE(DecodeRecord(ReadConfiguration(path), stored));
    EXPECT_EQ(Joined(stored.document.gain.gainPercent, stored.document.gain.reference), "100 1");
  }
}

TEST_F(SampleEditsTest, CancelledGainLeavesTheBlocksBeforeItChangedIsKept) {
  ViewedRecording talk(world, Ramp(10), 4.5, Place::kDisk);
  // The undo file asks three times, the gain before its second and its third block of 4 samples.
  world.test.progress = CancellingProgress(5);
  EXPECT_THROW(ApplyReferenceAndGain(talk.view, {0.0, 100.0}), Abandoned);
  EXPECT_EQ(talk.samples(), (Samples{100, 101, 102, 103, 104, 105, 106, 107, 8, 9}));
  EXPECT_EQ(EditOf(talk.view), "undo modified");
  world.test.progress = CancellingProgress();
  Undo(talk.view);
  EXPECT_EQ(talk.samples(), Ramp(10));
}

TEST_F(SampleEditsTest, SmoothAveragesThreeWhereverTheSamplesAre) {
  const Samples rows[] = {
      {}, {5}, {5, 9}, {0, 3, 1, -9, 32767, 32767, 32767, -32768}, {-1, -1, 0, 7, 7}};
  for (const Samples& before : rows) {
    Samples expected = before;
    for (std::size_t i = 1; i + 1 < before.size(); ++i) {
      expected[i] = static_cast<std::int16_t>((before[i - 1] + before[i] + before[i + 1]) / 3);
    }
    for (const Place place : {Place::kMemory, Place::kDisk}) {
      ViewedRecording talk(world);
      Hold(talk.document, before, 2.0, place);
      Smooth(talk.view);
      EXPECT_EQ(talk.samples(), expected);
      Undo(talk.view);
      EXPECT_EQ(talk.samples(), before);
    }
  }
}

TEST_F(SampleEditsTest, ReferenceIsTheMeanOfTheSelectionOrTheVisibleStretch) {
  for (const Place place : {Place::kMemory, Place::kDisk}) {
    ViewedRecording talk(world, {10, 20, 30, 41, -32768}, 2.0, place);
    talk.view.pitch.PitchValid = true;
    SelectSamples(talk, 1.0, 4.0);
    CSonadexView other(talk.document, world.Services());
    other.pitch.PitchValid = other.undoAvailable = true;
    SetReferenceOfAllChannels(talk.view);
    EXPECT_EQ(talk.channel().referenceLevel, 91.0 / 3.0);
    EXPECT_EQ(EditOf(talk.view), "undo modified");
    // No sample has changed: the views keep their tracks, though the undo is this one's now.
    EXPECT_TRUE(talk.view.pitch.PitchValid && other.pitch.PitchValid && !other.undoAvailable);
    talk.view.DropMarks();
    talk.channel().visibleEnd = {2.0, 1000.0};
    SetReferenceOfAllChannels(talk.view);
    EXPECT_EQ(talk.channel().referenceLevel, 15.0);
    Undo(talk.view);
    EXPECT_EQ(talk.channel().referenceLevel, 91.0 / 3.0);
  }
}

TEST_F(SampleEditsTest, FailedStoreEndsTheEditAndSaysThatItWasChanged) {
  ViewedRecording talk(world, Ramp(10), 4.0, Place::kDisk);
  SaveUndoFile(talk.view);
  ASSERT_EQ(::truncate(talk.document.store()->path().c_str(), 10), 0);
  EXPECT_ANY_THROW(ApplyReferenceAndGain(talk.view, {0.0, 100.0}));
  // The undo file could not be written from such a store, which was said.
  EXPECT_THAT(world.test.prompts.TakeTranscript(),
              ElementsAre("message: Unable to save to a temp. file for Undo function.\n"
                          "Undo is not available."));
  EXPECT_TRUE(talk.document.isModified());
}

}  // namespace
}  // namespace cantorix
