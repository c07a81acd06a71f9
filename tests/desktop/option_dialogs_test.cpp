// option_dialogs_test.cpp - the rows of the option dialogs: their texts, and that each one is
// filled from its member of the settings, judged, read back into it and restored. It is
// long because it is the tables of all rows.
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/dialog_helpers.h"
#include "desktop/dialogs/option_dialog.h"
#include "settings/record.h"

namespace cantorix {
namespace {

// Every text of a dialog in the order of its making, mnemonics removed.
QStringList TextsOf(QDialog& dialog) {
  QStringList texts{dialog.windowTitle()};
  for (const QWidget* const widget : dialog.findChildren<QWidget*>()) {
    QString text;
    if (const auto* const label = qobject_cast<const QLabel*>(widget)) text = label->text();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
      text = button->text();
    }
    if (!text.isEmpty()) texts << text.remove('&');
  }
  texts.sort();
  return texts;
}

template <typename S>
using Number = std::variant<std::int32_t S::*, double S::*>;

template <typename S>
double ValueOf(const S& settings, const Number<S>& member) {
  return std::visit([&](auto pointer) { return static_cast<double>(settings.*pointer); }, member);
}

template <typename S>
void Set(S& settings, const Number<S>& member, double value) {
  std::visit(
      [&](auto pointer) {
        settings.*pointer = static_cast<std::decay_t<decltype(settings.*pointer)>>(value);
      },
      member);
}

// A number of a dialog: the name of its field, its member, the least and the most that it takes
// beside the other values of `around`, and the messages for less and for more.
template <typename S>
struct NumberRow {
  const char* name;
  Number<S> member;
  double least, most;
  const char *tooLow, *tooHigh;
};
// A switch or choice: the names of the buttons for 0 (null: a check box) and 1, and its member.
template <typename S>
struct ButtonRow {
  const char *zero, *one;
  std::int32_t S::*member;
};

constexpr const char* kMs = "Enter an integer between 1 and 32767.";
constexpr const char* kHz = "Enter an integer between 1 and 1000000.";
constexpr const char* kDb = "Enter an integer between 1 and 1000.";
constexpr const char* kSize = "Enter a number between 0.5 and 200.";
constexpr const char* kGrid = "Enter an integer between 0 and 10000000.";
constexpr const char* kAmount = "Enter an integer between 0 and 1000000.";
constexpr const char* kWide = "Enter an integer between -1000000 and 1000000.";
constexpr const char* kNone = nullptr;  // no limit to try

class OptionDialogs : public DialogTest {
 protected:
  template <typename S>
  struct Case {
    const OptionForm<S>& form;
    S around;  // every row in use
    double rateHz = 11025.0;
  };

  template <typename S>
  void CheckNumbers(const Case<S>& c, const std::vector<NumberRow<S>>& rows) {
    for (const NumberRow<S>& row : rows) {
      SCOPED_TRACE(row.name);
      const double step =
          std::string(row.tooLow != nullptr ? row.tooLow : "").find("a number") != std::string::npos
              ? 0.01
              : 1.0;
      const auto answer = [&](double typed) {
        OptionDialog<S> dialog(prompts, c.form, {c.around, {}, c.rateHz}, nullptr);
        Type(dialog, row.name, QString::number(typed, 'g', 12).toUtf8().constData());
        const std::string message = Ok(dialog);
        if (message.empty()) {
          EXPECT_NEAR(ValueOf(dialog.Entered(), row.member), typed, 1e-12);
        } else {
          EXPECT_EQ(FieldOf<QLineEdit>(dialog, row.name)->text(), QString::number(typed, 'g', 12));
        }
        return message;
      };
      EXPECT_EQ(answer(row.least), "");
      EXPECT_EQ(answer(row.most), "");
      if (row.tooLow != nullptr) {
        EXPECT_EQ(answer(row.least - step), row.tooLow);
      }
      if (row.tooHigh != nullptr) {
        EXPECT_EQ(answer(row.most + step), row.tooHigh);
      }

      S other = c.around;
      Set(other, row.member, row.least);
      OptionDialog<S> dialog(prompts, c.form, {other, c.around, c.rateHz}, nullptr);
      EXPECT_EQ(FieldOf<QLineEdit>(dialog, row.name)->text().toDouble(), row.least);
      for (const char* const text : {"", "ten", "1,5"}) {
        Type(dialog, row.name, text);
        EXPECT_NE(Ok(dialog), "") << text;
      }
    }
  }

  template <typename S>
  void CheckButtons(const Case<S>& c, const std::vector<ButtonRow<S>>& rows) {
    for (const ButtonRow<S>& row : rows) {
      for (const int value : {0, 1}) {
        S preset = c.around;
        preset.*row.member = value;
        OptionDialog<S> dialog(prompts, c.form, {preset, {}, c.rateHz}, nullptr);
        EXPECT_EQ(dialog.Entered().*row.member, value) << row.one;
        const char* const name = value == 1 && row.zero != nullptr ? row.zero : row.one;
        FieldOf<QAbstractButton>(dialog, name)->click();
        EXPECT_EQ(dialog.Entered().*row.member, 1 - value) << row.one;
      }
    }
  }
};

FftLpcSettings AllOfFftLpc() {
  FftLpcSettings settings;
  settings.relative = 0;
  return settings;
}

PitchSettings PitchWith(std::int32_t method) {
  PitchSettings settings;
  settings.method = method;
  return settings;
}

TEST_F(OptionDialogs, HaveTheStatedTexts) {
  const auto check = [](QDialog&& dialog, QStringList expected) {
    expected << QStringLiteral("OK") << QStringLiteral("Cancel");
    expected.sort();
    EXPECT_EQ(TextsOf(dialog).join('|').toStdString(), expected.join('|').toStdString());
  };
  check(OptionDialog<FftLpcSettings>(prompts, FftLpcForm(), {}, nullptr),
        {"FFT/LPC Option", "Bandwidth (Window Length ) = ", "Applied window length (ms)  = ",
         "Frequency range (Hz) = ", "Average step size (ms) = ", "LPC number of coefficients = ",
         "Draw LPC", "Absolute  (dB)  = ", "Relative ", "Add Frequency grid with spacing (Hz) = ",
         "Add Power grid with spacing (dB)       = ", "inches", "cm",
         "Width  = ", "Height =", "Color", "Black / White", "Default size"});
  check(OptionDialog<SpectrogramSettings>(prompts, SpectrogramForm(), {}, nullptr),
        {"Spectrogram Option", "Bandwidth (Window Length)  = ", "Frequency range (Hz) = ",
         "Dynamic range (dB) = ", "Pre-Emphasis (0-1)(0 adds nothing)", "Display formants",
         "Formant tracking LPC coefficients        = ", "Draw Audio ", "Draw Labels",
         "Draw Intensity", "Add Frequency grid with spacing (Hz) = ",
         "Add Time grid with spacing (ms) = ", "0: the time grid follows the zoomed window.",
         "Width  = ", "Height =", "The size is in inches.", "Defaults"});
  check(OptionDialog<PitchSettings>(prompts, PitchForm(), {}, nullptr),
        {"Pitch option",
         "Cepstral",
         "AutoCorrolation",
         "Window length (ms)  = ",
         "Step size (ms)           = ",
         "Frequency deviation (Hz) = ",
         "Tracking threshold (%)     = ",
         "Voicing level = ",
         "Continuity tolerance (%) = ",
         "Calculation range (Hz)  = ",
         "to",
         "Display range (Hz)        = ",
         "to",
         "Add Frequency grid with spacing (Hz) = ",
         "Add Time grid with spacing (ms) = ",
         "0: the time grid follows the zoomed window.",
         "Add audio",
         "Add Intensity",
         "Add Labels",
         "Width  = ",
         "Height =",
         "The size is in inches.",
         "Defaults "});
  check(
      OptionDialog<IntensitySettings>(prompts, IntensityForm(), {}, nullptr),
      {"Intensity Options", "Window Length (ms) = ", "Step Size (ms) = ", "Absolute", "Relative"});
  check(OptionDialog<DocumentSettings>(prompts, ZoomForm(), {}, nullptr),
        {"Zoom Option", "Range to zoom from cursor ( ms ) = "});
  check(OptionDialog<DocumentSettings>(prompts, LogForm(), {}, nullptr),
        {"Log Option", "Step size for entire frame entry (Hz) = "});
  check(OptionDialog<GainSettings>(prompts, GainForm(), {}, nullptr),
        {"Reference and Gain", "Reference = ", "Gain (%) = "});
  check(OptionDialog<GenericParameters>(prompts, GenericForm(), {}, nullptr),
        {"Generic File Selection", "Header size (byte) =", "Sample rate (hz)    =", "Data", "ASCII",
         "Interger binary", "Width", "8 bit", "16 bit", "Byte order", "Low byte first",
         "High byte first"});
  OptionDialog<DocumentSettings> log(prompts, LogForm(), {}, nullptr);
  EXPECT_EQ(log.findChild<QGroupBox*>()->title(), "FFT/LPC Entire Frame ");
}

TEST_F(OptionDialogs, TakeEveryNumberWithinItsLimitsAndRefuseOthers) {
  using F = FftLpcSettings;
  CheckNumbers<F>(
      {FftLpcForm(), AllOfFftLpc()},
      {{"Applied window length (ms)", &F::windowMs, 1, 32767, kMs, kMs},
       {"Average step size (ms)", &F::stepMs, 1, 32767, kMs, kMs},
       {"LPC number of coefficients", &F::lpcOrder, 4, 100, "Enter an integer between 4 and 100.",
        "Enter an integer between 4 and 100."},
       {"Frequency range (Hz)", &F::rangeHz, 1, 1000000, kHz, kHz},
       {"Absolute (dB)", &F::absoluteDb, 1, 1000, kDb, kDb},
       {"Add Frequency grid with spacing (Hz)", &F::frequencyGridHz, 1, 1000000, kHz, kHz},
       {"Add Power grid with spacing (dB)", &F::powerGridDb, 1, 1000, kDb, kDb},
       {"Width", &F::printWidth, 0.5, 200, kSize, kSize},
       {"Height", &F::printHeight, 0.5, 200, kSize, kSize}});
  using X = SpectrogramSettings;
  CheckNumbers<X>(
      {SpectrogramForm(), X{}},
      {{"Pre-Emphasis (0-1)(0 adds nothing)", &X::preEmphasis, 0, 1,
        "Enter a number between 0 and 1.", "Enter a number between 0 and 1."},
       {"Frequency range (Hz)", &X::rangeHz, 500, 5000,
        "Frequency range is too low. Must be > 500 Hz",
        "Frequency range is too high. Must be < 5000 Hz"},
       {"Dynamic range (dB)", &X::dynamicRangeDb, 1, 1000, kDb, kDb},
       {"Formant tracking LPC coefficients", &X::lpcOrder, 1, 400,
        "Enter an integer between 1 and 2147483647.", "LPC coefficient is too high. Must be < 400"},
       {"Add Frequency grid with spacing (Hz)", &X::frequencyGridHz, 1, 1000000, kHz, kHz},
       {"Add Time grid with spacing (ms)", &X::timeGridMs, 0, 10000000, kGrid, kGrid},
       {"Width", &X::printWidth, 0.5, 200, kSize, kSize},
       {"Height", &X::printHeight, 0.5, 200, kSize, kSize}});
  using P = PitchSettings;
  CheckNumbers<P>(
      {PitchForm(), PitchWith(kCepstral)},
      {{"Window length (ms)", &P::windowMs, 1, 32767, kMs, kMs},
       {"Step size (ms)", &P::stepMs, 1, 32767, kMs, kMs},
       {"Frequency deviation (Hz)", &P::deviationHz, 0, 1000000, kAmount, kAmount},
       {"Tracking threshold (%)", &P::thresholdPercent, 0, 1000000, kAmount, kAmount},
       {"Calculation range (Hz), low", &P::lowHz, 50, 300,
        "Please select a calculation low range greater than 50 Hz",
        "Calculation high range is too low. Must be greater (low range +200) Hz"},
       {"Calculation range (Hz), high", &P::highHz, 250, 1000000,
        "Calculation high range is too low. Must be greater (low range +200) Hz", kNone},
       {"Display range (Hz), low", &P::displayLowHz, 50, 300,
        "Please select a display low range greater than 50 Hz",
        "Display high range is too low. Must be greater (low range +200) Hz"},
       {"Display range (Hz), high", &P::displayHighHz, 250, 1000000,
        "Display high range is too low. Must be greater (low range +200) Hz", kNone},
       {"Add Frequency grid with spacing (Hz)", &P::frequencyGridHz, 1, 1000000, kHz, kHz},
       {"Add Time grid with spacing (ms)", &P::timeGridMs, 0, 10000000, kGrid, kGrid},
       {"Width", &P::printWidth, 0.5, 200, kSize, kSize},
       {"Height", &P::printHeight, 0.5, 200, kSize, kSize}});
  CheckNumbers<P>(
      {PitchForm(), PitchWith(kAutoCorrelation)},
      {{"Voicing level", &P::voicingLevel, 0, 1000000, kAmount, kAmount},
       {"Continuity tolerance (%)", &P::tolerancePercent, 0, 1000000, kAmount, kAmount}});
  using I = IntensitySettings;
  CheckNumbers<I>({IntensityForm(), I{}}, {{"Window Length (ms)", &I::windowMs, 1, 32767, kMs, kMs},
                                           {"Step Size (ms)", &I::stepMs, 1, 32767, kMs, kMs}});
  using D = DocumentSettings;
  constexpr const char* kRange = "Enter an integer between 1 and 100000000.";
  CheckNumbers<D>({ZoomForm(), D{}},
                  {{"Range to zoom from cursor ( ms )", &D::zoomRangeMs, 1, 1e8, kRange, kRange}});
  constexpr const char* kStep = "Enter an integer between 1 and 100000.";
  CheckNumbers<D>({LogForm(), D{}}, {{"Step size for entire frame entry (Hz)", &D::logStepHz, 1,
                                      100000, kStep, kStep}});
  using G = GainSettings;
  CheckNumbers<G>({GainForm(), G{}}, {{"Reference", &G::reference, -1e6, 1e6, kWide, kWide},
                                      {"Gain (%)", &G::gainPercent, -1e6, 1e6, kWide, kWide}});
  using R = GenericParameters;
  constexpr const char* kHeader = "Enter an integer between 0 and 1000000000.";
  CheckNumbers<R>({GenericForm(), R{}},
                  {{"Header size (byte)", &R::headerBytes, 0, 1000000000, kHeader, kHeader},
                   {"Sample rate (hz)", &R::rateHz, 1, 1000000, kHz, kHz}});
}

TEST_F(OptionDialogs, TurnTheirSwitchesAndChoices) {
  using F = FftLpcSettings;
  CheckButtons<F>({FftLpcForm(), AllOfFftLpc()},
                  {{nullptr, "Draw LPC", &F::drawLpc},
                   {"Absolute (dB)", "Relative", &F::relative},
                   {nullptr, "Add Frequency grid with spacing (Hz)", &F::addFrequencyGrid},
                   {nullptr, "Add Power grid with spacing (dB)", &F::addPowerGrid},
                   {"inches", "cm", &F::printUnit},
                   {"Color", "Black / White", &F::blackWhite}});
  using X = SpectrogramSettings;
  CheckButtons<X>({SpectrogramForm(), X{}},
                  {{nullptr, "Display formants", &X::displayFormants},
                   {nullptr, "Formant tracking LPC coefficients", &X::trackFormants},
                   {nullptr, "Draw Audio", &X::drawAudio},
                   {nullptr, "Draw Labels", &X::drawLabels},
                   {nullptr, "Draw Intensity", &X::drawIntensity},
                   {nullptr, "Add Frequency grid with spacing (Hz)", &X::addFrequencyGrid},
                   {nullptr, "Add Time grid with spacing (ms)", &X::addTimeGrid}});
  using P = PitchSettings;
  CheckButtons<P>({PitchForm(), P{}},
                  {{"Cepstral", "AutoCorrolation", &P::method},
                   {nullptr, "Add audio", &P::addAudio},
                   {nullptr, "Add Intensity", &P::addIntensity},
                   {nullptr, "Add Labels", &P::addLabels},
                   {nullptr, "Add Frequency grid with spacing (Hz)", &P::addFrequencyGrid},
                   {nullptr, "Add Time grid with spacing (ms)", &P::addTimeGrid}});
  CheckButtons<IntensitySettings>({IntensityForm(), {}},
                                  {{"Absolute", "Relative", &IntensitySettings::relative}});
  using R = GenericParameters;
  CheckButtons<R>({GenericForm(), R{}}, {{"ASCII", "Interger binary", &R::binary},
                                         {"8 bit", "16 bit", &R::sixteenBit},
                                         {"Low byte first", "High byte first", &R::highByteFirst}});
}

TEST_F(OptionDialogs, GiveTheSizeOfATransformWithItsIndex) {
  for (const auto& [points, index] : {std::pair{32, 0}, {256, 3}, {4096, 7}}) {
    FftLpcSettings preset;
    preset.sizeIndex = index;
    OptionDialog<FftLpcSettings> dialog(prompts, FftLpcForm(), {preset}, nullptr);
    EXPECT_EQ(FieldOf<QComboBox>(dialog, "Bandwidth (Window Length )")->currentIndex(), index);
    EXPECT_EQ(dialog.Entered().points, points);
    EXPECT_EQ(dialog.Entered().sizeIndex, index);
  }
  for (const auto& [points, index] : {std::pair{32, 1}, {64, 2}, {8192, 9}}) {
    SpectrogramSettings preset;
    preset.points = points;
    preset.sizeIndex = 5;  // the points decide
    OptionDialog<SpectrogramSettings> dialog(prompts, SpectrogramForm(), {preset}, nullptr);
    auto* const list = FieldOf<QComboBox>(dialog, "Bandwidth (Window Length)");
    EXPECT_EQ(list->currentIndex(), index - 1);
    EXPECT_EQ(dialog.Entered().sizeIndex, index);
    list->setCurrentIndex(3);
    EXPECT_EQ(dialog.Entered().points, 256);
  }
  OptionDialog<FftLpcSettings> fft(prompts, FftLpcForm(), {}, nullptr);
  auto* const list = FieldOf<QComboBox>(fft, "Bandwidth (Window Length )");
  EXPECT_EQ(list->count(), 8);
  EXPECT_EQ(list->itemText(0), "  344  Hz  (  32 pts)");
}

TEST_F(OptionDialogs, JudgeOnlyWhatIsInUse) {
  PitchSettings preset = PitchWith(kAutoCorrelation);
  preset.deviationHz = 77.0;
  OptionDialog<PitchSettings> pitch(prompts, PitchForm(), {preset}, nullptr);
  Type(pitch, "Frequency deviation (Hz)", "many");
  EXPECT_EQ(Ok(pitch), "");
  EXPECT_EQ(pitch.Entered().deviationHz, 77.0);
  FieldOf<QRadioButton>(pitch, "Cepstral")->click();
  EXPECT_EQ(Ok(pitch), kAmount);
  EXPECT_FALSE(FieldOf<QLineEdit>(pitch, "Voicing level")->isEnabled());

  OptionDialog<FftLpcSettings> fft(prompts, FftLpcForm(), {}, nullptr);  // Relative
  Type(fft, "Absolute (dB)", "loud");
  FieldOf<QCheckBox>(fft, "Add Power grid with spacing (dB)")->click();
  Type(fft, "Add Power grid with spacing (dB)", "");
  EXPECT_EQ(Ok(fft), "");
  FieldOf<QRadioButton>(fft, "Absolute (dB)")->click();
  EXPECT_EQ(Ok(fft), kDb);
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
  FieldOf<QLineEdit>(typed, "Frequency range (Hz)")->setText("3000");
  EXPECT_EQ(typed.Entered().rangeHz, 3000);
}

// The bytes of a record that holds `settings`.
template <typename S>
Record RecordWith(S DocumentSettings::*group, const S& settings) {
  Settings all;
  all.document.*group = settings;
  return EncodeRecord(all);
}

TEST_F(OptionDialogs, RestoreEveryRowOrTheSizeOfPrintsAlone) {
  // At another reference rate than the recording's.
  const SpectrogramSettings usual = DefaultDocumentSettings(22050.0).spectrogram;
  SpectrogramSettings spectrogram{8192, 9, 700, 9, 0.5, 0, 30, 0, 3, 2, 1, 1, 1, 0, 9, 0, 9};
  OptionDialog<SpectrogramSettings> first(prompts, SpectrogramForm(), {spectrogram, usual, 44100.0},
                                          nullptr);
  EXPECT_EQ(RecordWith(&DocumentSettings::spectrogram, first.Entered()),
            RecordWith(&DocumentSettings::spectrogram, spectrogram));
  PressExtra(first);
  EXPECT_EQ(first.Entered().rangeHz, 11000);
  EXPECT_EQ(RecordWith(&DocumentSettings::spectrogram, first.Entered()),
            RecordWith(&DocumentSettings::spectrogram, usual));

  PitchSettings pitch{99, 9, 900, 90, 800, 80, 0, 9, kCepstral, 9, 9, 9, 9, 0, 9, 1, 1, 1, 3, 2};
  OptionDialog<PitchSettings> second(prompts, PitchForm(), {pitch}, nullptr);
  PressExtra(second);
  const PitchSettings restored = second.Entered();
  EXPECT_EQ(RecordWith(&DocumentSettings::pitch, restored),
            RecordWith(&DocumentSettings::pitch, PitchSettings{}));
  const auto unsaved = [](const PitchSettings& p) {
    return std::tuple(p.addTimeGrid, p.timeGridMs, p.addAudio, p.addIntensity, p.addLabels,
                      p.printWidth, p.printHeight);
  };
  EXPECT_EQ(unsaved(restored), unsaved(PitchSettings{}));

  FftLpcSettings fft{5, 1024, 99, 9, 900, 0, 9, 0, 3, 2, 1, 0, 9, 0, 9, 30, 0};
  OptionDialog<FftLpcSettings> third(prompts, FftLpcForm(), {fft}, nullptr);
  PressExtra(third);
  fft.printWidth = 6.0;
  fft.printHeight = 4.0;
  fft.printUnit = 0;
  EXPECT_EQ(RecordWith(&DocumentSettings::fftLpc, third.Entered()),
            RecordWith(&DocumentSettings::fftLpc, fft));
}

TEST_F(OptionDialogs, ShowFractionsOfKeptDoublesTruncated) {
  const GainSettings gain =
      OptionDialog<GainSettings>(prompts, GainForm(), {{-15.9, 120.7}}, nullptr).Entered();
  EXPECT_EQ(gain.gainPercent, -15.0);
  EXPECT_EQ(gain.reference, 120.0);
}

TEST_F(OptionDialogs, GoToTheRefusedFieldAndGiveEachRowItsMnemonic) {
  OptionDialog<FftLpcSettings> fft(prompts, FftLpcForm(), {}, nullptr);
  fft.show();
  fft.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&fft));
  Type(fft, "Average step size (ms)", "0");
  EXPECT_EQ(Ok(fft), kMs);
  EXPECT_EQ(QApplication::focusWidget(), FieldOf<QLineEdit>(fft, "Average step size (ms)"));

  OptionDialog<SpectrogramSettings> spectrogram(prompts, SpectrogramForm(), {}, nullptr);
  OptionDialog<PitchSettings> pitch(prompts, PitchForm(), {}, nullptr);
  for (QDialog* const dialog : std::initializer_list<QDialog*>{&fft, &spectrogram, &pitch}) {
    QStringList letters;
    const auto note = [&](const QString& text) {
      const auto mark = text.indexOf('&');
      if (mark >= 0) letters << text.mid(mark + 1, 1).toLower();
    };
    for (const QLabel* const label : dialog->findChildren<QLabel*>()) note(label->text());
    for (const auto* const button : dialog->findChildren<QAbstractButton*>()) note(button->text());
    EXPECT_GT(letters.size(), 12) << Typed(dialog->windowTitle());
    EXPECT_EQ(letters.removeDuplicates(), 0) << Typed(dialog->windowTitle());
  }
}

}  // namespace
}  // namespace cantorix
