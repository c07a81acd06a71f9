// analysis_windows_test.cpp - the windows of spectrum, spectrogram and pitch as a user sees them;
// long because each is tried with all that they have in common.
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>
#include <cmath>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/pitch_view.h"
#include "desktop/analysis_fixture.h"
#include "desktop/dialog_helpers.h"
#include "desktop/dialog_sheet.h"
#include "desktop/windows/fft_lpc_frame.h"
#include "desktop/windows/spectrogram_frame.h"
#include "document/wav_fixture.h"
#include "settings/local_settings.h"
#include "support/expected_text.h"
#include "support/joined.h"

namespace cantorix {
namespace {

using ::testing::HasSubstr;

class AnalysisWindowsTest : public AnalysisDesktopTest {
 protected:
  // One second of 1000 Hz, then one of 3000 Hz, at 10000 Hz.
  CSonadexView& OpenTones() {
    ByteBuilder data;
    for (int i = 0; i < 20000; ++i) {
      const double hz = i < 10000 ? 1000.0 : 3000.0;
      data.I16({std::lround(8000.0 * std::sin(2.0 * 3.14159265358979 * hz * i / 10000.0))});
    }
    WriteBytes(folder / "tones.wav", fixture::Wav({.rateHz = 10000}, data.bytes));
    return Open(folder / "tones.wav");
  }
  // A third of a second.
  CSonadexView& OpenNoise(int rateHz) {
    ByteBuilder data;
    unsigned seed = 1;
    for (int i = 0; i < rateHz / 3; ++i) {
      seed = seed * 1103515245U + 12345U;
      data.I16({static_cast<long>(seed >> 20U) - 2048});
    }
    WriteBytes(folder / "noise.wav", fixture::Wav({.rateHz = rateHz}, data.bytes));
    return Open(folder / "noise.wav");
  }
  std::string HintIn(const AnalysisFrame& window) {
    const auto* const line = window.findChild<QWidget*>("hint");
    return line->isVisible() ? Typed(line->findChild<QLabel*>()->toolTip()) : "";
  }
  void PressButton(const AnalysisFrame& window, const char* text) {
    for (QToolButton* const button : window.findChildren<QToolButton*>()) {
      if (button->isVisible() && button->text() == QString::fromUtf8(text)) return button->click();
    }
    ADD_FAILURE() << text;
  }
  CSpectrogramView& SpectrogramOf(CSonadexView& view) {
    return dynamic_cast<CSpectrogramView&>(Find(view, WindowKind::kSpectrogram).model());
  }
  // A spectrum at a time of the recording.
  AnalysisFrame& OpenSpectrum(CSonadexView& view, double ms) {
    Mark(view, ms);
    Perform(Command::kFftLpc);
    return Find(view, WindowKind::kFftLpc);
  }
  void Press(AnalysisFrame& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    frame.area().setActiveSubWindow(&window);
    QApplication::setActiveWindow(&frame);
    window.canvas().setFocus();
    QTest::keyClick(&window.canvas(), key, modifiers);
  }
  void Click(QWidget& canvas, QPoint at) { QTest::mouseClick(&canvas, Qt::LeftButton, {}, at); }
  // As long as the windows wait for the user to rest, and a little more.
  void Rest() { QTest::qWait(400); }
};

// The row of the plot, counted from its top, whose pixel in column `x` is the darkest.
int DarkestRow(AnalysisFrame& window, int x) {
  const QImage image = window.canvas().grab().toImage();
  const PixelRect& plot = window.model().plot;
  int darkest = plot.top + 3;
  for (int y = plot.top + 3; y < plot.bottom - 3; ++y) {
    if (qGray(image.pixel(x, y)) < qGray(image.pixel(x, darkest))) darkest = y;
  }
  return darkest;
}

TEST_F(AnalysisWindowsTest, AreAsApproved) {
  frame.resize(1800, 800);
  CSonadexView& view = OpenSample();
  OpenSpectrum(view, 300.0);
  Perform(Command::kSpectrogramAll);
  Perform(Command::kPitchWindow);
  // So that no strip is cut.
  for (const auto& [kind, window] : windows.WindowsOf(view)) window->resize(1700, 400);
  QApplication::processEvents();
  std::string sheets;
  for (const WindowKind kind :
       {WindowKind::kFftLpc, WindowKind::kSpectrogram, WindowKind::kPitch}) {
    sheets += SheetOf(Find(view, kind));
  }
  ExpectText("desktop/expected/AnalysisWindows.txt", sheets);
}

TEST_F(AnalysisWindowsTest, ATonesLineIsAtItsRowAndReadsItsFrequency) {
  CSonadexView& view = OpenTones();
  SpectrogramSettings& settings = view.document().settings.spectrogram;
  settings.displayFormants = settings.addFrequencyGrid = settings.addTimeGrid = 0;
  settings.points = 256;
  Perform(Command::kSpectrogramAll);
  AnalysisFrame& window = Find(view, WindowKind::kSpectrogram);
  const PixelRect& plot = window.model().plot;
  const int width = plot.right - plot.left;
  for (const auto& [part, hz] : {std::pair{0.25, 1000.0}, {0.75, 3000.0}}) {
    const int x = plot.left + static_cast<int>(part * width);
    Click(window.canvas(), {x, DarkestRow(window, x)});
    EXPECT_NEAR(SpectrogramOf(view).cursorHz, hz, 60.0);
    EXPECT_NEAR(SpectrogramOf(view).cursorMs, part * 2000.0, 2.0 * 2000.0 / width);
  }
}

// As on a screen with two pixels for each logical one.
struct FineCanvas : AnalysisCanvas {
  using AnalysisCanvas::AnalysisCanvas;
  int metric(PaintDeviceMetric metric) const override {
    if (metric == PdmDevicePixelRatio) return 2;
    if (metric == PdmDevicePixelRatioScaled) return static_cast<int>(2 * devicePixelRatioFScale());
    return AnalysisCanvas::metric(metric);
  }
};

TEST_F(AnalysisWindowsTest, ASpectrogramHasALevelForEachPixelOfTheScreen) {
  CSonadexView& view = OpenSample();
  Perform(Command::kSpectrogramAll);
  AnalysisFrame& window = Find(view, WindowKind::kSpectrogram);
  const PixelRect& plot = window.model().plot;
  const Spectrogram& coarse = SpectrogramOf(view).spectrogram();
  EXPECT_EQ(coarse.columns, plot.right - plot.left);
  EXPECT_EQ(coarse.rows, plot.bottom - plot.top);
  CSpectrogramView model(view.document());
  SpectrogramWindowPicture picture(model, frame.documents().WaveformOf(view.document()));
  FineCanvas canvas(
      model, picture, [](const auto& action) { action(); }, nullptr);
  canvas.resize(window.canvas().size());
  canvas.LayOut();
  ASSERT_TRUE(model.Show(coarse.range));
  EXPECT_EQ(model.spectrogram().columns, 2 * coarse.columns);
  EXPECT_EQ(model.spectrogram().rows, 2 * coarse.rows);
}

TEST_F(AnalysisWindowsTest, KeysEnterRowsIntoTheOpenLog) {
  CSonadexView& view = OpenSample();
  Perform(Command::kSpectrogramAll);
  AnalysisFrame& spectrum = OpenSpectrum(view, 300.0);
  AnalysisFrame& spectrogram = Find(view, WindowKind::kSpectrogram);
  const auto enabled = [&](WindowCommand command) {
    return spectrum.actions().ActionOf(command)->isEnabled();
  };
  EXPECT_FALSE(enabled(WindowCommand::kEnterFormants));
  Perform(Command::kLogNew);
  EXPECT_TRUE(enabled(WindowCommand::kEnterFormants));
  EXPECT_FALSE(enabled(WindowCommand::kEnterMarker));

  const auto enter = Qt::ControlModifier | Qt::ShiftModifier;
  Press(spectrum, Qt::Key_Right);
  Press(spectrum, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_NEAR(dynamic_cast<CFFTLPCView&>(spectrum.model()).cursorHz,
              10 * 5000.0 / (spectrum.model().plot.right - spectrum.model().plot.left), 1e-6);
  Press(spectrum, Qt::Key_M, enter);
  const CSpectrogramView& levels = SpectrogramOf(view);
  for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down}) {
    Press(spectrogram, key, Qt::ShiftModifier);
  }
  const double pixelHz = levels.spectrogram().maxHz / (levels.plot.bottom - levels.plot.top);
  EXPECT_NEAR(levels.cursorHz, 10.0 * pixelHz, pixelHz);
  Press(spectrogram, Qt::Key_A, enter);
  const auto& rows = app.log->rows();
  ASSERT_EQ(rows.size(), 1 + static_cast<std::size_t>(levels.spectrogram().columns));
  EXPECT_EQ(rows[0][1], "FFT/LPC Marker Entry: freq., FFT_dB");
  EXPECT_EQ(rows[0][2], spectrum.model().Readouts()[0].value);
  EXPECT_THAT(rows[1][1], HasSubstr("Spec. Formants All Entry"));
}

TEST_F(AnalysisWindowsTest, OptionsReachTheirWindowsAndAreUsedAtARest) {
  CSonadexView& view = OpenSample();
  auto& spectrum = dynamic_cast<CFFTLPCView&>(OpenSpectrum(view, 300.0).model());
  Perform(Command::kSpectrogramAll);
  FftLpcSettings fft = view.document().settings.fftLpc;
  fft.rangeHz = 4000;
  dialogs.fftLpc.WillGive(fft);
  Perform(Command::kFftLpcOptions);
  SpectrogramSettings levels = view.document().settings.spectrogram;
  levels.rangeHz = 3000;
  dialogs.spectrogram.WillGive(levels);
  Perform(Command::kSpectrogramOptions);
  EXPECT_EQ(dialogs.spectrogramDefaults.rangeHz, 5000) << "of the reference rate";
  EXPECT_TRUE(spectrum.UpdateDue());
  EXPECT_TRUE(SpectrogramOf(view).UpdateDue());
  Rest();
  EXPECT_EQ(spectrum.spectrum().maxHz, 4000.0);
  EXPECT_EQ(SpectrogramOf(view).spectrogram().maxHz, 3000.0);
}

TEST_F(AnalysisWindowsTest, AllWindowsTrackTheMouse) {
  CSonadexView& view = OpenTones();
  view.document().settings.display.trackMouse = 1;
  Perform(Command::kSpectrogramAll);
  QWidget& canvas = Find(view, WindowKind::kSpectrogram).canvas();
  CSpectrogramView& model = SpectrogramOf(view);
  const QPoint from(model.plot.left + 100, model.plot.top + 30);
  QTest::mousePress(&canvas, Qt::LeftButton, {}, from);
  QTest::mouseMove(&canvas, from + QPoint(200, 0));
  QTest::mouseRelease(&canvas, Qt::LeftButton, {}, from + QPoint(200, 0));
  EXPECT_TRUE(view.selectionShown());
  EXPECT_NEAR(view.channel().selectionStart.ms, model.selection.startMs, 1e-9);
  EXPECT_NEAR(view.channel().selectionEnd.ms, model.selection.endMs, 2000.0 / 500.0);

  // By way of the main view, other windows follow a window as well.
  Perform(Command::kPitchWindow);
  const auto& pitch = dynamic_cast<CPitchView&>(Find(view, WindowKind::kPitch).model());
  for (int i = 0; i < 2; ++i) QTest::mouseClick(&canvas, Qt::LeftButton, {}, from);
  EXPECT_TRUE(pitch.markerSet);
  EXPECT_DOUBLE_EQ(pitch.cursorMs, model.cursorMs);

  Click(Picture(), {400, 200});
  Click(Picture(), {400, 200});
  EXPECT_TRUE(model.markerSet);
  EXPECT_FALSE(model.selectionShown);
  EXPECT_DOUBLE_EQ(model.cursorMs, view.channel().cursor.ms);
}

TEST_F(AnalysisWindowsTest, AnEditShowsInTheOldPictureUntilItIsUpdated) {
  CSonadexView& view = OpenTones();
  Perform(Command::kSpectrogramAll);
  AnalysisFrame& window = Find(view, WindowKind::kSpectrogram);
  Select(view, 0.0, 1000.0);
  Perform(Command::kCut);
  Rest();
  EXPECT_TRUE(window.model().samplesChanged()) << "only on demand";
  EXPECT_THAT(SheetOf(window),
              HasSubstr("\"The recording has changed since this was computed. Press Update (F5) to "
                        "compute again.\""));
  const EmptyNote* const note = window.canvas().findChild<EmptyNote*>();
  EXPECT_NEAR(note->geometry().center().x(), window.canvas().width() / 2.0, 2.0);
  EXPECT_EQ(note->y(), 12);
  EXPECT_LT(note->height(), 50) << "the button stands beside the line";
  Press(window, Qt::Key_F5);
  EXPECT_FALSE(note->isVisible());
  EXPECT_FALSE(window.model().samplesChanged());
  EXPECT_EQ(SpectrogramOf(view).spectrogram().range.end, 10000.0);
}

TEST_F(AnalysisWindowsTest, NotesOfferWhatMendsThem) {
  CSonadexView& view = OpenTones();
  Perform(Command::kPitchWindow);
  AnalysisFrame& window = Find(view, WindowKind::kPitch);
  const auto* const note = window.canvas().findChild<EmptyNote*>();
  const auto press = [&](const char* text) {
    for (QPushButton* const button : note->findChildren<QPushButton*>()) {
      if (button->isVisible() && Typed(button->text()) == text) return button->click();
    }
    ADD_FAILURE() << text;
  };
  EXPECT_EQ(Typed(note->text()), "No voiced stretch between 50 and 500 Hz found. Options\u2026");
  PitchSettings wider = view.document().settings.pitch;
  wider.highHz = 1200.0;
  dialogs.pitch.WillGive(wider);
  press("Options...");
  EXPECT_EQ(view.document().settings.pitch.highHz, 1200.0);
  view.pitch = {};
  window.Refresh();
  QApplication::processEvents();
  EXPECT_EQ(Typed(note->text()), "No pitch yet. Pitch All (Ctrl+L) computes it.");
  press("Pitch All");
  EXPECT_TRUE(window.model().computed());
}

TEST_F(AnalysisWindowsTest, ANewSizeAndRangeAreComputedAtARest) {
  CSonadexView& view = OpenTones();
  Perform(Command::kSpectrogramAll);
  auto& window = dynamic_cast<CSpectrogramFrame&>(Find(view, WindowKind::kSpectrogram));
  const std::int64_t columns = SpectrogramOf(view).spectrogram().columns;
  const QImage grey = window.canvas().grab().toImage();
  window.colors().setCurrentIndex(2);
  EXPECT_NE(window.canvas().grab().toImage(), grey) << "Ember";
  window.resize(window.width() - 60, window.height());
  window.dynamicRange().setValue(50);
  SpectrogramOf(view).press.held = true;
  Rest();
  EXPECT_EQ(SpectrogramOf(view).spectrogram().columns, columns) << "no rest";
  SpectrogramOf(view).press.held = false;
  Rest();
  EXPECT_EQ(SpectrogramOf(view).spectrogram().columns, columns - 60);
  EXPECT_EQ(SpectrogramOf(view).dynamicRangeDb(), 50.0);
  EXPECT_EQ(app.host.application.spectrogram.width, window.width()) << "the place is remembered";
}

// What fits this recording would mislead in the next one, so the file keeps what it has.
TEST_F(AnalysisWindowsTest, SayWhatIsLowForTheRateUntilItIsUsedOrClosed) {
  CSonadexView& view = OpenNoise(44100);
  const DocumentSettings& settings = view.document().settings;
  Perform(Command::kSpectrogramAll);
  AnalysisFrame& spectrogram = Find(view, WindowKind::kSpectrogram);
  AnalysisFrame& spectrum = OpenSpectrum(view, 100.0);
  EXPECT_EQ(HintIn(spectrogram),
            "LPC order 14 is low for 44100 Hz (usual: 46). Bandwidth 689 Hz (64 points) hides "
            "formants (usual: 172 Hz, 256 points).");
  EXPECT_EQ(HintIn(spectrum), "LPC order 14 is low for 44100 Hz (usual: 46).");
  const QLabel& sentence = *spectrogram.findChild<QWidget*>("hint")->findChild<QLabel*>();
  for (int width = 1000; width <= 2400; width += 50) {
    spectrogram.resize(width, 400);
    spectrogram.Refresh();
    QApplication::processEvents();
    EXPECT_GE(sentence.width(), sentence.sizeHint().width()) << "cut at " << width;
  }
  PressButton(spectrogram, "Use both");
  EXPECT_EQ(HintIn(spectrogram) + HintIn(spectrum), "") << "in all windows of the recording";
  EXPECT_EQ(settings.fftLpc.lpcOrder, 46);
  Rest();
  EXPECT_EQ(Joined(settings.spectrogram.lpcOrder, settings.spectrogram.points,
                   settings.spectrogram.sizeIndex, spectrogram.model().UpdateDue()),
            "46 256 4 0");
  const DocumentSettings kept = view.document().localSettings.ForFile(settings);
  EXPECT_EQ(Joined(kept.spectrogram.lpcOrder, kept.spectrogram.points, kept.fftLpc.lpcOrder),
            "14 64 14");

  dynamic_cast<CSpectrogramFrame&>(spectrogram).lpcOrder().setValue(20);
  EXPECT_EQ(HintIn(spectrogram), "LPC order 20 is low for 44100 Hz (usual: 46).");
  PressButton(spectrogram, "\u00d7");
  EXPECT_EQ(HintIn(spectrogram), "");
  dynamic_cast<CFFTLPCFrame&>(spectrum).lpcOrder().setValue(20);
  EXPECT_EQ(HintIn(spectrum), "") << "closed for the recording";
}

TEST_F(AnalysisWindowsTest, TakeFromTheirStripsWhatIsTypedAfterARest) {
  CSonadexView& view = OpenNoise(44100);
  Perform(Command::kSpectrogramAll);
  auto& window = dynamic_cast<CSpectrogramFrame&>(Find(view, WindowKind::kSpectrogram));
  const auto shown = [&] {
    const SpectrogramSettings& now = view.document().settings.spectrogram;
    return Joined(now.points, now.lpcOrder, now.rangeHz, now.dynamicRangeDb);
  };
  window.sizes().setCurrentIndex(4);
  window.frequencyRange().setValue(8000);
  window.dynamicRange().setValue(60);
  QSpinBox& order = window.lpcOrder();
  order.selectAll();
  QTest::keyClicks(order.findChild<QLineEdit*>(), "140");
  EXPECT_EQ(shown(), "512 14 8000 60") << "140 is being typed";
  EXPECT_EQ(HintIn(window), "") << "never while a field is edited";
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == "512 140 8000 60"; })) << shown();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window.model().UpdateDue(); }));
}

TEST_F(AnalysisWindowsTest, CommandsInFrontOfAWindowAreThoseOfItsRecording) {
  CSonadexView& sample = OpenSample();
  Perform(Command::kSpectrogramAll);
  CSonadexView& tones = OpenTones();
  Perform(Command::kSpectrogramAll);
  for (CSonadexView* const view : {&sample, &tones}) {
    frame.area().setActiveSubWindow(&Find(*view, WindowKind::kSpectrogram));
    EXPECT_EQ(frame.activeView(), view);
  }
  Perform(Command::kClose);
  EXPECT_EQ(frame.documents().All().size(), 1U);
  EXPECT_EQ(windows.Find(tones, WindowKind::kSpectrogram), nullptr);
  EXPECT_NE(windows.Find(sample, WindowKind::kSpectrogram), nullptr);
}

TEST_F(AnalysisWindowsTest, AWindowThatCouldShowNothingIsNotLeftOpen) {
  CSonadexView& view = OpenTones();
  view.document().settings.fftLpc.rangeHz = 9000;
  Mark(view, 500.0);
  Perform(Command::kFftLpc);
  EXPECT_EQ(prompts.TakeTranscript().size(), 1U);
  EXPECT_EQ(windows.Find(view, WindowKind::kFftLpc), nullptr);
}

TEST_F(AnalysisWindowsTest, AWindowMayCloseUnderItsContextMenu) {
  CSonadexView& view = OpenSample();
  Perform(Command::kSpectrogramAll);
  AnalysisCanvas& canvas = Find(view, WindowKind::kSpectrogram).canvas();
  // The key comes while the menu is up; were it waited for, only this would end it.
  QTimer::singleShot(0, [&] { Find(view, WindowKind::kSpectrogram).close(); });
  QContextMenuEvent asked(QContextMenuEvent::Mouse, {50, 50}, canvas.mapToGlobal(QPoint(50, 50)));
  QApplication::sendEvent(&canvas, &asked);
  const auto* const menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->actions(), canvas.actions());
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(windows.Find(view, WindowKind::kSpectrogram), nullptr);
}

TEST_F(AnalysisWindowsTest, APitchWindowComesWithAStretchOrWithoutAPane) {
  CSonadexView& view = OpenSample();
  Perform(Command::kPitchAll);
  EXPECT_EQ(windows.Find(view, WindowKind::kPitch), nullptr) << "the main view shows it";
  Select(view, 500.0, 1500.0);
  Perform(Command::kPitchSelection);
  const auto& model = dynamic_cast<CPitchView&>(Find(view, WindowKind::kPitch).model());
  EXPECT_NEAR(model.TimeAxis().low, 500.0, 1e-9);
  EXPECT_NEAR(model.TimeAxis().high, 1500.0, 1e-9);
  AnalysisFrame& window = Find(view, WindowKind::kPitch);
  const QImage whole = window.canvas().grab().toImage();
  Select(view, 0.0, 2000.0);
  EXPECT_EQ(window.canvas().grab().toImage(), whole) << "a selection that would colour everything";
  Select(view, 600.0, 1500.0);
  EXPECT_NE(window.canvas().grab().toImage(), whole);
  Find(view, WindowKind::kPitch).close();
  QApplication::processEvents();
  view.document().settings.display.drawPitch = 0;
  Perform(Command::kPitchAll);
  EXPECT_TRUE(Find(view, WindowKind::kPitch).model().computed());
}

}  // namespace
}  // namespace cantorix
