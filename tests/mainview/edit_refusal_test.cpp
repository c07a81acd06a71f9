// edit_refusal_test.cpp - edits that are refused or fail leave the document as it was.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/label.h"
#include "mainview/editing.h"
#include "mainview/view_fixture.h"
#include "platform/abandon.h"

namespace cantorix {
namespace {

using EditRefusalTest = ViewTest;

TEST_F(EditRefusalTest, CopyThatFailsLeavesAnEmptyClipboard) {
  ViewedRecording talk(world, Ramp(2500), 1000.0, Place::kDisk);
  SelectSamples(talk, 0.0, 2500.0);
  for (const bool cancelled : {true, false}) {
    CopyWholeOf(world, Ramp(10));
    world.test.progress = CancellingProgress(cancelled ? 2 : 1000);
    world.test.memory.limitBytes = cancelled ? 5000 : 4999;
    EXPECT_THROW(CopySelection(talk.view), Abandoned);
    EXPECT_FALSE(world.clipboard.clipboardFull);
    EXPECT_TRUE(world.clipboard.slots[0].samples.empty());
  }
}

// Each refusal comes after the undo file was written, and leaves everything else as it was.
TEST_F(EditRefusalTest, RefusedEditsChangeNothingButTheUndoFileIsKept) {
  const auto onDisk = [](ViewWorld&, ViewedRecording& talk) {
    Hold(talk.document, Ramp(10), 1000.0, Place::kDisk);
    SelectSamples(talk, 2.0, 4.0);
  };
  const auto everything = [](ViewWorld&, ViewedRecording& talk) { SelectSamples(talk, 0.0, 10.0); };
  const struct {
    const char* name;
    void (*prepare)(ViewWorld& around, ViewedRecording& talk);
    void (*edit)(CSonadexView& view);
    std::vector<std::string> prompts;
  } rows[] = {
      {"cut of a long file",
       onDisk,
       CutSelection,
       {"message: For very long files, cutting is not permitted.\n"
        "You may select a piece and save it to a smaller file for further editing."}},
      {"paste into a long file",
       onDisk,
       Paste,
       {"message: For very long files, pasting is not permitted."}},
      {"clear of a long file", onDisk, ClearToReference, {"message: long file error"}},
      {"cut of everything", everything, CutSelection, {}},
      {"paste over everything", everything, Paste, {}},
      {"other channel count",
       [](ViewWorld& around, ViewedRecording&) { around.clipboard.channelCount = 2; },
       Paste,
       {"beep", "message: Pasting of files with different number of channels is not allowed."}},
      {"nearly the same rate",
       [](ViewWorld& around, ViewedRecording&) { around.clipboard.slots[0].sampleRateHz += 1e-4; },
       Paste,
       {"beep", "message: Pasting files with different sample rates for channels is not allowed."}},
      {"paste without memory",
       [](ViewWorld& around, ViewedRecording&) { around.test.memory.limitBytes = 27; },
       Paste,
       {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    CopyWholeOf(world, Ramp(4, 100));
    ViewedRecording talk(world, Ramp(10));
    AddLabel(talk.document, 0, 3.0, "a");
    PutCursor(talk, 1.0);
    row.prepare(world, talk);
    const std::string marks = MarksOf(talk.view);
    EXPECT_THROW(row.edit(talk.view), Abandoned);
    EXPECT_EQ(world.test.prompts.TakeTranscript(), row.prompts);
    EXPECT_EQ(talk.samples(), Ramp(10));
    EXPECT_EQ(Joined(talk.channel().totalLength, talk.channel().totalDurationMs), "10 10");
    EXPECT_EQ(LabelsOf(talk.channel(), 0), "a@3");
    EXPECT_EQ(MarksOf(talk.view), marks);
    EXPECT_EQ(EditOf(talk.view), "undo");
    world.test.memory.limitBytes = UINT64_MAX;
    Undo(talk.view);
    EXPECT_EQ(talk.samples(), Ramp(10));
  }
}

TEST_F(EditRefusalTest, PasteIntoAnEmptyDocumentNeedsMemory) {
  CopyWholeOf(world, Ramp(40));
  ViewedRecording empty(world);
  world.test.memory.limitBytes = 79;
  EXPECT_THROW(Paste(empty.view), Abandoned);
  EXPECT_THAT(world.test.prompts.TakeTranscript(),
              ::testing::ElementsAre("message: Error in '=' operator in CChannel class."));
  EXPECT_FALSE(empty.document.loaded || empty.document.isModified());
  EXPECT_EQ(empty.channel().totalLength, 0.0);
}

}  // namespace
}  // namespace cantorix
