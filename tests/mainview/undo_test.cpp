// undo_test.cpp - the undo file, and what comes back from it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "document/label.h"
#include "document/native_file.h"
#include "mainview/editing.h"
#include "mainview/view_fixture.h"
#include "platform/abandon.h"
#include "support/file_size_limit.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class UndoTest : public ViewTest {
 protected:
  std::vector<std::byte> NativeSave(CSonadexDoc& document) {
    const std::string path = world.temporary / "save.qrv";
    SaveNative(document, path, std::nullopt);
    std::vector<std::byte> bytes = ReadBytes(path);
    std::filesystem::remove(path);
    return bytes;
  }
  std::string UndoPath() const { return world.temporary / "Untitled@@tmp"; }
};

// Fields, tiers and labels that no native file keeps whole.
void MakeDetailed(CChannel& channel) {
  channel.displayLow = 8.75;
  channel.referenceLevel = -2.5;
  channel.channelName = std::string(100, 'n');
  channel.tiers[5].inUse = true;
  channel.tiers[5].name = std::string(300, 't');
  channel.tiers[2].inUse = true;
  Label late = LabelOf(1e6, "after the end");
  late.colour = 0x01020304;
  channel.AddLabel(5, late);
  channel.AddLabel(7, LabelOf(1.0, "in a tier that is not in use"));
}

TEST_F(UndoTest, FileIsANativeSaveOfTheWholeRecording) {
  for (const Place place : {Place::kMemory, Place::kDisk}) {
    ViewedRecording talk(world, Ramp(2500), 1000.0, place);
    AddLabel(talk.document, 3, 12.0, "a");
    talk.document.hasSelection = true;
    talk.channel().selectionEnd = {100.0, 100.0};
    for (int save = 0; save < 2; ++save) {
      SaveUndoFile(talk.view);
      EXPECT_EQ(EditOf(talk.view), "undo");
      EXPECT_EQ(ReadBytes(UndoPath()), NativeSave(talk.document));
      Hold(talk.document, Ramp(5), 1000.0);  // a save of less leaves nothing of the first
    }
  }
  EXPECT_THAT(world.temporary.Names(), IsEmpty());
}

TEST_F(UndoTest, BringsBackSamplesLabelsAndEveryFieldWhereTheyWere) {
  for (const Place place : {Place::kMemory, Place::kDisk}) {
    ViewedRecording talk(world, Ramp(50), 1000.0, place);
    CSonadexDoc& document = talk.document;
    CChannel& channel = talk.channel();
    document.foreignSource = true;
    document.savedLength = 77.0;
    MakeDetailed(channel);
    const Tiers tiers = channel.tiers;
    SaveUndoFile(talk.view);

    Hold(document, Ramp(7, 1000), 8000.0);
    for (Tier& tier : channel.tiers) tier = {};
    channel.channelName = "other";
    channel.displayLow = channel.referenceLevel = 1.0;
    channel.cursor = {3.0, 0.375};
    channel.selectionEnd = channel.selectionLength = {5.0, 0.625};
    talk.view.SetSelection();
    document.SetModified(false);
    Undo(talk.view);

    EXPECT_EQ(talk.samples(), Ramp(50));
    EXPECT_EQ(document.samplesOnDisk(), place == Place::kDisk);
    EXPECT_EQ(Joined(channel.totalLength, channel.sampleRateHz, channel.displayLow,
                     channel.referenceLevel, channel.visibleEnd.samples, channel.visibleEnd.ms),
              "50 1000 8.75 -2.5 50 50");
    EXPECT_EQ(channel.channelName, std::string(100, 'n'));
    for (std::size_t i = 0; i < tiers.size(); ++i) {
      EXPECT_EQ(channel.tiers[i].name, tiers[i].name);
      EXPECT_EQ(channel.tiers[i].inUse, tiers[i].inUse);
      EXPECT_EQ(channel.tiers[i].labels, tiers[i].labels);
    }
    EXPECT_EQ(MarksOf(talk.view), "0.375 of 0 0 = 0");
    EXPECT_EQ(EditOf(talk.view), "no undo modified");
    EXPECT_EQ(Joined(document.foreignSource, document.savedLength, document.memoryLimitMinutes),
              "1 77 5");
  }
}

TEST_F(UndoTest, ViewsOfOneTitleHaveFilesOfTheirOwn) {
  ViewedRecording first(world, Ramp(3)), second(world, Ramp(4));
  for (ViewedRecording* talk : {&first, &second}) {
    talk->document.SetPathName("talk");
    SaveUndoFile(talk->view);
  }
  EXPECT_THAT(world.temporary.Names(), UnorderedElementsAre("talk@@tmp", "talk@@tmp2"));
  // A file that was deleted is made again, not written where no name leads to it.
  std::filesystem::remove(world.temporary / "talk@@tmp2");
  SaveUndoFile(second.view);
  for (ViewedRecording* talk : {&first, &second}) {
    Hold(talk->document, Ramp(1), 1000.0);
    Undo(talk->view);
  }
  EXPECT_EQ(first.samples(), Ramp(3));
  EXPECT_EQ(second.samples(), Ramp(4));
  UndoFile slashes(world.temporary.path() + "/", "a/b");
  UndoFile tooLong(world.temporary.path() + "/", std::string(255, 'x'));
  slashes.Claim();
  tooLong.Claim();
  EXPECT_EQ(slashes.path(), world.temporary / "a_b@@tmp");
  EXPECT_EQ(tooLong.path(), world.temporary / (std::string(240, 'x') + "@@tmp"));
}

TEST_F(UndoTest, RefusesAFileThatIsNotItsOwn) {
  const char* const kUnreadable = "message: Error in reading the temp file";
  const char* const kWrongType = "message: Wrong temp file type";
  const char* const kWrongChannels =
      "message: Wrong channel number.\nEither is zero or is more than 20.";
  const struct {
    const char* name;
    void (*spoil)(std::vector<std::byte>&);
    const char* message;
  } rows[] = {
      {"no header", [](auto& bytes) { bytes.resize(511); }, kWrongType},
      {"empty", [](auto& bytes) { bytes.clear(); }, kWrongType},
      {"magic", [](auto& bytes) { bytes[3] = std::byte('X'); }, kWrongType},
      {"no channel", [](auto& bytes) { bytes[8] = std::byte(0); }, kWrongChannels},
      {"two channels", [](auto& bytes) { bytes[8] = std::byte(2); }, kWrongChannels},
      {"another rate", [](auto& bytes) { bytes[520] ^= std::byte(1); }, kUnreadable},
      {"no samples", [](auto& bytes) { bytes.resize(bytes.size() - 1); }, kUnreadable},
      {"no fields", [](auto& bytes) { bytes.resize(600); }, kUnreadable},
      {"no file", nullptr, kUnreadable},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ViewedRecording talk(world, Ramp(20));
    SaveUndoFile(talk.view);
    std::vector<std::byte> bytes = ReadBytes(UndoPath());
    std::filesystem::remove(UndoPath());
    if (row.spoil != nullptr) {
      row.spoil(bytes);
      WriteBytes(UndoPath(), bytes);
    }
    Hold(talk.document, Ramp(6), 1000.0);
    EXPECT_THROW(Undo(talk.view), Abandoned);
    EXPECT_THAT(world.test.prompts.TakeTranscript(), ElementsAre(row.message));
    EXPECT_EQ(talk.samples(), Ramp(6));
    EXPECT_EQ(talk.channel().totalLength, 6.0);
    EXPECT_EQ(EditOf(talk.view), "undo");
  }
  ViewedRecording untouched(world, Ramp(20));
  EXPECT_THROW(Undo(untouched.view), Abandoned);
  EXPECT_THAT(world.test.prompts.TakeTranscript(), ElementsAre(kUnreadable));
}

TEST_F(UndoTest, TwoChannelsAreNotRestoredIsKept) {
  ViewedRecording talk(world, Ramp(20));
  talk.document.channelCount = 2;
  SaveUndoFile(talk.view);
  EXPECT_TRUE(talk.view.undoAvailable);
  EXPECT_THROW(Undo(talk.view), Abandoned);
  EXPECT_EQ(world.test.prompts.TakeTranscript().size(), 1U);
}

TEST_F(UndoTest, FileThatCannotBeMadeEndsTheEditAndOneThatCannotBeWrittenOnlyUndo) {
  ViewedRecording talk(world, Ramp(2000));
  SaveUndoFile(talk.view);
  {
    const FileSizeLimit limit(3000);
    SaveUndoFile(talk.view);
  }
  EXPECT_THAT(world.test.prompts.TakeTranscript(),
              ElementsAre("message: Unable to save to a temp. file for Undo function.\n"
                          "Undo is not available."));
  EXPECT_FALSE(talk.view.undoAvailable);
  EXPECT_EQ(std::filesystem::file_size(UndoPath()), 0U);  // gives the full disk its space back

  std::filesystem::remove_all(world.temporary.path());
  talk.view.undoAvailable = true;
  EXPECT_THROW(SaveUndoFile(talk.view), Abandoned);
  EXPECT_THAT(world.test.prompts.TakeTranscript(),
              ElementsAre("message: Error in saving the temp file"));
  EXPECT_FALSE(talk.view.undoAvailable);
}

TEST_F(UndoTest, CanBeCancelledBetweenTheBlocksOfALongRecording) {
  ViewedRecording talk(world, Ramp(2500), 1000.0, Place::kDisk);
  world.test.progress = CancellingProgress(3);
  EXPECT_THROW(SaveUndoFile(talk.view), Abandoned);
  EXPECT_FALSE(talk.view.undoAvailable);
  EXPECT_THAT(world.test.progress.done, ElementsAre(0.0, 1000.0, 2000.0));

  world.test.progress = CancellingProgress();
  SaveUndoFile(talk.view);
  Hold(talk.document, Ramp(4), 1000.0);
  world.test.progress = CancellingProgress(2);
  EXPECT_THROW(Undo(talk.view), Abandoned);
  EXPECT_EQ(talk.samples(), Ramp(4));
  EXPECT_TRUE(talk.view.undoAvailable);
}

}  // namespace
}  // namespace cantorix
