// label_file_commands_test.cpp - "Import Label File" and "Export Labels As" as a user meets them:
// what is asked, what the recording's tiers become, what undo takes back, what is written.
#include <gmock/gmock.h>

#include <span>

#include "mainview/label_commands.h"
#include "mainview/view_fixture.h"
#include "platform/file.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

constexpr const char* kHead = "tier,start_s,end_s,text\n";

// The recording of 10 s has "words" with one@2000 and two@6000, and "breaks" without labels.
class LabelFilesTest : public LabelTest {
 protected:
  std::vector<std::string> Import(const std::string& name, const std::string& bytes,
                                  const LabelFileOptions& options = {},
                                  std::optional<Answer> answer = {}) {
    const std::string path = world.test.folder / name;
    if (!bytes.empty()) WriteBytes(path, std::as_bytes(std::span(bytes)));
    world.dialogs.labelFile.WillGive(options);
    world.test.prompts.WillChooseFile(path);
    if (answer) world.test.prompts.WillAnswer(*answer);
    ImportLabelFile(view);
    return Said();
  }

  std::string Export(const LabelExportAnswer& answer, const std::string& name) {
    world.dialogs.labelExport.WillGive(answer);
    world.test.prompts.WillChooseFile(world.test.folder / name);
    ExportLabels(view);
    return ReadWholeFile(world.test.folder / name);
  }

  // With "@" for the folder.
  std::vector<std::string> Said() {
    auto said = world.test.prompts.TakeTranscript();
    for (std::string& text : said) {
      const std::size_t at = text.find(world.test.folder.path());
      if (at != std::string::npos) text.replace(at, world.test.folder.path().size(), "@");
    }
    return said;
  }

  // "words: one@2000 two@6000; breaks: ; " of the tiers in use.
  std::string InUse() {
    std::string text;
    for (int i = 0; i < kTierCount; ++i) {
      if (tier(i).inUse) text += tier(i).name + ": " + LabelsOf(channel, i) + "; ";
    }
    return text;
  }

  const std::string before = "words: one@2000 two@6000; breaks: ; ";
};

TEST_F(LabelFilesTest, TiersGoToThoseOfTheirNamesAndUndoTakesThemAllBack) {
  const std::string bytes =
      std::string(kHead) + "words,1,,a\nnew,0.5,1.5,b\nnew,1.5,2,\nnew,3,10,c\nmisc,0,,d\n";
  listener = {};
  EXPECT_THAT(Import("t.csv", bytes), ElementsAre("open: Import Label File"));
  EXPECT_EQ(InUse(), "words: one@2000 two@6000 a@1000; breaks: ; misc: d@0; new: b@500 c@3000; ");
  EXPECT_EQ(EditOf(view), "undo modified");
  ASSERT_EQ(listener.notices.size(), 1U);
  Undo(view);
  EXPECT_EQ(InUse(), before);

  Import("t.csv", bytes, {.importFormat = "csv", .emptyIntervals = true});
  EXPECT_EQ(LabelsOf(channel, 4), "b@500 @1500 @2000 c@3000");
}

TEST_F(LabelFilesTest, WhatIsNotKeptIsAskedOnceBeforeAnythingChanges) {
  std::string bytes = kHead;
  for (const char* name : {"1", "2", "3", "4", "5", "6", "7", "8", "9"}) {
    bytes += std::string(name) + ",1,,x\n";
  }
  bytes += "words,-1,,early\nwords,10.0000005,,at the end\nwords,10.1,,late\n1,2,," +
           std::string(256, 'x') + "\n";
  const char* const question =
      "ask ok/cancel: Tier \"1\": 1 text cut to 255 bytes.\nTier \"words\": 2 labels before 0 or "
      "past "
      "the end at 10000 ms left out.\nA recording has ten tiers, no room is left for \"9\" (1 "
      "label).\n"
      "\nImport the other labels ?";
  EXPECT_THAT(Import("t.csv", bytes, {}, Answer::kCancel),
              ElementsAre("open: Import Label File", question));
  EXPECT_EQ(InUse(), before);
  EXPECT_EQ(EditOf(view), "no undo");
  Import("t.csv", bytes, {}, Answer::kOk);
  EXPECT_EQ(Words(), "one@2000 two@6000 at the end@10000");
  EXPECT_EQ(tier(kBreaks).name, "breaks");
}

TEST_F(LabelFilesTest, WhatCannotBeReadIsSaidAndChangesNothing) {
  const std::string could = "message: @/t.csv could not be opened. ";
  EXPECT_THAT(Import("t.csv", ""), ElementsAre(::testing::_, could + "No such file or directory."));
  EXPECT_THAT(Import("t.csv", kHead), ElementsAre(::testing::_, could + "It holds no labels."));
  EXPECT_THAT(Import("t.csv", "x"),
              ElementsAre(::testing::_, could + "It is no label file of a known format."));
  EXPECT_THAT(
      Import("t.csv", "0.5\tx\n"),
      ElementsAre(::testing::_, could + "Plain text does not say the unit of its times: choose "
                                        "it as the format."));
  world.dialogs.labelFile.WillCancel();
  ImportLabelFile(view);
  world.dialogs.labelFile.WillGive({.importFormat = "eaf"});
  world.test.prompts.WillCancel();
  ImportLabelFile(view);
  EXPECT_THAT(Said(), ElementsAre("open: Import Label File"));
  EXPECT_EQ(world.test.prompts.fileRequests.back().filter, "ELAN|*.eaf|All files|*.*|");
  EXPECT_EQ(document.labelFiles.importFormat, "eaf");
  EXPECT_EQ(InUse(), before);
  EXPECT_EQ(EditOf(view), "no undo");
}

TEST_F(LabelFilesTest, ExportsTheTiersInUseAndAsksFirstWhatIsNotKept) {
  EXPECT_EQ(Export({"", {.exportFormat = "csv"}}, "a.csv"),
            std::string(kHead) + "words,2.000000,,one\nwords,6.000000,,two\n");
  const FileRequest& request = world.test.prompts.fileRequests[0];
  EXPECT_EQ(Joined(request.title, request.proposedName, request.defaultExtension, request.filter,
                   request.overwritePrompt),
            "Export Labels As Untitled csv Table with commas|*.csv| 1");
  EXPECT_EQ(Export({"words", {.exportFormat = "audacity", .asIntervals = true}}, "b.txt"),
            "2.000000\t6.000000\tone\n6.000000\t10.000000\ttwo\n");
  Said();
  AddLabel(document, kBreaks, 10'001.0, "gone");
  world.dialogs.labelExport.WillGive({"", {.exportFormat = "text"}});
  world.test.prompts.WillAnswer(Answer::kCancel);
  ExportLabels(view);
  EXPECT_THAT(Said(),
              ElementsAre("ask ok/cancel: Tier \"breaks\": 1 label outside the recording left "
                          "out.\nA file of this format has no tiers: \"words\" (2 labels), "
                          "\"breaks\" (0 labels) become one.\n\nExport the labels so ?"));
  world.dialogs.labelExport.WillGive({"words", {.exportFormat = "text"}});
  world.test.prompts.WillChooseFile(world.test.folder / "none/c.txt");
  ExportLabels(view);
  EXPECT_THAT(Said(),
              ElementsAre("save: Export Labels As",
                          "message: @/none/c.txt could not be saved. No such file or directory."));
  tier(kWords).inUse = tier(kBreaks).inUse = false;
  ExportLabels(view);
  EXPECT_THAT(Said(), ElementsAre("message: No tier is in use."));
  EXPECT_EQ(EditOf(view), "no undo");
}

}  // namespace
}  // namespace cantorix
