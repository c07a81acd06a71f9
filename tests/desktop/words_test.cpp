// words_test.cpp - the program in German: what is translated, what keeps its words, and that files
// do not change with the language.
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QToolButton>
#include <QTranslator>

#include "desktop/analysis_fixture.h"
#include "desktop/paint/words.h"
#include "desktop/windows/spectrogram_frame.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

void ForgetLanguage() {
  for (QTranslator* const translator : qApp->findChildren<QTranslator*>()) delete translator;
}

// A base, so that it is there before the windows.
struct German {
  German() { UseLanguage({"de-DE", "de"}); }
  ~German() { ForgetLanguage(); }
};

class Words : public German, public AnalysisDesktopTest {
 protected:
  // What is too narrow for its text.
  static void ExpectNothingCut(const QWidget& window) {
    for (const QWidget* const part : window.findChildren<QWidget*>()) {
      const auto* const label = qobject_cast<const QLabel*>(part);
      const auto* const button = qobject_cast<const QAbstractButton*>(part);
      const QString text = label != nullptr    ? label->text()
                           : button != nullptr ? button->text()
                                               : QString();
      if (!part->isVisible() || text.isEmpty()) continue;
      if (button != nullptr && !button->icon().isNull()) continue;
      if (label != nullptr && label->wordWrap()) continue;
      if (part->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) continue;
      EXPECT_GE(part->width(), part->minimumSizeHint().width()) << Typed(text);
      EXPECT_TRUE(part->parentWidget()->rect().contains(part->geometry())) << Typed(text);
    }
  }
};

TEST(WordsOf, TheFirstLanguageThatIsThereAreTaken) {
  const auto spoken = [](const QStringList& wanted) {
    UseLanguage(wanted);
    const QString text = Tr("Statistics");
    ForgetLanguage();
    return Typed(text);
  };
  EXPECT_EQ(spoken({}), "Statistics");
  EXPECT_EQ(spoken({"de"}), "Statistik");
  EXPECT_EQ(spoken({"fr-FR", "de-AT", "en"}), "Statistik");
  EXPECT_EQ(spoken({"en-GB", "de"}), "Statistics") << "needs no file";
  EXPECT_EQ(spoken({"C", "de"}), "Statistics");
}

TEST(WordsOf, LibrariesAreTranslatedAroundTheirValues) {
  const German german;
  const struct {
    const char *text, *german;
  } kRows[] = {
      {"select a stretch first", "zuerst einen Abschnitt auswählen"},
      {"Save the selection as a recording of its own (select a stretch first)",
       "Die Auswahl als eigene Aufnahme speichern (zuerst einen Abschnitt auswählen)"},
      {"LPC order 14 is low for 44100 Hz (usual: 46). Bandwidth 689 Hz (64 points) hides formants "
       "(usual: 172 Hz, 256 points).",
       "LPC-Ordnung 14 ist niedrig für 44100 Hz (üblich: 46). Bandbreite 689 Hz (64 Punkte) "
       "verdeckt Formanten (üblich: 172 Hz, 256 Punkte)."},
      {"Use 46", "46 nehmen"},
      {"1234.5 ms  amp -5321  pitch 203.7 Hz  int \u2013  'front'",
       "1234.5 ms  Amp. -5321  Tonhöhe 203.7 Hz  Int. \u2013  'front'"},
      {"1234.5 ms  1830 Hz  \u221223.4 dB  F1 512  F2 \u2013",
       "1234.5 ms  1830 Hz  \u221223.4 dB  F1 512  F2 \u2013"},
      {"channel 1 of 2 \u00b7 44100 Hz \u00b7 7.1 s \u00b7 shown 0.0 s \u2013 7.1 s",
       "Kanal 1 von 2 \u00b7 44100 Hz \u00b7 7.1 s \u00b7 gezeigt 0.0 s \u2013 7.1 s"},
      {"mean of 10.0 ms \u2013 20.5 ms", "Mittel von 10.0 ms \u2013 20.5 ms"},
      {"Type a label for 'select a stretch first' at 12.0 ms",
       "Ein Etikett für 'select a stretch first' bei 12.0 ms tippen"},
      {"A tier without a name is called \"2 words\".", "Eine Ebene ohne Namen heißt \"2 words\"."},
      {"No label matches 'x' (14 hidden).", "Kein Etikett passt zu 'x' (14 verborgen)."},
      {"Recording...   press mouse to stop   1:02   2:31:10 left on the disk",
       "Recording...   press mouse to stop   1:02   noch 2:31:10 auf dem Datenträger"},
      {"Peak -\u221e dB     RMS -20.1 dB\nClipped 2 times, first at 0.4 s",
       "Spitze -\u221e dB     RMS -20.1 dB\n2 mal übersteuert, zuerst bei 0.4 s"},
      {"/home/open a log first/a.wav could not be saved. Another program is using it.",
       "/home/open a log first/a.wav could not be saved. Ein anderes Programm benutzt sie."},
      {"Please select a calculation low range greater than 50 Hz",
       "Please select a calculation low range greater than 50 Hz"},
  };
  for (const auto& row : kRows) EXPECT_EQ(Typed(Translated(row.text)), row.german);
  EXPECT_EQ(Typed(TranslatedSign("voiced dental plosive")), "stimmhafter dentaler Plosiv");
  EXPECT_EQ(Typed(TranslatedSign("Close")), "Geschl.") << "of the chart, not of the menu";
}

TEST_F(Words, AreGermanWhereTheyAreOursAndKeptWhereTheyAreStated) {
  frame.resize(1280, 680);
  CSonadexView& view = OpenSample();
  Mark(view, 300.0);
  for (const Command command :
       {Command::kPitchWindow, Command::kSpectrogramAll, Command::kFftLpc}) {
    Perform(command);
  }
  Select(view, 200.0, 700.0);
  QString lines;
  for (const QAction* const menu : frame.menuBar()->actions()) {
    lines += "== " + menu->text() + '\n';
    for (const QAction* const entry : menu->menu()->actions()) {
      const bool isPath = entry->statusTip().startsWith('/');
      if (entry->isSeparator() || isPath) continue;
      lines += entry->text() + " | " + entry->statusTip() + '\n';
    }
  }
  for (const WindowKind kind :
       {WindowKind::kSpectrogram, WindowKind::kPitch, WindowKind::kFftLpc}) {
    AnalysisFrame& window = Find(view, kind);
    lines += "== " + window.windowTitle() + '\n';
    for (const QAction* const entry : window.canvas().actions()) {
      if (!entry->isSeparator()) lines += entry->text() + " | " + entry->toolTip() + '\n';
    }
    ExpectNothingCut(window);
  }
  ExpectText("desktop/expected/German.txt", Typed(lines));
}

TEST_F(Words, OfFilesAreThoseOfEveryLanguage) {
  CSonadexView& view = OpenSample();
  Perform(Command::kPitchWindow);
  AnalysisFrame& window = Find(view, WindowKind::kPitch);
  window.model().Press(300, 60);
  const QImage german = SavedFrom(window);
  const QImage germanScreen = window.canvas().grab().toImage();
  ForgetLanguage();
  EXPECT_EQ(SavedFrom(window), german);
  EXPECT_NE(window.canvas().grab().toImage(), germanScreen);
}

}  // namespace
}  // namespace cantorix
