// progress_test.cpp - a long operation on the interface thread and the user who loses patience.
#include <QScreen>
#include <QTimer>

#include "desktop/desktop_fixture.h"

namespace cantorix {
namespace {

class CountingWidget : public QWidget {
 public:
  int presses = 0, keys = 0, paints = 0, closes = 0;

 protected:
  void mousePressEvent(QMouseEvent*) override { ++presses; }
  void keyPressEvent(QKeyEvent*) override { ++keys; }
  void paintEvent(QPaintEvent*) override { ++paints; }
  void closeEvent(QCloseEvent*) override { ++closes; }
};

// Steps through an operation of up to `ms` milliseconds; what posts `during` happens on its way.
bool CancelledWithin(QtProgress& progress, int ms) {
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < ms) {
    if (progress.Step(static_cast<double>(std::min<qint64>(clock.elapsed(), ms)))) return true;
  }
  return progress.Step(ms);  // a busy machine may have left no time for the others
}

class ProgressTest : public testing::Test {
 protected:
  ProgressTest() {
    window.resize(200, 200);
    window.show();
    QApplication::processEvents();
  }
  void Later(std::function<void()> action) { QTimer::singleShot(40, &window, std::move(action)); }

  CountingWidget window;
  QtProgress progress;
};

TEST_F(ProgressTest, AMousePressAnywhereOrEscCancelsThisOperationAndReachesNobody) {
  for (const bool byKey : {false, true}) {
    const ProgressScope scope(progress, "one", 100.0);
    Later([&] {
      byKey ? QTest::keyPress(&window, Qt::Key_Escape) : QTest::mousePress(&window, Qt::LeftButton);
    });
    EXPECT_TRUE(CancelledWithin(progress, 2000));
    EXPECT_EQ(window.presses + window.keys, 0);
  }
  const ProgressScope scope(progress, "two", 1.0);
  EXPECT_FALSE(CancelledWithin(progress, 60));
}

TEST_F(ProgressTest, OtherInputIsSwallowedAndPaintingGoesOn) {
  const ProgressScope scope(progress, "Reading", 100.0);
  const int paints = window.paints;
  Later([&] {
    window.close();
    window.update();
    QTest::keyClick(&window, Qt::Key_A);
  });
  EXPECT_FALSE(CancelledWithin(progress, 200));
  EXPECT_EQ(window.keys, 0);
  EXPECT_EQ(window.closes, 0);
  EXPECT_GT(window.paints, paints);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(ProgressTest, TheWindowShowsTextAndPartWhileItRuns) {
  const CStatusWindow* shown = nullptr;
  {
    const ProgressScope scope(progress, "Processing Pitch...(Press mouse to cancel)", 400.0);
    EXPECT_FALSE(CancelledWithin(progress, 100));
    shown = progress.window();
    ASSERT_NE(shown, nullptr);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(shown->Text(), "Processing Pitch...(Press mouse to cancel)");
    EXPECT_GT(shown->Percent(), 5);
    EXPECT_LT(shown->Percent(), 30);
    EXPECT_GE(shown->width(), 360);
    const QPoint middle = QGuiApplication::primaryScreen()->availableGeometry().center();
    EXPECT_LE((shown->frameGeometry().center() - middle).manhattanLength(), 2);
  }
  EXPECT_FALSE(shown->isVisible());
  EXPECT_FALSE(progress.running());
}

TEST_F(ProgressTest, OddTotalsGiveAnEmptyBar) {
  for (const double total : {0.0, -1.0, std::nan(""), HUGE_VAL}) {
    const ProgressScope scope(progress, "x", total);
    EXPECT_FALSE(CancelledWithin(progress, 60));
    EXPECT_EQ(progress.window()->Percent(), 0);
  }
}

class BusyFrame : public DesktopTest {};

TEST_F(BusyFrame, NoSecondOperationBegins) {
  CSonadexView& view = OpenSample();
  const ProgressScope scope(progress, "busy", 1.0);
  Perform(Command::kZoomIn);
  EXPECT_FALSE(view.zoomed());
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {300, 200});
  EXPECT_FALSE(view.markerSet());
  EXPECT_FALSE(frame.OpenFile(SamplePath()));
  EXPECT_FALSE(frame.close());
}

TEST_F(BusyFrame, TheStatusWindowClosesByTheKeysOfItsMenuUntilTheNextOperation) {
  progress.SetOwner(&frame);
  OpenSample();
  for (const bool closes : {true, false}) {
    const ProgressScope scope(progress, "busy", 1.0);
    EXPECT_FALSE(CancelledWithin(progress, 60));
    ASSERT_TRUE(progress.window()->isVisible());
    const QPoint aside =
        progress.window()->frameGeometry().center() - frame.frameGeometry().center();
    EXPECT_LE(aside.manhattanLength(), 2);
    if (!closes) continue;
    QTimer::singleShot(0, &frame, [this] {
      QTest::keyClick(&frame, Qt::Key_W, Qt::AltModifier);
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      menu->setActiveAction(&frame.actions().ActionOf(Command::kCloseStatusWindow));
      QTest::keyClick(menu, Qt::Key_Return);
    });
    EXPECT_FALSE(CancelledWithin(progress, 100));
    EXPECT_FALSE(progress.window()->isVisible());
    EXPECT_TRUE(progress.running());
  }
}

TEST_F(ProgressTest, WaitingShowsTheWaitCursor) {
  {
    const WaitScope wait(progress);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  }
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(BusyFrame, AWindowThatOpensMeanwhileBeginsAfterwards) {
  CSonadexDoc& document = OpenSample().document();
  frame.OpenNewWindow(document);
  {
    const ProgressScope scope(progress, "busy", 1.0);
    QApplication::processEvents();
    EXPECT_EQ(frame.activeView()->layout.client.width, 0);
  }
  QTest::qWait(120);
  EXPECT_EQ(frame.activeView()->layout.client.width, Picture().width());
}

}  // namespace
}  // namespace cantorix
