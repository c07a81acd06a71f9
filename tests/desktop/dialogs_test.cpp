// dialogs_test.cpp - what the option dialogs take, refuse and give back.
#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/dialogs/fft_lpc_dialog.h"
#include "desktop/dialogs/label_dialog.h"
#include "desktop/dialogs/label_import_dialog.h"
#include "desktop/dialogs/pitch_dialog.h"
#include "desktop/dialogs/small_dialogs.h"
#include "desktop/dialogs/spectrogram_dialog.h"
#include "desktop/dialogs/tiers_dialog.h"
#include "desktop/qt_text.h"
#include "mainview/dialog_answers.h"
#include "support/scripted_prompts.h"

namespace cantorix {
namespace {

// The field whose label, or whose own text, is `label`.
template <typename Field>
Field* FieldOf(QDialog& dialog, const QString& label) {
  for (Field* const field : dialog.findChildren<Field*>()) {
    if (field->accessibleName() == label) return field;
  }
  ADD_FAILURE() << "no field " << Typed(label);
  return nullptr;
}

void Type(QDialog& dialog, const char* label, const char* text) {
  FieldOf<QLineEdit>(dialog, QString::fromUtf8(label))->setText(QString::fromUtf8(text));
}

void PressExtra(QDialog& dialog) {
  for (QAbstractButton* const button : dialog.findChild<QDialogButtonBox*>()->buttons()) {
    if (dialog.findChild<QDialogButtonBox*>()->buttonRole(button) == QDialogButtonBox::ResetRole) {
      return button->click();
    }
  }
  ADD_FAILURE() << "no further button";
}

class Dialogs : public testing::Test {
 protected:
  // OK is pressed: the message that keeps the dialog open, or "" when it closed.
  std::string Ok(QDialog& dialog) {
    dialog.show();
    dialog.accept();
    const auto shown = prompts.TakeTranscript();
    EXPECT_EQ(shown.empty(), !dialog.isVisible());
    EXPECT_LE(shown.size(), 1U);
    return shown.empty() ? "" : shown[0].substr(std::string("message: ").size());
  }

  ScriptedPrompts prompts;
};

TEST_F(Dialogs, ThePitchDialogRefusesInItsOrderAndKeepsWhatWasTyped) {
  struct Row {
    const char *low, *high, *displayLow, *displayHigh, *message;
  };
  for (const Row& row : {
           Row{"49", "100", "10", "20", "Please select a calculation low range greater than 50 Hz"},
           Row{"50", "249", "10", "20",
               "Calculation high range is too low. Must be greater (low range +200) Hz"},
           Row{"50", "250", "49", "20", "Please select a display low range greater than 50 Hz"},
           Row{"50", "250", "50", "249",
               "Display high range is too low. Must be greater (low range +200) Hz"},
           Row{"50", "250", "50", "250", ""},
       }) {
    PitchDialog dialog(prompts, {}, nullptr);
    Type(dialog, "Calculation range (Hz), low", row.low);
    Type(dialog, "Calculation range (Hz), high", row.high);
    Type(dialog, "Display range (Hz), low", row.displayLow);
    Type(dialog, "Display range (Hz), high", row.displayHigh);
    EXPECT_EQ(Ok(dialog), row.message);
    EXPECT_EQ(FieldOf<QLineEdit>(dialog, "Calculation range (Hz), low")->text(), row.low);
  }
}

TEST_F(Dialogs, ThePitchDialogJudgesOnlyTheChosenMethod) {
  PitchSettings preset;
  preset.method = kAutoCorrelation;
  preset.deviationHz = 100.0;
  PitchDialog dialog(prompts, preset, nullptr);
  Type(dialog, "Frequency deviation (Hz)", "many");
  Type(dialog, "Voicing level", "3");
  EXPECT_EQ(Ok(dialog), "");
  EXPECT_EQ(dialog.Entered().deviationHz, 100.0);
  EXPECT_EQ(dialog.Entered().voicingLevel, 3.0);
  FieldOf<QRadioButton>(dialog, "Cepstral")->click();
  EXPECT_EQ(Ok(dialog), "Enter an integer between 0 and 1000000.");
}

TEST_F(Dialogs, TheSpectrogramDialogRefusesByTheRecordingsRate) {
  struct Row {
    const char *range, *order, *preEmphasis, *message;
  };
  for (const Row& row : {
           Row{"499", "14", "0.98", "Frequency range is too low. Must be > 500 Hz"},
           Row{"5001", "14", "0.98", "Frequency range is too high. Must be < 5000 Hz"},
           Row{"5000", "401", "0.98", "LPC coefficient is too high. Must be < 400"},
           Row{"5000", "400", "1.01", "Enter a number between 0 and 1."},
           Row{"5000", "400", "1", ""},
       }) {
    SpectrogramDialog dialog(prompts, {}, 11025.0, nullptr);
    Type(dialog, "Frequency range (Hz)", row.range);
    Type(dialog, "Formant tracking LPC coefficients", row.order);
    Type(dialog, "Pre-Emphasis (0-1)(0 adds nothing)", row.preEmphasis);
    EXPECT_EQ(Ok(dialog), row.message);
  }
}

TEST_F(Dialogs, TheFftLpcDialogRefusesOrdersOutsideFourToAHundred) {
  for (const auto& [order, message] :
       {std::pair{"3", "Enter an integer between 4 and 100."}, std::pair{"4", ""},
        std::pair{"100", ""}, std::pair{"101", "Enter an integer between 4 and 100."}}) {
    FftLpcDialog dialog(prompts, {}, 11025.0, nullptr);
    Type(dialog, "LPC number of coefficients", order);
    EXPECT_EQ(Ok(dialog), message);
  }
}

TEST_F(Dialogs, StepsAndWindowsBelowOneMillisecondAreRefused) {
  const std::string refusal = "Enter an integer between 1 and 32767.";
  for (const char* const label : {"Window Length (ms)", "Step Size (ms)"}) {
    for (const char* const text : {"0", "-5", "", "ten", "1.5"}) {
      IntensityDialog dialog(prompts, {}, nullptr);
      Type(dialog, label, text);
      EXPECT_EQ(Ok(dialog), refusal) << label << text;
    }
  }
}

// Every dialog gives back what it was filled with when nothing is touched.
TEST_F(Dialogs, ValuesGoThroughUnchanged) {
  FftLpcSettings fft;
  fft.sizeIndex = 5;
  fft.points = 1024;
  fft.windowMs = 11;
  fft.relative = 0;
  fft.absoluteDb = 77;
  fft.addFrequencyGrid = 0;
  fft.frequencyGridHz = 123;
  fft.printUnit = 1;
  fft.printWidth = 7.25;
  fft.blackWhite = 0;
  fft.drawLpc = 0;
  const FftLpcSettings fftBack = FftLpcDialog(prompts, fft, 22050.0, nullptr).Entered();
  EXPECT_EQ(std::tie(fftBack.sizeIndex, fftBack.points, fftBack.windowMs, fftBack.relative,
                     fftBack.absoluteDb, fftBack.addFrequencyGrid, fftBack.frequencyGridHz,
                     fftBack.printUnit, fftBack.printWidth, fftBack.blackWhite, fftBack.drawLpc),
            std::tie(fft.sizeIndex, fft.points, fft.windowMs, fft.relative, fft.absoluteDb,
                     fft.addFrequencyGrid, fft.frequencyGridHz, fft.printUnit, fft.printWidth,
                     fft.blackWhite, fft.drawLpc));

  SpectrogramSettings spectrogram;
  spectrogram.points = 8192;
  spectrogram.sizeIndex = 9;
  spectrogram.preEmphasis = 0.955;
  spectrogram.trackFormants = 0;
  spectrogram.lpcOrder = 22;
  spectrogram.drawLabels = 1;
  spectrogram.timeGridMs = 0;
  const auto back = SpectrogramDialog(prompts, spectrogram, 22050.0, nullptr).Entered();
  EXPECT_EQ(std::tie(back.points, back.sizeIndex, back.preEmphasis, back.trackFormants,
                     back.lpcOrder, back.drawLabels, back.timeGridMs),
            std::tie(spectrogram.points, spectrogram.sizeIndex, spectrogram.preEmphasis,
                     spectrogram.trackFormants, spectrogram.lpcOrder, spectrogram.drawLabels,
                     spectrogram.timeGridMs));

  const GainSettings gain = GainDialog(prompts, {-15.9, 120.7}, nullptr).Entered();
  EXPECT_EQ(gain.gainPercent, -15.0);
  EXPECT_EQ(gain.reference, 120.0);
  EXPECT_EQ(ZoomDialog(prompts, 1500, nullptr).Entered(), 1500);
  EXPECT_EQ(LogDialog(prompts, 25, nullptr).Entered(), 25);
}

TEST_F(Dialogs, DefaultsFillTheDialogAloneAndDefaultSizeThePrintSizeAlone) {
  PitchSettings pitch;
  pitch.windowMs = 99.0;
  PitchDialog pitchDialog(prompts, pitch, nullptr);
  PressExtra(pitchDialog);
  EXPECT_EQ(pitchDialog.Entered().windowMs, PitchSettings{}.windowMs);

  FftLpcSettings fft;
  fft.printWidth = 3.0;
  fft.printUnit = 1;
  fft.windowMs = 99;
  FftLpcDialog fftDialog(prompts, fft, 11025.0, nullptr);
  PressExtra(fftDialog);
  EXPECT_EQ(fftDialog.Entered().printWidth, 6.0);
  EXPECT_EQ(fftDialog.Entered().printUnit, 0);
  EXPECT_EQ(fftDialog.Entered().windowMs, 99);
}

TEST_F(Dialogs, BandwidthListsStartAtTheWidestLine) {
  FftLpcDialog fft(prompts, {}, 11025.0, nullptr);
  EXPECT_EQ(FieldOf<QComboBox>(fft, "Bandwidth (Window Length )")->itemText(0),
            "  344  Hz  (  32 pts)");
  EXPECT_EQ(FieldOf<QComboBox>(fft, "Bandwidth (Window Length )")->count(), 8);
  SpectrogramDialog spectrogram(prompts, {}, 11025.0, nullptr);
  EXPECT_EQ(FieldOf<QComboBox>(spectrogram, "Bandwidth (Window Length)")->count(), 9);
}

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

TEST_F(Dialogs, TiersComeBackByLine) {
  TierSetups preset;
  preset[0] = {"tones", 20, true};
  preset[9] = {"last", 31, false};
  TiersDialog dialog(prompts, preset, nullptr);
  Type(dialog, "Height of tier 10 in pixels", "0");
  EXPECT_EQ(Ok(dialog), "Enter an integer between 1 and 1000.");
  Type(dialog, "Height of tier 10 in pixels", "44");
  Type(dialog, "Name of tier 2", "w\xC3\xB6rter");
  FieldOf<QCheckBox>(dialog, "Tier 10 in use")->click();
  EXPECT_EQ(Ok(dialog), "");
  const TierSetups entered = dialog.Entered();
  EXPECT_EQ(entered[1].name, "w\xC3\xB6rter");
  EXPECT_EQ(entered[9].height, 44);
  EXPECT_TRUE(entered[9].inUse);
  EXPECT_TRUE(entered[0].inUse);
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

TEST_F(Dialogs, NoTwoRowsShareAMnemonic) {
  FftLpcDialog fft(prompts, {}, 11025.0, nullptr);
  SpectrogramDialog spectrogram(prompts, {}, 11025.0, nullptr);
  PitchDialog pitch(prompts, {}, nullptr);
  for (QDialog* const dialog : std::initializer_list<QDialog*>{&fft, &spectrogram, &pitch}) {
    QStringList letters;
    const auto note = [&](const QString& text) {
      const auto mark = text.indexOf('&');
      if (mark >= 0) letters << text.mid(mark + 1, 1).toLower();
    };
    for (const QLabel* const label : dialog->findChildren<QLabel*>()) note(label->text());
    for (const auto* const button : dialog->findChildren<QAbstractButton*>()) note(button->text());
    EXPECT_EQ(letters.removeDuplicates(), 0) << Typed(dialog->windowTitle());
  }
}

}  // namespace
}  // namespace cantorix
