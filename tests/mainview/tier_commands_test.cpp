// tier_commands_test.cpp - the "Tiers Option" dialog and the import of label files: which lines
// become labels, and what the command makes of them.
#include <gmock/gmock.h>

#include <span>

#include "document/label.h"
#include "mainview/dialog_answers.h"
#include "mainview/label_commands.h"
#include "mainview/label_import.h"
#include "mainview/view_fixture.h"
#include "settings/config_file.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kMs = TimeStampUnit::kMilliseconds;
constexpr auto kSeconds = TimeStampUnit::kSeconds;

TEST(LabelImportTest, ReadsALabelFromEachLineThatBeginsLikeANumber) {
  const std::string huge(400, '9');
  const struct {
    const char* name;
    std::string bytes;
    TimeStampUnit unit;
    std::string labels;
  } cases[] = {
      {"nothing", "", kMs, ""},
      {"CR LF", "1\ta\r\n2\tb\r\n", kMs, "1:a 2:b"},
      {"LF, unsorted", "2\ta\n1\tb", kMs, "2:a 1:b"},
      {"CR", "\r1\ta\r\r2\tb", kMs, "1:a 2:b"},
      {"later tabs stay", "12.5\thello\tworld\n", kSeconds, "12500:hello\tworld"},
      {"point first", ".5\tx", kMs, "0.5:x"},
      {"a point alone", ".\tx", kMs, "0:x"},
      {"exponent", "3e2\tx", kMs, "300:x"},
      {"text after the number", "4 ms, about\tx", kMs, "4:x"},
      {"decimal comma", "4,5\tx", kMs, "4:x"},
      {"hexadecimal", "0x10\ta\n0X1p4", kMs, "0:a 0:"},
      {"UTF-8 mark", std::string("\xEF\xBB\xBF") + "1\ta\n\xEF\xBB\xBF" + "2\tb", kMs, "1:a"},
      {"no tab", "7", kSeconds, "7000:"},
      {"empty text", "7\t", kMs, "7:"},
      {"other first characters", " 1\ta\n\t2\n-3\tb\n+4\tc\nx5\td\ninf\te\n", kMs, ""},
      {"999 bytes", "1" + std::string(998, 'x'), kMs, "1:"},
      {"1000 bytes", "1" + std::string(999, 'x') + "\n2\tb", kMs, "2:b"},
      {"too large", huge + "\ta\n2\tb", kMs, "2:b"},
      {"too large in ms", "1e307\ta\n2\tb", kSeconds, "2000:b"},
      {"long text", "1\t" + std::string(256, 'x'), kMs, "1:" + std::string(255, 'x')},
      {"zero byte", std::string("1\0002\ta\0b", 7), kMs, std::string("1:a\0b", 5)},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(
        JoinedEach(ReadLabelLines(c.bytes, {.unit = c.unit}),
                   [](const Label& label) { return Joined(label.timeMs) + ":" + label.text; }),
        c.labels)
        << c.name;
  }
}

TEST(LabelImportTest, GivesEveryLabelTheChosenPlaceAndTheFreshLooks) {
  const auto labels = ReadLabelLines("1\ta\n", {.alignment = kAlignRight, .addLine = true});
  ASSERT_EQ(labels.size(), 1U);
  Label expected;
  expected.timeMs = 1.0;
  expected.text = "a";
  expected.alignment = 2;
  expected.flag = 1;
  EXPECT_EQ(labels[0], expected);
  EXPECT_EQ(labels[0].verticalPosition, 0.7);
  EXPECT_EQ(labels[0].font.faceName(), "Arial");
  EXPECT_EQ(ReadLabelLines("1\ta\n", {})[0].flag, 0);
}

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
