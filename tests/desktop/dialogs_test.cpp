// dialogs_test.cpp - the dialogs that are no table of options: labels, tiers, import, channels.
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

#include "desktop/dialog_helpers.h"
#include "desktop/dialogs/channel_dialog.h"
#include "desktop/dialogs/label_dialog.h"
#include "desktop/dialogs/label_import_dialog.h"
#include "desktop/dialogs/tiers_dialog.h"
#include "desktop/qt_text.h"
#include "mainview/dialog_answers.h"
#include "support/scripted_prompts.h"

namespace cantorix {
namespace {

using Dialogs = DialogTest;

TEST_F(Dialogs, LabelTextsAreCutAtACharacter) {
  LabelDialog dialog(prompts, {}, false, nullptr);
  auto* const field = FieldOf<QLineEdit>(dialog, "Enter Label (255 characters maximum):");
  field->setText(QString(300, QChar(0x0259)));  // schwa: two bytes
  EXPECT_EQ(dialog.Entered().text.size(), 254U);
}

TEST_F(Dialogs, ALabelKeepsWhatTheDialogDoesNotShow) {
  Label label;
  label.text = "caf\xE9";  // not UTF-8: shown as it was meant
  label.timeMs = 12.5;
  label.verticalPosition = 0.25;
  label.colour = 0x0000FF;
  label.alignment = kAlignRight;
  label.flag = 1;
  LabelDialog dialog(prompts, label, true, nullptr);
  const Label entered = dialog.Entered();
  EXPECT_EQ(entered.text, "caf\xC3\xA9");
  Label expected = label;
  expected.text = entered.text;
  EXPECT_EQ(entered, expected);
  EXPECT_FALSE(dialog.removed());
  PressExtra(dialog);
  EXPECT_TRUE(dialog.removed());
}

TEST_F(Dialogs, TheImportDialogGivesTheTierByItsName) {
  LabelImportOptions preset;
  preset.unit = TimeStampUnit::kSeconds;
  preset.alignment = kAlignCentre;
  LabelImportDialog dialog(prompts, {"tones", "words"}, preset, nullptr);
  FieldOf<QComboBox>(dialog, "Select a tier to enter into :")->setCurrentIndex(1);
  FieldOf<QCheckBox>(dialog, "Add Line")->click();
  const LabelImportAnswer entered = dialog.Entered();
  EXPECT_EQ(entered.tierName, "words");
  EXPECT_EQ(entered.options.unit, TimeStampUnit::kSeconds);
  EXPECT_EQ(entered.options.alignment, kAlignCentre);
  EXPECT_TRUE(entered.options.addLine);
}

TEST_F(Dialogs, TiersComeBackByLine) {
  const std::string longest(255, 'n');
  TierSetups preset;
  preset[0] = {"tones", 20, true};
  preset[3] = {longest, 20, true};
  preset[4] = {"caf\xE9", 20, true};  // not UTF-8: keeps its byte
  preset[9] = {"last", 31, false};
  TiersDialog dialog(prompts, preset, nullptr);
  EXPECT_EQ(dialog.Entered(), preset);
  Type(dialog, "Height of tier 10 in pixels", "0");
  EXPECT_EQ(Ok(dialog), "") << "not in use";
  EXPECT_EQ(dialog.Entered()[9].height, 31);
  FieldOf<QCheckBox>(dialog, "Tier 10 in use")->click();
  EXPECT_EQ(Ok(dialog), "Enter an integer between 1 and 1000.");
  Type(dialog, "Height of tier 10 in pixels", "44");
  Type(dialog, "Name of tier 2", "w\xC3\xB6rter");
  EXPECT_EQ(Ok(dialog), "");
  preset[1].name = "w\xC3\xB6rter";
  preset[9] = {"last", 44, true};
  EXPECT_EQ(dialog.Entered(), preset);
}

// 254 bytes of two-byte characters and one more: cut at a character.
TEST_F(Dialogs, TierNamesAreCutAtACharacter) {
  TiersDialog dialog(prompts, {}, nullptr);
  FieldOf<QLineEdit>(dialog, "Name of tier 1")->setText(QString(200, QChar(0x0259)));
  EXPECT_EQ(dialog.Entered()[0].name.size(), 254U);
}

TEST_F(Dialogs, ChannelsAreADropDownListOfAtMostTen) {
  for (const auto& [channels, listed] : {std::pair{2, 2}, {10, 10}, {12, 10}}) {
    ChannelDialog dialog("Which?", channels, nullptr);
    EXPECT_EQ(dialog.windowTitle(), "Select channels");
    auto* const list = FieldOf<QComboBox>(dialog, "Channels");
    ASSERT_EQ(list->count(), listed);
    EXPECT_EQ(list->itemText(0), "Channel #1");
    EXPECT_EQ(list->itemText(listed - 1), QStringLiteral("Channel #%1").arg(listed));
    EXPECT_EQ(dialog.Entered(), 0);
    list->setCurrentIndex(1);
    EXPECT_EQ(dialog.Entered(), 1);
  }
}

}  // namespace
}  // namespace cantorix
