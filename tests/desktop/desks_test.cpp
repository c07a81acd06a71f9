// desks_test.cpp - the windows of a recording as a group: where they lie, what lies above what.
#include "desktop/desks.h"

#include <QLabel>
#include <QMdiArea>
#include <QStatusBar>
#include <filesystem>

#include "desktop/analysis_fixture.h"

namespace cantorix {
namespace {

using testing::ElementsAre;

class DesksTest : public AnalysisDesktopTest {
 protected:
  CSonadexView& OpenCopy(const std::string& name) {
    std::filesystem::copy_file(SamplePath(), folder / name);
    return Open(folder / name);
  }
  AnalysisFrame& Show(CSonadexView& view, WindowKind kind) {
    windows.Open(view, {kind, Stretch::kWindow});
    QApplication::processEvents();
    return Find(view, kind);
  }
  CChildFrame& MainOf(const CSonadexView& view) {
    for (CChildFrame* const child : frame.Frames()) {
      if (child->view() == &view) return *child;
    }
    throw std::runtime_error("no such view");
  }
  // Once everything has settled, the windows from the lowest to the highest: "a", and "a s", "a p",
  // "a f" for its analyses.
  std::vector<std::string> Stack() {
    QApplication::processEvents();
    std::vector<std::string> names;
    for (QMdiSubWindow* const window : frame.area().subWindowList(QMdiArea::StackingOrder)) {
      if (window->isHidden()) continue;
      const auto* const analysis = dynamic_cast<AnalysisFrame*>(window);
      const CSonadexView* const view = analysis != nullptr
                                           ? windows.ViewOf(*window)
                                           : dynamic_cast<CChildFrame*>(window)->view();
      std::string name = view->document().title().substr(0, 1);
      if (analysis != nullptr)
        name += ' ' + analysis->windowTitle().left(1).toLower().toStdString();
      names.push_back(name);
    }
    return names;
  }
  // The first pixel column of a plot and the first one behind it, in the area.
  std::pair<int, int> PlotOf(AnalysisFrame& window) {
    const int left = window.canvas().mapTo(&frame.area(), QPoint(0, 0)).x();
    return {left + window.model().plot.left, left + window.model().plot.right};
  }
  std::pair<int, int> PlotOf(CSonadexView& view) {
    const int left = MainOf(view).area().picture().mapTo(&frame.area(), QPoint(0, 0)).x();
    return {left + view.layout.timeAxis.left, left + view.layout.timeAxis.right};
  }
  QRect Area() { return frame.area().viewport()->rect(); }
};

TEST_F(DesksTest, TheFirstAnalysisArrangesAndTheLastOneLeavesThePlaceAgain) {
  frame.resize(1300, 950);
  CSonadexView& view = OpenCopy("a.qrv");
  CChildFrame& main = MainOf(view);
  EXPECT_EQ(main.geometry(), Area());
  AnalysisFrame& spectrogram = Show(view, WindowKind::kSpectrogram);
  AnalysisFrame& pitch = Show(view, WindowKind::kPitch);
  AnalysisFrame& spectrum = Show(view, WindowKind::kFftLpc);
  const std::vector<DeskWindow*> all{&main, &spectrogram, &pitch, &spectrum};
  int covered = 0;
  for (DeskWindow* const window : all) {
    EXPECT_TRUE(Area().contains(window->geometry()));
    covered += window->width() * window->height();
  }
  EXPECT_EQ(covered, Area().width() * Area().height()) << "nothing covered, nothing left over";
  EXPECT_EQ(PlotOf(spectrogram), PlotOf(view));
  EXPECT_EQ(PlotOf(pitch), PlotOf(view));
  frame.resize(1200, 900);
  QApplication::processEvents();
  EXPECT_EQ(spectrum.geometry().topRight(), Area().topRight());
  EXPECT_EQ(pitch.geometry().bottomLeft(), Area().bottomLeft());

  const int height = spectrogram.height();
  for (AnalysisFrame* const window : {&pitch, &spectrum, &spectrogram}) {
    window->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (window == &pitch) {
      EXPECT_GT(spectrogram.height(), height);
    }
  }
  EXPECT_EQ(main.geometry(), Area());
  EXPECT_EQ(app.host.application.mainView.width, 0);
  EXPECT_EQ(app.host.application.spectrogram.width, 0);
}

TEST_F(DesksTest, AMaximisedMainViewIsMaximisedAgain) {
  CSonadexView& view = OpenCopy("a.qrv");
  MainOf(view).resize(500, 400);
  EXPECT_EQ(app.host.application.mainView.width, 500);
  MainOf(view).showMaximized();
  EXPECT_EQ(app.host.application.mainView.width, 0) << "the next one has all of the area, too";
  AnalysisFrame& window = Show(view, WindowKind::kSpectrogram);
  EXPECT_FALSE(MainOf(view).isMaximized());
  window.close();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(MainOf(view).isMaximized());
}

TEST_F(DesksTest, WhoMovesAWindowIsFreeUntilItIsArrangedAgain) {
  CSonadexView& view = OpenCopy("a.qrv");
  AnalysisFrame& spectrogram = Show(view, WindowKind::kSpectrogram);
  const QRect arranged = spectrogram.geometry();
  const QRect chosen(10, 20, 700, 300);
  spectrogram.setGeometry(chosen);
  const QRect main = MainOf(view).geometry();
  AnalysisFrame& spectrum = Show(view, WindowKind::kFftLpc);
  EXPECT_EQ(spectrogram.geometry(), chosen);
  EXPECT_EQ(MainOf(view).geometry(), main);
  EXPECT_FALSE(spectrum.geometry().intersects(main)) << "below, where there is room";
  EXPECT_EQ(app.host.application.spectrogram.height, 300);
  spectrum.close();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(spectrogram.geometry(), chosen);

  Perform(Command::kArrangeAnalyses);
  EXPECT_EQ(spectrogram.geometry(), arranged);
  EXPECT_EQ(app.host.application.spectrogram.width, 0);

  CSonadexView& other = OpenCopy("b.qrv");
  app.host.application.spectrogram = {10, 20, 700, 300};
  EXPECT_EQ(Show(other, WindowKind::kSpectrogram).geometry(), chosen) << "of an earlier run";
  EXPECT_EQ(MainOf(other).geometry(), Area());
}

TEST_F(DesksTest, AGroupLiesAboveAllOthersAndItsAnalysesAboveTheRecording) {
  CSonadexView& a = OpenCopy("a.qrv");
  AnalysisFrame& spectrogram = Show(a, WindowKind::kSpectrogram);
  Show(a, WindowKind::kFftLpc);
  CSonadexView& b = OpenCopy("b.qrv");
  Show(b, WindowKind::kPitch);
  EXPECT_THAT(Stack(), ElementsAre("a", "a s", "a f", "b", "b p"));
  frame.area().setActiveSubWindow(&MainOf(a));
  EXPECT_THAT(Stack(), ElementsAre("b", "b p", "a", "a s", "a f"));
  EXPECT_EQ(frame.windowTitle(), "Cantorix - [a.qrv[*]]");
  a.document().SetModified(true);
  frame.area().setActiveSubWindow(&spectrogram);
  EXPECT_THAT(Stack(), ElementsAre("b", "b p", "a", "a f", "a s"));
  EXPECT_EQ(frame.windowTitle(), "Cantorix - [" + spectrogram.windowTitle() + "][*]");
  EXPECT_TRUE(frame.isWindowModified());
  a.document().SetModified(false);

  Perform(Command::kNextRecording);
  EXPECT_EQ(frame.activeView(), &b);
  EXPECT_EQ(frame.area().currentSubWindow(), &Find(b, WindowKind::kPitch)) << "the last one used";
  EXPECT_THAT(Stack(), ElementsAre("a", "a f", "a s", "b", "b p"));
  Perform(Command::kNextRecording);
  EXPECT_EQ(frame.area().currentSubWindow(), &spectrogram);
  Perform(Command::kNextWindow);
  EXPECT_EQ(frame.area().currentSubWindow(), &Find(a, WindowKind::kFftLpc));
  Perform(Command::kNextWindow);
  EXPECT_EQ(frame.area().currentSubWindow(), &MainOf(a));
  Perform(Command::kPreviousWindow);
  EXPECT_EQ(frame.area().currentSubWindow(), &Find(a, WindowKind::kFftLpc));

  MainOf(a).showMinimized();
  EXPECT_TRUE(spectrogram.isHidden());
  EXPECT_FALSE(Find(b, WindowKind::kPitch).isHidden());
  MainOf(a).showNormal();
  EXPECT_FALSE(spectrogram.isHidden());
  MainOf(a).close();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_THAT(Stack(), ElementsAre("b", "b p"));
}

// The dashed column of a canvas, in pixels of the area; -1: none.
int PointedColumn(QWidget& canvas, const QWidget& area, int y) {
  const QImage image = canvas.grab().toImage();
  const QColor color = StyleFor(canvas.palette()).pointed;
  for (int x = 0; x < image.width(); ++x) {
    int dashes = 0;
    for (int row = y; row < y + 12; ++row) dashes += image.pixelColor(x, row) == color ? 1 : 0;
    if (dashes >= 5 && dashes < 12) return canvas.mapTo(&area, QPoint(x, 0)).x();
  }
  return -1;
}

TEST_F(DesksTest, ThePointerShowsItsTimeInAllWindowsAndItsValuesInTheStatusBar) {
  frame.resize(1300, 950);
  CSonadexView& view = OpenCopy("a.qrv");
  AnalysisFrame& spectrogram = Show(view, WindowKind::kSpectrogram);
  AnalysisFrame& pitch = Show(view, WindowKind::kPitch);
  // A computation of the new size could bring up its status window.
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return !spectrogram.model().UpdateDue() && !progress.running(); }, 20000));
  QWidget& main = MainOf(view).area().picture();
  const auto columns = [&] {
    return std::vector<int>{
        PointedColumn(main, frame.area(), view.layout.pitch.top + 4),
        PointedColumn(spectrogram.canvas(), frame.area(), spectrogram.model().plot.top + 4),
        PointedColumn(pitch.canvas(), frame.area(), pitch.model().plot.top + 4)};
  };
  const auto told = [&] { return frame.statusBar()->findChildren<QLabel*>().at(3)->text(); };
  const int x = 700;
  for (QWidget* const canvas :
       std::initializer_list<QWidget*>{&main, &spectrogram.canvas(), &pitch.canvas()}) {
    const QPoint at(canvas->mapFrom(&frame.area(), QPoint(x, 0)).x(), canvas->height() / 2);
    QTest::mouseMove(canvas, at - QPoint(1, 0));
    QTest::mouseMove(canvas, at);
    QApplication::processEvents();
    EXPECT_THAT(columns(), testing::Each(x));
    // With the button held, too; not far enough for a selection.
    QTest::mousePress(canvas, Qt::LeftButton, {}, at);
    QTest::mouseMove(canvas, at + QPoint(4, 0));
    QApplication::processEvents();
    EXPECT_THAT(columns(), testing::Each(x + 4));
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, at + QPoint(4, 0));
    EXPECT_THAT(told().toStdString(), testing::ContainsRegex("^[0-9.]+ ms  "));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(canvas, &leave);
    EXPECT_THAT(columns(), testing::Each(-1));
    EXPECT_EQ(told(), "");
  }
  QTest::mouseMove(&frame, QPoint(1, 1));  // where no other test has a picture
}

TEST_F(DesksTest, CascadeAndTileAreNobodysChoice) {
  frame.resize(1400, 1000);
  CSonadexView& a = OpenCopy("a.qrv");
  CSonadexView& b = OpenCopy("b.qrv");
  AnalysisFrame& spectrogram = Show(b, WindowKind::kSpectrogram);
  Perform(Command::kTile);
  const QRect left = MainOf(a).geometry();
  EXPECT_EQ(left, QRect(0, 0, Area().width() / 2, Area().height()));
  EXPECT_EQ(MainOf(b).geometry().united(spectrogram.geometry()), left.translated(left.width(), 0));
  Perform(Command::kCascade);
  const QSize size = Area().size() * 2 / 3;
  EXPECT_EQ(MainOf(a).geometry(), QRect(QPoint(0, 0), size));
  EXPECT_EQ(MainOf(b).geometry(), QRect(QPoint(28, 28), size));
  EXPECT_EQ(spectrogram.geometry(), QRect(QPoint(56, 56), size));
  EXPECT_EQ(app.host.application.mainView.width, 0);
  EXPECT_EQ(app.host.application.spectrogram.width, 0);
  frame.resize(1400, 1020);
  QApplication::processEvents();
  EXPECT_EQ(spectrogram.geometry(), QRect(QPoint(56, 56), size)) << "arranged no more";
  Perform(Command::kArrangeAnalyses);
  EXPECT_EQ(MainOf(b).geometry().united(spectrogram.geometry()), Area()) << "no half any more";
  // Too small for two.
  frame.resize(1000, 700);
  Perform(Command::kTile);
  EXPECT_TRUE(MainOf(a).isMinimized());
  EXPECT_EQ(MainOf(b).geometry().united(spectrogram.geometry()), Area());
}

TEST_F(DesksTest, AnUntouchedDocumentMakesRoomForAFile) {
  Perform(Command::kNew);
  OpenCopy("a.qrv");
  EXPECT_EQ(frame.documents().All().size(), 1U);
  Perform(Command::kNew);
  frame.activeView()->document().SetModified(true);
  OpenCopy("b.qrv");
  EXPECT_EQ(frame.documents().All().size(), 3U);
  for (CSonadexDoc* const document : frame.documents().All()) document->SetModified(false);
}

}  // namespace
}  // namespace cantorix
