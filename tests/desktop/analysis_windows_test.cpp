// analysis_windows_test.cpp - the windows of spectrum, spectrogram and pitch as a user sees them.
// It is long because it holds every way out of a window beside what it shows.
#include <QClipboard>
#include <QComboBox>
#include <QMdiArea>
#include <QPrintDialog>
#include <QPrinter>
#include <QSpinBox>
#include <cmath>
#include <fstream>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/pitch_view.h"
#include "desktop/desktop_fixture.h"
#include "desktop/dialog_helpers.h"
#include "desktop/paint/spectrogram_image.h"
#include "desktop/paint/spectrogram_painter.h"
#include "desktop/paint/spectrum_painter.h"
#include "desktop/windows/analysis_window_set.h"
#include "desktop/windows/spectrogram_frame.h"
#include "document/wav_fixture.h"
#include "mainview/view_commands.h"

namespace cantorix {
namespace {

using ::testing::HasSubstr;

class AnalysisWindowsTest : public DesktopTest {
 protected:
  AnalysisWindowsTest() {
    windows.Enter({&frame.area(),
                   [this](CSonadexDoc& document) -> DocumentWaveform& {
                     return frame.documents().WaveformOf(document);
                   },
                   [this] { frame.Refresh(); }, [this]() -> QPrinter& { return printer; }});
    frame.SetAnalysisWindows(&windows);
  }
  ~AnalysisWindowsTest() override {
    for (CChildFrame* const child : frame.Frames()) windows.CloseWindowsOf(*child->view());
    frame.SetAnalysisWindows(nullptr);
  }

  // One second of 1000 Hz, then one of 3000 Hz, at 10000 Hz.
  CSonadexView& OpenTones() {
    ByteBuilder data;
    for (int i = 0; i < 20000; ++i) {
      const double hz = i < 10000 ? 1000.0 : 3000.0;
      data.I16({std::lround(8000.0 * std::sin(2.0 * 3.14159265358979 * hz * i / 10000.0))});
    }
    const auto bytes = fixture::Wav({.rateHz = 10000}, data.bytes);
    const std::string path = folder.path() + "/tones.wav";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return Open(path);
  }
  AnalysisFrame& Find(CSonadexView& view, WindowKind kind) {
    AnalysisFrame* const found = windows.Find(view, kind);
    if (found == nullptr) throw std::runtime_error("no such window");
    return *found;
  }
  CSpectrogramView& SpectrogramOf(CSonadexView& view) {
    return dynamic_cast<CSpectrogramView&>(Find(view, WindowKind::kSpectrogram).model());
  }
  void Press(AnalysisFrame& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    frame.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
    QTest::keyClick(&window.canvas(), key, modifiers);
  }
  void Drag(QWidget& canvas, QPoint from, QPoint to) {
    QTest::mousePress(&canvas, Qt::LeftButton, {}, from);
    QTest::mouseMove(&canvas, to);
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, to);
  }
  // As long as the windows wait for the user to rest, and a little more.
  void Rest() { QTest::qWait(400); }

  DesktopServices services{
      app, progress, dialogs, textMeasurer, opener, clipboard, {sound, clock, memory}};
  QPrinter printer;
  AnalysisWindowSet windows{services};
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

TEST_F(AnalysisWindowsTest, ATonesLineIsAtItsRowAndReadsItsFrequency) {
  CSonadexView& view = OpenTones();
  view.document().settings.spectrogram.displayFormants = 0;
  view.document().settings.spectrogram.addFrequencyGrid = 0;
  view.document().settings.spectrogram.addTimeGrid = 0;
  view.document().settings.spectrogram.points = 256;
  Perform(Command::kSpectrogramAll);
  AnalysisFrame& window = Find(view, WindowKind::kSpectrogram);
  const PixelRect& plot = window.model().plot;
  const int width = plot.right - plot.left;
  for (const auto& [part, hz] : {std::pair{0.25, 1000.0}, {0.75, 3000.0}}) {
    const int x = plot.left + static_cast<int>(part * width);
    const int y = DarkestRow(window, x);
    QTest::mouseClick(&window.canvas(), Qt::LeftButton, {}, {x, y});
    EXPECT_NEAR(SpectrogramOf(view).cursorHz, hz, 60.0);
    EXPECT_NEAR(SpectrogramOf(view).cursorMs, part * 2000.0, 2.0 * 2000.0 / width);
  }
}

TEST_F(AnalysisWindowsTest, ATonesPeakIsAtItsColumnInTheSpectrum) {
  CSonadexView& view = OpenTones();
  PlaceMarker(view, 500.0);
  frame.Refresh();
  Perform(Command::kFftLpc);
  AnalysisFrame& window = Find(view, WindowKind::kFftLpc);
  const auto& model = dynamic_cast<CFFTLPCView&>(window.model());
  const PixelRect& plot = window.model().plot;
  ASSERT_EQ(static_cast<int>(model.spectrum().fftDb.size()), plot.right - plot.left);
  const int x = plot.left + (plot.right - plot.left) / 5;  // 1000 of 5000 Hz
  QTest::mouseClick(&window.canvas(), Qt::LeftButton, {}, {x, plot.top + 20});
  EXPECT_NEAR(model.cursorHz, 1000.0, 5000.0 / (plot.right - plot.left));
  EXPECT_NEAR(std::stod(window.model().Readouts()[1].value), model.spectrum().fftMaxDb, 1.0);

  PlaceMarker(view, 1500.0);
  Perform(Command::kFftLpc);
  EXPECT_LT(std::stod(window.model().Readouts()[1].value), model.spectrum().fftMaxDb - 20.0);
  EXPECT_EQ(&Find(view, WindowKind::kFftLpc), &window) << "in the same window";
}

TEST_F(AnalysisWindowsTest, KeysEnterRowsIntoTheOpenLog) {
  CSonadexView& view = OpenSample();
  Perform(Command::kSpectrogramAll);
  PlaceMarker(view, 300.0);
  frame.Refresh();
  Perform(Command::kFftLpc);
  AnalysisFrame& spectrum = Find(view, WindowKind::kFftLpc);
  AnalysisFrame& spectrogram = Find(view, WindowKind::kSpectrogram);
  EXPECT_FALSE(spectrum.actions().ActionOf(WindowCommand::kEnterFormants)->isEnabled());
  Perform(Command::kLogNew);
  EXPECT_TRUE(spectrum.actions().ActionOf(WindowCommand::kEnterFormants)->isEnabled());
  EXPECT_FALSE(spectrum.actions().ActionOf(WindowCommand::kEnterMarker)->isEnabled());

  frame.area().setActiveSubWindow(&spectrum);
  spectrum.canvas().setFocus();
  Press(spectrum, Qt::Key_Right);
  Press(spectrum, Qt::Key_Right, Qt::ShiftModifier);
  Press(spectrum, Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
  Press(spectrum, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  frame.area().setActiveSubWindow(&spectrogram);
  spectrogram.canvas().setFocus();
  Press(spectrogram, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
  const auto& rows = app.log->rows();
  const auto columns = static_cast<std::size_t>(SpectrogramOf(view).spectrogram().columns);
  ASSERT_EQ(rows.size(), 2 + columns);
  EXPECT_EQ(rows[0][1], "FFT/LPC Marker Entry: freq., FFT_dB");
  EXPECT_EQ(rows[0][2], spectrum.model().Readouts()[0].value);
  EXPECT_EQ(rows[0][3], spectrum.model().Readouts()[1].value);
  EXPECT_THAT(rows[1][1], HasSubstr("FFT/LPC Formants Entry"));
  EXPECT_THAT(rows[2][1], HasSubstr("Spec. Formants All Entry"));
  // In the document's time base: the last column begins just before the end of 5.5 seconds.
  view.document().settings.display.timeBase = 1;
  Press(spectrogram, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_NEAR(std::stod(rows.back()[2]), 5.5, 0.2);
  EXPECT_NEAR(std::stod(rows[1 + columns][2]), 5500.0, 100.0);
}

TEST_F(AnalysisWindowsTest, OptionsReachTheirWindowsAndAreUsedAtARest) {
  CSonadexView& view = OpenSample();
  PlaceMarker(view, 300.0);
  frame.Refresh();
  Perform(Command::kFftLpc);
  Perform(Command::kSpectrogramAll);
  auto& spectrum = dynamic_cast<CFFTLPCView&>(Find(view, WindowKind::kFftLpc).model());
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

TEST_F(AnalysisWindowsTest, ASpectrumIsSavedInBlackAndWhiteWhenItsOptionsSaySo) {
  CSonadexView& view = OpenSample();
  PlaceMarker(view, 300.0);
  frame.Refresh();
  Perform(Command::kFftLpc);
  for (const std::int32_t blackWhite : {1, 0}) {
    view.document().settings.fftLpc.blackWhite = blackWhite;
    const std::string path = folder.path() + "/spectrum.png";
    prompts.WillChooseFile(path);
    Find(view, WindowKind::kFftLpc).Perform(WindowCommand::kSavePicture);
    prompts.TakeTranscript();
    const QImage saved(QString::fromStdString(path));
    int coloured = 0;
    for (int y = 0; y < saved.height(); ++y) {
      for (int x = 0; x < saved.width(); ++x) {
        if (saved.pixelColor(x, y).saturation() > 60) ++coloured;
      }
    }
    EXPECT_EQ(coloured == 0, blackWhite != 0) << coloured;
  }
}

TEST_F(AnalysisWindowsTest, AllWindowsTrackTheMouse) {
  CSonadexView& view = OpenTones();
  view.document().settings.display.trackMouse = 1;
  Perform(Command::kSpectrogramAll);
  AnalysisFrame& window = Find(view, WindowKind::kSpectrogram);
  CSpectrogramView& model = SpectrogramOf(view);
  const PixelRect& plot = model.plot;
  Drag(window.canvas(), {plot.left + 100, plot.top + 30}, {plot.left + 300, plot.top + 30});
  EXPECT_TRUE(view.selectionShown());
  EXPECT_NEAR(view.channel().selectionStart.ms, model.selection.startMs, 1e-9);
  EXPECT_NEAR(view.channel().selectionEnd.ms, model.selection.endMs, 2000.0 / 500.0);

  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {400, 200});
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {400, 200});
  EXPECT_TRUE(model.markerSet);
  EXPECT_FALSE(model.selectionShown);
  EXPECT_DOUBLE_EQ(model.cursorMs, view.channel().cursor.ms);
}

TEST_F(AnalysisWindowsTest, AnEditShowsInTheOldPictureUntilItIsUpdated) {
  CSonadexView& view = OpenTones();
  Perform(Command::kSpectrogramAll);
  AnalysisFrame& window = Find(view, WindowKind::kSpectrogram);
  SelectSpan(view, 0.0, 1000.0);
  frame.Refresh();
  Perform(Command::kCut);
  EXPECT_TRUE(window.model().samplesChanged());
  Rest();
  EXPECT_TRUE(window.model().samplesChanged()) << "only on demand";
  window.canvas().setFocus();
  Press(window, Qt::Key_F5);
  EXPECT_FALSE(window.model().samplesChanged());
  EXPECT_EQ(SpectrogramOf(view).spectrogram().range.end, 10000.0);
}

TEST_F(AnalysisWindowsTest, ANewSizeAndRangeAreComputedAtARest) {
  CSonadexView& view = OpenTones();
  Perform(Command::kSpectrogramAll);
  auto& window = dynamic_cast<CSpectrogramFrame&>(Find(view, WindowKind::kSpectrogram));
  const std::int64_t columns = SpectrogramOf(view).spectrogram().columns;
  window.resize(window.width() - 60, window.height());
  window.dynamicRange().setValue(50);
  EXPECT_EQ(SpectrogramOf(view).spectrogram().columns, columns);
  Rest();
  EXPECT_EQ(SpectrogramOf(view).spectrogram().columns, columns - 60);
  EXPECT_EQ(SpectrogramOf(view).dynamicRangeDb(), 50.0);
  EXPECT_EQ(app.host.application.spectrogram.width, window.width()) << "the place is remembered";
}

TEST_F(AnalysisWindowsTest, CommandsInFrontOfAWindowAreThoseOfItsRecording) {
  CSonadexView& sample = OpenSample();
  Perform(Command::kSpectrogramAll);
  CSonadexView& tones = OpenTones();
  Perform(Command::kSpectrogramAll);
  frame.area().setActiveSubWindow(&Find(sample, WindowKind::kSpectrogram));
  EXPECT_EQ(frame.activeView(), &sample);
  frame.area().setActiveSubWindow(&Find(tones, WindowKind::kSpectrogram));
  EXPECT_EQ(frame.activeView(), &tones);
  Perform(Command::kClose);
  QApplication::processEvents();
  EXPECT_EQ(frame.documents().All().size(), 1U);
  EXPECT_EQ(windows.Find(tones, WindowKind::kSpectrogram), nullptr);
  EXPECT_NE(windows.Find(sample, WindowKind::kSpectrogram), nullptr);
}

TEST_F(AnalysisWindowsTest, AWindowThatCouldShowNothingIsNotLeftOpen) {
  CSonadexView& view = OpenTones();
  PlaceMarker(view, 500.0);
  frame.Refresh();
  view.document().settings.fftLpc.rangeHz = 9000;
  Perform(Command::kFftLpc);
  EXPECT_EQ(prompts.TakeTranscript().size(), 1U);
  EXPECT_EQ(windows.Find(view, WindowKind::kFftLpc), nullptr);
}

TEST_F(AnalysisWindowsTest, APitchWindowComesWithAStretchOrWithoutAPane) {
  CSonadexView& view = OpenSample();
  Perform(Command::kPitchAll);
  EXPECT_EQ(windows.Find(view, WindowKind::kPitch), nullptr) << "the main view shows it";
  SelectSpan(view, 500.0, 1500.0);
  frame.Refresh();
  Perform(Command::kPitchSelection);
  const auto& model = dynamic_cast<CPitchView&>(Find(view, WindowKind::kPitch).model());
  EXPECT_NEAR(model.TimeAxis().low, 500.0, 1e-9);
  EXPECT_NEAR(model.TimeAxis().high, 1500.0, 1e-9);
  Find(view, WindowKind::kPitch).close();
  QApplication::processEvents();
  view.document().settings.display.drawPitch = 0;
  Perform(Command::kPitchAll);
  EXPECT_TRUE(Find(view, WindowKind::kPitch).model().computed());
}

TEST_F(AnalysisWindowsTest, PicturesAreSavedAndCopied) {
  CSonadexView& view = OpenSample();
  view.document().settings.spectrogram.drawAudio = 1;
  view.document().settings.spectrogram.drawLabels = 1;
  view.document().settings.pitch.printWidth = 5.0;
  view.document().settings.pitch.printHeight = 3.0;
  Perform(Command::kSpectrogramAll);
  Perform(Command::kPitchWindow);
  for (const WindowKind kind : {WindowKind::kSpectrogram, WindowKind::kPitch}) {
    AnalysisFrame& window = Find(view, kind);
    const std::string path = folder.path() + "/picture.png";
    prompts.WillChooseFile(path);
    window.Perform(WindowCommand::kSavePicture);
    EXPECT_EQ(prompts.TakeTranscript(), std::vector<std::string>{"save: Save Picture"});
    const QImage saved(QString::fromStdString(path));
    EXPECT_EQ(saved.size(),
              kind == WindowKind::kSpectrogram ? QSize(6 * 192, 4 * 192) : QSize(5 * 192, 3 * 192));
    window.Perform(WindowCommand::kCopyPicture);
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), window.canvas().size() * 2);
  }
  AnalysisFrame& window = Find(view, WindowKind::kSpectrogram);
  prompts.WillChooseFile(folder.path() + "/missing/picture.png");
  window.Perform(WindowCommand::kSavePicture);
  EXPECT_THAT(prompts.TakeTranscript()[1], HasSubstr("picture.png could not be saved."));
}

TEST_F(AnalysisWindowsTest, PrintsGoToThePrinterThatWasSetUp) {
  CSonadexView& view = OpenSample();
  Perform(Command::kPitchWindow);
  const std::string path = folder.path() + "/page.pdf";
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(path));
  DialogUser<QPrintDialog> user([](QPrintDialog& dialog) { dialog.accept(); });
  Find(view, WindowKind::kPitch).Perform(WindowCommand::kPrint);
  EXPECT_EQ(user.used, 1);
  EXPECT_TRUE(std::ifstream(path).good());
}

// The file against a picture whose analysis was made for its size; the window's would be coarser.
TEST_F(AnalysisWindowsTest, FilesAreComputedForTheirOwnSize) {
  CSonadexView& view = OpenTones();
  DocumentSettings& settings = view.document().settings;
  settings.fftLpc.printWidth = settings.spectrogram.printWidth = 12.0;
  settings.fftLpc.blackWhite = 0;
  const PixelSize size{1152, 384};
  const auto saved = [&](AnalysisFrame& window) {
    window.resize(400, 300);
    const std::string path = folder.path() + "/own.png";
    prompts.WillChooseFile(path);
    window.Perform(WindowCommand::kSavePicture);
    prompts.TakeTranscript();
    return QImage(QString::fromStdString(path)).convertToFormat(QImage::Format_RGB32);
  };
  const auto painted = [&](const auto& paint) {
    QImage image(2304, 768, QImage::Format_RGB32);
    image.setDevicePixelRatio(2.0);
    QPainter painter(&image);
    paint(painter);
    painter.end();
    image.setDevicePixelRatio(1.0);
    return image;
  };
  PlaceMarker(view, 500.0);
  frame.Refresh();
  Perform(Command::kFftLpc);
  AnalysisFrame& spectrumWindow = Find(view, WindowKind::kFftLpc);
  spectrumWindow.canvas().setFocus();
  Press(spectrumWindow, Qt::Key_Right);
  CFFTLPCView spectrum(view.document());
  const PixelRect plot = SpectrumLayout(size).plot;
  spectrum.AnalyseSpectrum({.position = 5000.0, .selection = {}}, plot.right - plot.left);
  const SpectrumPicture expected{spectrum, size, 0.0};
  EXPECT_EQ(saved(spectrumWindow), painted([&](QPainter& painter) {
              PaintSpectrum(painter, expected, StyleOf(PaletteKind::kLight));
            }));

  Perform(Command::kSpectrogramAll);
  CSpectrogramView levels(view.document());
  const PixelRect pane = SpectrogramLayout(size, view.document()).plot;
  levels.ComputeSpectrogram({0.0, 20000.0},
                            {2 * (pane.right - pane.left), 2 * (pane.bottom - pane.top)});
  const QImage image = SpectrogramImage(levels.spectrogram(), 35.0, ColorMap::kGrey);
  const SpectrogramPicture picture{levels, image, nullptr, size, {}, {}};
  EXPECT_EQ(saved(Find(view, WindowKind::kSpectrogram)), painted([&](QPainter& painter) {
              PaintSpectrogram(painter, picture, StyleOf(PaletteKind::kLight));
            }));
}

// The document's options decide; the window's own switches turn them and keep them in the file.
TEST_F(AnalysisWindowsTest, ThePitchWindowDrawsByThePitchOptions) {
  CSonadexView& view = OpenSample();
  PitchSettings options = view.document().settings.pitch;
  options.addLabels = 0;
  dialogs.pitch.WillGive(options);
  Perform(Command::kPitchOptions);
  Perform(Command::kPitchWindow);
  AnalysisFrame& window = Find(view, WindowKind::kPitch);
  QImage before = window.canvas().grab().toImage();
  for (std::int32_t PitchSettings::*const option :
       {&PitchSettings::addAudio, &PitchSettings::addIntensity, &PitchSettings::addLabels}) {
    const std::int32_t top = window.model().plot.top;
    options.*option = 1;
    dialogs.pitch.WillGive(options);
    Perform(Command::kPitchOptions);
    EXPECT_GT(window.model().plot.top, top) << "a strip above the plot";
    const QImage after = window.canvas().grab().toImage();
    EXPECT_NE(after, before);
    before = after;
  }
  for (const WindowCommand command :
       {WindowCommand::kDrawAudio, WindowCommand::kDrawIntensity, WindowCommand::kDrawLabels}) {
    EXPECT_TRUE(window.actions().ActionOf(command)->isChecked());
    window.Perform(command);
    EXPECT_FALSE(window.actions().ActionOf(command)->isChecked());
  }
  const PitchSettings& kept = view.document().settings.pitch;
  EXPECT_EQ(kept.addAudio + kept.addIntensity + kept.addLabels, 0);
}

}  // namespace
}  // namespace cantorix
