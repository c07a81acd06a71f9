// analysis_output_test.cpp - pictures of the analysis windows in files, on the clipboard, on paper.
#include <QClipboard>
#include <QFile>
#include <QPrintDialog>
#include <QRegularExpression>
#include <fstream>

#include "desktop/analysis_fixture.h"
#include "desktop/dialog_helpers.h"

namespace cantorix {
namespace {

using ::testing::HasSubstr;

using AnalysisOutputTest = AnalysisDesktopTest;

bool HasWaveform(const QImage& picture) {
  const QColor wanted = StyleOf(PaletteKind::kLight).waveform;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixelColor(x, y) == wanted) return true;
    }
  }
  return false;
}

TEST_F(AnalysisOutputTest, PicturesAreSavedAndCopied) {
  CSonadexView& view = OpenSample();
  view.document().settings.pitch.printWidth = 5.0;
  view.document().settings.pitch.printHeight = 3.0;
  view.document().settings.spectrogram.drawAudio = view.document().settings.pitch.addAudio = 1;
  Perform(Command::kSpectrogramAll);
  Perform(Command::kPitchWindow);
  for (const auto& [kind, size] : {std::pair{WindowKind::kSpectrogram, QSize(6 * 192, 4 * 192)},
                                   {WindowKind::kPitch, QSize(5 * 192, 3 * 192)}}) {
    AnalysisFrame& window = Find(view, kind);
    const QImage saved = SavedFrom(window);
    EXPECT_EQ(saved.size(), size);
    EXPECT_TRUE(HasWaveform(saved));
    window.Perform(WindowCommand::kCopyPicture);
    const FileRequest& asked = prompts.fileRequests.back();
    EXPECT_EQ(asked.proposedName + ", " + asked.defaultExtension + ", " + asked.filter,
              "vowels, png, PNG pictures (*.png)|*.png|Bitmaps (*.bmp)|*.bmp|"
              "SVG drawings (*.svg)|*.svg|PDF documents (*.pdf)|*.pdf|");
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), window.canvas().size() * 2);
    EXPECT_EQ(copied.pixelColor(copied.width() - 2, copied.height() - 2),
              StyleOf(PaletteKind::kLight).background);
    window.Perform(WindowCommand::kCopyReadouts);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), window.canvas().accessibleDescription());
  }
  prompts.WillChooseFile(folder / "missing/picture.png");
  Find(view, WindowKind::kSpectrogram).Perform(WindowCommand::kSavePicture);
  EXPECT_THAT(
      prompts.TakeTranscript(),
      testing::ElementsAre("save: Save Picture", HasSubstr("picture.png could not be saved.")));
}

// The first and the last column of the frame around a plot that row `y` crosses.
std::pair<int, int> EdgesIn(const QImage& picture, int y) {
  const QColor edge = StyleOf(PaletteKind::kLight).frame;
  std::pair<int, int> edges{-1, -1};
  for (int x = 0; x < picture.width(); ++x) {
    if (picture.pixelColor(x, y) != edge) continue;
    if (edges.first < 0) edges.first = x;
    edges.second = x;
  }
  return edges;
}

TEST_F(AnalysisOutputTest, AGroupIsOnePictureWithEqualEdgesAndOneAxis) {
  CSonadexView& view = OpenSample();
  const auto saved = [&] { return Saved([&] { Perform(Command::kSaveGroupPicture); }); };
  const QImage alone = saved();
  EXPECT_EQ(alone.size(), 2 * QSize(view.layout.client.width, view.layout.timeAxis.bottom));
  Perform(Command::kSpectrogramAll);
  Perform(Command::kPitchAll);
  Perform(Command::kPitchWindow);
  Perform(Command::kFftLpc);
  const WindowLayout spectrogram = LayOutWindow(
      {view.layout.client.width, Find(view, WindowKind::kSpectrogram).canvas().height()},
      {.readoutLines = view.layout.client.width >= kOneLineWidth ? 1 : 2});
  const WindowLayout pitch =
      LayOutWindow({view.layout.client.width, Find(view, WindowKind::kPitch).canvas().height()},
                   {.readoutLines = view.layout.client.width >= kOneLineWidth ? 1 : 2});
  const QImage all = saved();
  const int first = view.layout.timeAxis.top;
  const int second = first + spectrogram.bottomAxis.top;
  ASSERT_EQ(all.size(), 2 * QSize(view.layout.client.width, second + pitch.bottomAxis.bottom));
  const auto low = [](const PixelRect& rect) { return 2 * rect.bottom - 7; };
  const auto edges = EdgesIn(all, low(view.layout.pitch));
  EXPECT_GT(edges.second - edges.first, all.width() / 2);
  EXPECT_EQ(EdgesIn(all, 2 * first + low(spectrogram.plot)), edges);
  EXPECT_EQ(EdgesIn(all, 2 * second + low(pitch.plot)), edges);
  EXPECT_EQ(prompts.fileRequests.back().filter,
            "PNG files (*.png)|*.png|SVG files (*.svg)|*.svg|PDF files (*.pdf)|*.pdf|");
}

TEST_F(AnalysisOutputTest, PrintsGoToThePrinterThatWasSetUp) {
  CSonadexView& view = OpenSample();
  Perform(Command::kPitchWindow);
  output.printer().setOutputFormat(QPrinter::PdfFormat);
  output.printer().setOutputFileName(ShownPath(folder / "page.pdf"));
  DialogUser<QPrintDialog> user([](QPrintDialog& dialog) { dialog.accept(); });
  Find(view, WindowKind::kPitch).Perform(WindowCommand::kPrint);
  EXPECT_EQ(user.used, 1);
  EXPECT_TRUE(std::ifstream(folder / "page.pdf").good());
}

// A picture that took over the window's columns would change with its size.
TEST_F(AnalysisOutputTest, FilesAreComputedForTheirOwnSize) {
  CSonadexView& view = OpenSample();
  view.document().settings.fftLpc.printWidth = 12.0;
  Mark(view, 500.0);
  Perform(Command::kFftLpc);
  Perform(Command::kSpectrogramAll);
  for (const WindowKind kind : {WindowKind::kFftLpc, WindowKind::kSpectrogram}) {
    AnalysisFrame& window = Find(view, kind);
    window.resize(800, 600);
    QTest::qWait(400);  // longer than the windows wait for their user to rest
    const QImage ofLarge = SavedFrom(window);
    window.resize(400, 300);
    QTest::qWait(400);
    EXPECT_EQ(SavedFrom(window), ofLarge);
  }
  EXPECT_EQ(SavedFrom(Find(view, WindowKind::kFftLpc)).width(), 12 * 192);
}

// A curve of more points than the picture has pixels would be another one than the window's.
TEST_F(AnalysisOutputTest, ASpectrumHasAPointForEachPixelOfItsPicture) {
  CSonadexView& view = OpenSample();
  Mark(view, 500.0);
  Perform(Command::kFftLpc);
  const std::string path = folder / "picture.svg";
  prompts.WillChooseFile(path);
  Find(view, WindowKind::kFftLpc).Perform(WindowCommand::kSavePicture);
  EXPECT_EQ(prompts.TakeTranscript().size(), 1U);
  QFile file(ShownPath(path));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString drawing = QString::fromUtf8(file.readAll());
  QStringList curve;
  QRegularExpressionMatchIterator lines =
      QRegularExpression(QStringLiteral("points=\"([^\"]*)\"")).globalMatch(drawing);
  while (lines.hasNext()) {
    const QStringList points = lines.next().captured(1).split(' ', Qt::SkipEmptyParts);
    if (points.size() > curve.size()) curve = points;
  }
  ASSERT_GT(curve.size(), 30);
  const auto x = [&curve](qsizetype i) { return curve[i].section(',', 0, 0).toDouble(); };
  for (qsizetype i = 1; i < curve.size(); ++i) ASSERT_NEAR(x(i) - x(i - 1), 1.0, 0.01) << i;
}

}  // namespace
}  // namespace cantorix
