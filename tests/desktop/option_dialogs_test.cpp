// option_dialogs_test.cpp - the rows of the option dialogs: what they show, which setting each of
// them is, and when they count. Their limits stand in tests/settings/forms.txt.
#include <map>
#include <tuple>

#include "desktop/dialog_helpers.h"
#include "desktop/dialog_sheet.h"
#include "desktop/dialogs/option_dialog.h"
#include "settings/field_text.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

QString Number(double value) { return QString::number(value, 'g', 12); }

// Every setting as text, those of the pitch window that no file holds included.
std::map<std::string, std::string> TextsOf(const DocumentSettings& document) {
  std::map<std::string, std::string> texts;
  const Settings settings{{}, document};
  for (const Field& field : Fields()) {
    texts[std::string(field.group) + '.' + std::string(field.name)] = FieldText(settings, field);
  }
  const PitchSettings& pitch = document.pitch;
  const std::pair<const char*, double> unsaved[] = {
      {"addTimeGrid", pitch.addTimeGrid}, {"timeGridMs", pitch.timeGridMs},
      {"addAudio", pitch.addAudio},       {"addIntensity", pitch.addIntensity},
      {"addLabels", pitch.addLabels},     {"printWidth", pitch.printWidth},
      {"printHeight", pitch.printHeight}};
  for (const auto& [name, value] : unsaved) {
    texts[std::string("pitch.") + name] = Typed(Number(value));
  }
  return texts;
}

template <typename S>
DocumentSettings With(const S& group) {
  DocumentSettings all;
  std::get<S&>(std::tie(all, all.fftLpc, all.spectrogram, all.pitch, all.intensity, all.gain,
                        all.generic)) = group;
  return all;
}

// The settings that differ from before.
template <typename S>
QString ChangesBetween(const S& before, const S& after) {
  QString changes;
  const auto old = TextsOf(With(before));
  for (const auto& [name, value] : TextsOf(With(after))) {
    if (old.at(name) != value) changes += Shown(' ' + name + '=' + value);
  }
  return changes.isEmpty() ? "" : " ->" + changes;
}

class OptionDialogs : public DialogTest {
 protected:
  // What is seen of a dialog, which settings change when all its boxes are turned and its fields
  // hold one number more than the field before, and what is seen after its further button.
  template <typename S>
  std::string Sheet(const OptionForm<S>& form, const OptionValues<S>& values) {
    OptionDialog<S> dialog(prompts, form, values, nullptr);
    std::string sheet = SheetOf(dialog);
    for (auto* const button : dialog.template findChildren<QAbstractButton*>()) {
      if (button->isCheckable()) button->click();
    }
    int number = 40;
    for (auto* const field : dialog.template findChildren<QLineEdit*>()) {
      field->setText(field->text().contains('.') ? "0.6" : QString::number(++number));
    }
    sheet += "turned" + Typed(ChangesBetween(values.preset, dialog.Entered())) + "\n\n";
    if (form.restore == nullptr) return sheet;
    PressExtra(dialog);
    return sheet + SheetOf(dialog);
  }
};

// Each with the defaults, and with everything else where a choice or a button restores something.
TEST_F(OptionDialogs, AreAsApproved) {
  const SpectrogramSettings ofAnotherRate = DefaultDocumentSettings(22050.0).spectrogram;
  ExpectText(
      "desktop/expected/OptionDialogs.txt",
      Sheet<FftLpcSettings>(FftLpcForm(), {}) +
          Sheet<FftLpcSettings>(
              FftLpcForm(), {{5, 1024, 99, 9, 900, 0, 9, 1, 30.0, 20.0, 1, 0, 9, 0, 9, 30, 0}}) +
          Sheet<SpectrogramSettings>(SpectrogramForm(), {}) +
          Sheet<SpectrogramSettings>(
              SpectrogramForm(), {{8192, 9, 700, 9, 0.5, 0, 30, 0, 30.0, 20.0, 1, 1, 1, 0, 9, 0, 9},
                                  ofAnotherRate,
                                  44100.0}) +
          Sheet<PitchSettings>(PitchForm(), {}) +
          Sheet<PitchSettings>(PitchForm(), {{99, 9, 900, 90, 800, 80, 0, 9, kCepstral, 9,
                                              9,  9, 9,   0,  9,   1,  1, 0, 30.0,      20.0}}) +
          Sheet<IntensitySettings>(IntensityForm(), {}) + Sheet<DocumentSettings>(ZoomForm(), {}) +
          Sheet<DocumentSettings>(LogForm(), {}) +
          Sheet<GainSettings>(GainForm(), {{-15.9, 120.7}}) +
          Sheet<GenericParameters>(GenericForm(), {}));
}

TEST_F(OptionDialogs, GiveTheSizeOfATransformWithItsIndex) {
  for (const auto& [points, index] : {std::pair{32, 0}, {256, 3}, {4096, 7}}) {
    FftLpcSettings preset;
    preset.sizeIndex = index;
    const OptionDialog<FftLpcSettings> dialog(prompts, FftLpcForm(), {preset}, nullptr);
    EXPECT_EQ(dialog.Entered().points, points);
    EXPECT_EQ(dialog.Entered().sizeIndex, index);
  }
  for (const auto& [points, index] : {std::pair{32, 1}, {64, 2}, {8192, 9}}) {
    SpectrogramSettings preset;
    preset.points = points;
    preset.sizeIndex = 5;  // the points decide
    OptionDialog<SpectrogramSettings> dialog(prompts, SpectrogramForm(), {preset}, nullptr);
    EXPECT_EQ(dialog.Entered().sizeIndex, index);
    FieldOf<QComboBox>(dialog, "Bandwidth (Window Length)")->setCurrentIndex(3);
    EXPECT_EQ(dialog.Entered().points, 256);
  }
}

TEST_F(OptionDialogs, JudgeOnlyWhatIsInUse) {
  PitchSettings preset;
  preset.deviationHz = 77.0;
  OptionDialog<PitchSettings> pitch(prompts, PitchForm(), {preset}, nullptr);
  Type(pitch, "Frequency deviation (Hz)", "many");
  EXPECT_EQ(Ok(pitch), "");
  EXPECT_EQ(pitch.Entered().deviationHz, 77.0);
  FieldOf<QRadioButton>(pitch, "Cepstral")->click();
  EXPECT_EQ(Ok(pitch), "Enter an integer between 0 and 1000000.");
  EXPECT_FALSE(FieldOf<QLineEdit>(pitch, "Voicing level")->isEnabled());

  OptionDialog<FftLpcSettings> fft(prompts, FftLpcForm(), {}, nullptr);  // Relative
  Type(fft, "Absolute (dB)", "loud");
  FieldOf<QCheckBox>(fft, "Add Power grid with spacing (dB)")->click();
  Type(fft, "Add Power grid with spacing (dB)", "");
  EXPECT_EQ(Ok(fft), "");
  FieldOf<QRadioButton>(fft, "Absolute (dB)")->click();
  EXPECT_EQ(Ok(fft), "Enter an integer between 1 and 1000.");
}

TEST_F(OptionDialogs, FillWhatIsSuggestedAndLeaveTheRest) {
  const auto press = [](QDialog& dialog) {
    for (QPushButton* const button : dialog.findChildren<QPushButton*>()) {
      if (button->text().remove('&') == "Suggested") button->click();
    }
  };
  OptionDialog<SpectrogramSettings> spectrogram(prompts, SpectrogramForm(), {{}, {}, 44100.0},
                                                nullptr);
  Type(spectrogram, "Pre-Emphasis (0-1)(0 adds nothing)", "0.5");
  Type(spectrogram, "Dynamic range (dB)", "much");
  press(spectrogram);
  EXPECT_EQ(Typed(ChangesBetween(SpectrogramSettings(), spectrogram.Entered())),
            " -> spectrogram.dynamicRangeDb=60 spectrogram.lpcOrder=46 spectrogram.points=256 "
            "spectrogram.preEmphasis=0.5 spectrogram.sizeIndex=4");
  OptionDialog<PitchSettings> pitch(prompts, PitchForm(), {}, nullptr);
  press(pitch);
  EXPECT_EQ(Ok(pitch), "");
  EXPECT_EQ(Typed(ChangesBetween(PitchSettings(), pitch.Entered())),
            " -> pitch.deviationHz=20 pitch.lowHz=75 pitch.thresholdPercent=0.1 "
            "pitch.tolerancePercent=20 pitch.voicingLevel=10 pitch.windowMs=50");
}

// On 8 kHz the stored range does not fit; on 1 kHz none does.
TEST_F(OptionDialogs, AreAcceptedUntouched) {
  for (const auto& [rateHz, shown] :
       {std::pair{8000.0, "4000"}, {11025.0, "5000"}, {44100.0, "5000"}, {1000.0, "5000"}}) {
    OptionDialog<SpectrogramSettings> dialog(prompts, SpectrogramForm(), {{}, {}, rateHz}, nullptr);
    EXPECT_EQ(FieldOf<QLineEdit>(dialog, "Frequency range (Hz)")->text(), shown) << rateHz;
    EXPECT_EQ(Ok(dialog), "") << rateHz;
    EXPECT_EQ(dialog.Entered().rangeHz, 5000) << "the setting stays for other recordings";
    PressExtra(dialog);
    EXPECT_EQ(Ok(dialog), "") << "defaults at " << rateHz;
    EXPECT_EQ(dialog.Entered().rangeHz, 5000) << "defaults at " << rateHz;
  }
  OptionDialog<SpectrogramSettings> typed(prompts, SpectrogramForm(), {{}, {}, 8000.0}, nullptr);
  Type(typed, "Frequency range (Hz)", "3000");
  EXPECT_EQ(typed.Entered().rangeHz, 3000);
}

TEST_F(OptionDialogs, GoToTheRefusedField) {
  OptionDialog<FftLpcSettings> fft(prompts, FftLpcForm(), {}, nullptr);
  fft.show();
  fft.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&fft));
  Type(fft, "Average step size (ms)", "0");
  EXPECT_EQ(Ok(fft), "Enter an integer between 1 and 32767.");
  auto* const field = FieldOf<QLineEdit>(fft, "Average step size (ms)");
  EXPECT_EQ(QApplication::focusWidget(), field);
  EXPECT_EQ(field->selectedText(), "0");
}

}  // namespace
}  // namespace cantorix
