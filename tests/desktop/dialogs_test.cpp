// dialogs_test.cpp - the dialogs that are no table of options: labels, tiers, import, channels.
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>
#include <QPushButton>

#include "desktop/dialog_helpers.h"
#include "desktop/dialog_sheet.h"
#include "desktop/dialogs/channel_dialog.h"
#include "desktop/dialogs/generic_dialog.h"
#include "desktop/dialogs/label_dialog.h"
#include "desktop/dialogs/label_file_dialogs.h"
#include "desktop/dialogs/label_import_dialog.h"
#include "desktop/dialogs/texts_dialog.h"
#include "desktop/dialogs/tiers_dialog.h"
#include "desktop/paint/paint_style.h"
#include "desktop/qt_dialogs.h"
#include "desktop/qt_prompts.h"
#include "desktop/qt_text.h"
#include "mainview/dialog_answers.h"
#include "settings/settings.h"
#include "support/expected_text.h"
#include "support/scripted_prompts.h"

namespace cantorix {
namespace {

using Dialogs = DialogTest;

Label LabelOf(const char* text) {
  Label label;
  label.text = text;
  return label;
}

// A file of 1000 bytes behind its header, which cannot be read as text.
struct PreviewOfBytes : GenericPreview {
  GenericOutcome Try(const GenericParameters& entered, int columns) override {
    GenericOutcome outcome;
    if (entered.binary == 0) {
      outcome.problem = "It holds no <b>numbers</b>.";
      return outcome;
    }
    outcome.samples = (1000 - entered.headerBytes) / (entered.sixteenBit + 1);
    outcome.durationMs = static_cast<double>(outcome.samples) * 1000.0 / entered.rateHz;
    outcome.waveform.assign(static_cast<std::size_t>(columns), {-32768, 32767});
    return outcome;
  }
};

TEST_F(Dialogs, TheGenericDialogShowsWhatWouldComeOut) {
  PreviewOfBytes preview;
  GenericDialog dialog(prompts, {}, preview, nullptr);
  auto* const view = FieldOf<QWidget>(dialog, "Waveform");
  dialog.show();
  const auto shown = [&] {
    QCoreApplication::processEvents();
    const QColor corner = view->grab().toImage().pixelColor(5, 5);
    const bool isDrawn = corner.rgb() == StyleFor(view->palette()).waveform.rgb();
    return Typed(view->accessibleDescription() + (isDrawn ? " drawn" : " empty"));
  };
  EXPECT_EQ(shown(), "Duration: 50.0 ms\nLength: 500 samples drawn");
  Type(dialog, "Header size (byte)", "200");
  EXPECT_EQ(shown(), "Duration: 40.0 ms\nLength: 400 samples drawn");
  Type(dialog, "Sample rate (hz)", "8000");
  FieldOf<QAbstractButton>(dialog, "8 bit")->click();
  EXPECT_EQ(shown(), "Duration: 100.0 ms\nLength: 800 samples drawn");
  Type(dialog, "Sample rate (hz)", "none");
  EXPECT_EQ(shown(), "Duration: 80.0 ms\nLength: 800 samples drawn") << "of the preset";
  FieldOf<QAbstractButton>(dialog, "ASCII")->click();
  EXPECT_EQ(shown(), "It holds no <b>numbers</b>.\n empty");
}

TEST_F(Dialogs, AreAsApproved) {
  Label label = LabelOf("H*");
  label.font.Set(-17, 700, false, false, "<b>Sans</b>");
  label.colour = 0x2111d1;
  LabelDialog entry(prompts, {}, false, nullptr);
  LabelDialog edit(prompts, label, true, nullptr);
  TiersDialog tiers(prompts, {{{"tones", 20, true}, {"words", 0, false}}}, nullptr);
  LabelImportDialog import(prompts, {"tones", "<i>"}, {}, nullptr);
  LabelFileDialog labelFile(prompts, {.importFormat = "eaf", .emptyIntervals = true}, nullptr);
  LabelExportDialog labelExport(prompts, {"tones", "<i>"}, {.exportFormat = "eaf"}, nullptr);
  ChannelDialog channels("Which <b>?", 12, nullptr);
  TextsDialog texts(prompts, {"Go to", {{"Time:", "1.0"}}, "In <i>ms</i>."}, nullptr);
  PreviewOfBytes preview;
  GenericDialog generic(prompts, {}, preview, nullptr);
  ExpectText("desktop/expected/Dialogs.txt", SheetOf(entry) + SheetOf(edit) + SheetOf(tiers) +
                                                 SheetOf(import) + SheetOf(labelFile) +
                                                 SheetOf(labelExport) + SheetOf(channels) +
                                                 SheetOf(generic) + SheetOf(texts));
  EXPECT_EQ(FieldOf<QLineEdit>(edit, "Enter Label (255 characters maximum):")->selectedText(),
            "H*");
  const QPushButton* const colour = edit.findChildren<QPushButton*>()[1];
  EXPECT_EQ(colour->icon().pixmap(14).toImage().pixelColor(7, 7), QColor(0xd1, 0x11, 0x21));
}

// Bytes are counted, and a two-byte character is not cut in its middle.
TEST_F(Dialogs, TextsAreCutAtACharacter) {
  const QString tooLong(300, QChar(0x0259));
  LabelDialog dialog(prompts, {}, false, nullptr);
  auto* const field = FieldOf<QLineEdit>(dialog, "Enter Label (255 characters maximum):");
  field->setText(tooLong);
  EXPECT_EQ(dialog.Entered().text.size(), 254U);
  field->setCursorPosition(20);
  QTest::keyClicks(field, "m");
  EXPECT_EQ(field->text(), QString(tooLong).left(127).insert(20, 'm')) << "the end is cut";
  EXPECT_EQ(field->cursorPosition(), 21);
  TiersDialog tiers(prompts, {}, nullptr);
  FieldOf<QLineEdit>(tiers, "Name of tier 1")->setText(tooLong);
  EXPECT_EQ(tiers.Entered()[0].name.size(), 254U);
}

TEST_F(Dialogs, ALabelKeepsWhatTheDialogDoesNotShow) {
  Label label = LabelOf("caf\xE9");  // not UTF-8: shown as it was meant
  label.timeMs = 12.5;
  label.verticalPosition = 0.25;
  label.colour = 0x0000FF;
  label.alignment = kAlignRight;
  label.flag = 1;
  LabelDialog dialog(prompts, label, true, nullptr);
  label.text = "caf\xC3\xA9";
  EXPECT_EQ(dialog.Entered(), label);
  FieldOf<QAbstractButton>(dialog, "Center")->click();
  FieldOf<QAbstractButton>(dialog, "Add line")->click();
  label.alignment = kAlignCentre;
  label.flag = 0;
  EXPECT_EQ(dialog.Entered(), label);
  EXPECT_FALSE(dialog.removed());
  dialog.show();
  PressExtra(dialog);
  EXPECT_TRUE(dialog.removed());
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(Dialogs, TheLabelsFontAndColourAreChosenInTheirDialogs) {
  LabelDialog dialog(prompts, {}, false, nullptr);
  const auto buttons = dialog.findChildren<QPushButton*>();
  for (const bool chosen : {false, true}) {
    DialogUser<QFontDialog> font([&](QFontDialog& fonts) {
      EXPECT_EQ(fonts.windowTitle(), "Font");
      QFont larger = fonts.currentFont();
      larger.setPixelSize(40);
      fonts.setCurrentFont(larger);
      static_cast<QDialog&>(fonts).done(chosen ? QDialog::Accepted : QDialog::Rejected);
    });
    buttons[0]->click();
    EXPECT_EQ(dialog.Entered().font == DefaultFont(), !chosen);
    DialogUser<QColorDialog> colour([&](QColorDialog& colours) {
      EXPECT_EQ(colours.windowTitle(), "Color");
      colours.setCurrentColor(QColor(1, 2, 3));
      static_cast<QDialog&>(colours).done(chosen ? QDialog::Accepted : QDialog::Rejected);
    });
    buttons[1]->click();
    EXPECT_EQ(dialog.Entered().colour, chosen ? 0x030201U : 0U);
  }
  EXPECT_FALSE(buttons[0]->toolTip().contains("Arial, 14 pixels"));
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

// Every dialog of the working view, answered by OK and by Cancel.
TEST_F(Dialogs, GiveWhatOkTookAndNothingOnCancel) {
  QtPrompts boxes;
  QtDialogs dialogs(boxes);
  for (const bool ok : {true, false}) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [ok] {
      auto* const dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog != nullptr) ok ? dialog->accept() : dialog->reject();
    });
    timer.start(5);
    const auto label = dialogs.AskLabel(LabelOf("H*"), true);
    ASSERT_EQ(label.has_value(), ok);
    EXPECT_TRUE(!ok || (label->label.text == "H*" && !label->remove));
    EXPECT_EQ(dialogs.AskTiers({{{"tones", 21, true}}}).value_or(TierSetups{})[0].height,
              ok ? 21 : 20);
    const auto import =
        dialogs.AskLabelImport({"words"}, {TimeStampUnit::kSeconds, kAlignCentre, true});
    ASSERT_EQ(import.has_value(), ok);
    EXPECT_TRUE(!ok || (import->tierName == "words" && import->options.addLine &&
                        import->options.unit == TimeStampUnit::kSeconds &&
                        import->options.alignment == kAlignCentre));
    EXPECT_EQ(
        dialogs.AskLabelFile({.importFormat = "emu"}).value_or(LabelFileOptions{}).importFormat,
        ok ? "emu" : "");
    EXPECT_EQ(dialogs.AskLabelExport({"words"}, {.asIntervals = true})
                  .value_or(LabelExportAnswer{})
                  .options.asIntervals,
              ok);
    EXPECT_EQ(dialogs.AskGain({15.0, 0.0}).value_or(GainSettings{}).gainPercent, ok ? 15.0 : 0.0);
    EXPECT_EQ(dialogs.AskZoomRange(1234).value_or(0), ok ? 1234 : 0);
    EXPECT_EQ(dialogs.AskFftLpc({}, 8000.0).has_value(), ok);
    EXPECT_EQ(dialogs.AskSpectrogram({}, {}, 8000.0).has_value(), ok);
    EXPECT_EQ(dialogs.AskPitch({}, 8000.0).has_value(), ok);
    EXPECT_EQ(dialogs.AskIntensity({}).has_value(), ok);
    EXPECT_EQ(dialogs.AskLogStep(77).value_or(0), ok ? 77 : 0);
  }
}

}  // namespace
}  // namespace cantorix
