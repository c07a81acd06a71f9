// tier_commands_test.cpp - the "Tiers Option" dialog and the import of label files.
#include <gmock/gmock.h>

#include <span>

#include "document/label.h"
#include "label_fixture.h"
#include "mainview/dialog_answers.h"
#include "mainview/label_commands.h"
#include "settings/config_file.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TierCommandsTest : public LabelTest {
 protected:
  ScriptedDialogs& dialogs = world.dialogs;

  TierSetups Setups() {
    TierSetups setups;
    for (int i = 0; i < kTierCount; ++i) {
      setups[static_cast<std::size_t>(i)] = {tier(i).name, tier(i).tierWord, tier(i).inUse};
    }
    return setups;
  }
  // Answers the import dialog, and the file dialog with a file of `text`, and imports.
  std::vector<std::string> Import(const std::string& tierName, const std::string& text,
                                  const LabelImportOptions& options = {}) {
    const std::string path = world.test.folder / "labels.TXT";
    WriteBytes(path, std::as_bytes(std::span(text)));
    dialogs.labelImport.WillGive(LabelImportAnswer{tierName, options});
    world.test.prompts.WillChooseFile(text == "missing" ? world.test.folder / "missing" : path);
    ImportLabels(view);
    return world.test.prompts.TakeTranscript();
  }
};

TEST_F(TierCommandsTest, OkSetsTheTiersOfThisRecordingAndTheNamesOfNewOnes) {
  const std::string path = ConfigPath(world.test.folder.path());
  ASSERT_TRUE(WriteConfiguration(path, {{}, DefaultDocumentSettings()}));
  TierSetups setups = Setups();
  setups[0] = {std::string(70, 'n'), 25, true};
  setups[kWords].inUse = false;
  setups[9] = {"last", 0, true};
  listener = {};
  dialogs.tiers.WillGive(setups);
  SetTiers(view);

  EXPECT_EQ(dialogs.tiers.presets[0][kWords], (TierSetup{"words", 40, true}));
  EXPECT_EQ(tier(0).name, std::string(70, 'n'));
  EXPECT_EQ(view.layout.tier(0).bottom, 25);  // laid out again
  EXPECT_EQ(tier(9).tierWord, 1);
  EXPECT_EQ(EditOf(view), "no undo modified");
  EXPECT_EQ(Words(), "one@2000 two@6000");  // labels of a tier out of use are not lost
  ASSERT_EQ(listener.notices.size(), 1U);
  EXPECT_TRUE(listener.notices[0].Has(DocumentChange::kLabels));
  Settings stored;
  ASSERT_TRUE(DecodeRecord(ReadConfiguration(path), stored));
  EXPECT_EQ(stored.document.tierNames[0], std::string(63, 'n'));
  EXPECT_EQ(stored.document.tierNames[9], "last");
}

TEST_F(TierCommandsTest, CancelAndUnchangedTiersLeaveTheDocumentUnmodified) {
  dialogs.tiers.WillCancel();
  SetTiers(view);
  dialogs.tiers.WillGive(Setups());
  SetTiers(view);
  EXPECT_FALSE(document.isModified());
}

// Importing is not counted as editing; the question on closing is left to the user's next edit.
TEST_F(TierCommandsTest, ImportAppendsWithoutMarkingModifiedIsKept) {
  listener = {};
  EXPECT_THAT(Import("words", "3\tthree\r\n1\tone more\r\nnone\r\n",
                     {.unit = TimeStampUnit::kSeconds, .alignment = kAlignRight, .addLine = true}),
              ElementsAre("open: Open Label file to import into a tier"));
  const FileRequest& request = world.test.prompts.fileRequests[0];
  EXPECT_EQ(Joined(request.filter, request.proposedName, request.fileMustExist),
            "Label files (*.TXT)|*.TXT|| LabelFile 1");
  EXPECT_THAT(dialogs.labelImport.presets[0].tierNames, ElementsAre("words", "breaks"));
  EXPECT_EQ(Words(), "one@2000 two@6000 three@3000 one more@1000");
  EXPECT_EQ(EditOf(view), "undo");
  ASSERT_EQ(listener.notices.size(), 1U);
  EXPECT_TRUE(listener.notices[0].Has(DocumentChange::kLabels));

  // The choices are the next import's defaults, whether or not a file follows.
  dialogs.labelImport.WillGive(LabelImportAnswer{"breaks", {.alignment = kAlignCentre}});
  world.test.prompts.WillCancel();
  ImportLabels(view);
  world.test.prompts.TakeTranscript();
  EXPECT_EQ(dialogs.labelImport.presets[1].options.unit, TimeStampUnit::kSeconds);
  EXPECT_TRUE(dialogs.labelImport.presets[1].options.addLine);
  EXPECT_EQ(document.labelImport.alignment, kAlignCentre);
}

TEST_F(TierCommandsTest, NothingToImportChangesNothing) {
  listener = {};
  playback.stops = 0;
  for (const char* text : {"", "no numbers\n", "missing"}) Import("words", text);
  dialogs.labelImport.WillCancel();
  ImportLabels(view);
  EXPECT_EQ(Words(), "one@2000 two@6000");
  EXPECT_EQ(EditOf(view), "no undo");
  EXPECT_THAT(listener.notices, IsEmpty());
  EXPECT_EQ(playback.stops, 0);
}

TEST_F(TierCommandsTest, LaterTierInUseWinsOnEqualNames) {
  tier(kBreaks).name = "words";
  tier(7).name = "words";  // not in use
  Import("words", "1\ta");
  EXPECT_EQ(LabelsOf(channel, kBreaks), "a@1");
  dialogs.labelImport.WillGive(LabelImportAnswer{"of no tier", {}});
  ImportLabels(view);  // asks for no file
}

TEST_F(TierCommandsTest, ImportWithoutATierInUseAsksForTiersFirst) {
  tier(kWords).inUse = tier(kBreaks).inUse = false;
  dialogs.tiers.WillCancel();
  ImportLabels(view);
  TierSetups setups = Setups();
  dialogs.tiers.WillGive(setups);  // still none
  ImportLabels(view);
  EXPECT_THAT(dialogs.labelImport.presets, IsEmpty());
  setups[3].inUse = true;
  dialogs.tiers.WillGive(setups);
  Import("misc", "1\ta");
  EXPECT_EQ(LabelsOf(channel, 3), "a@1");
}

}  // namespace
}  // namespace cantorix
