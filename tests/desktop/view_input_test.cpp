// view_input_test.cpp - what mouse, wheel, keys and scroll bars do to the working view.
#include <QScrollBar>
#include <QWheelEvent>

#include "desktop/desktop_fixture.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

class ViewInput : public DesktopTest {
 protected:
  void Wheel(QPoint turn, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QPoint at(300, 60);
    QWheelEvent event(at, Picture().mapToGlobal(at), {}, turn, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Picture(), &event);
  }
  // The time under a pixel of the picture.
  double TimeAt(const CSonadexView& view, int x) {
    return PixelToTime(view.channel(), view.layout.axisWidth(), x - kLeftMargin).ms;
  }
  // The sample recording in a window that is too low for its panes.
  CSonadexView& OpenLow() {
    CSonadexView& view = OpenSample();
    frame.resize(700, 310);
    QApplication::processEvents();
    return view;
  }
};

TEST_F(ViewInput, TheLeftButtonPlacesTheMarkerAndSelectsUnderThePointer) {
  CSonadexView& view = OpenSample();
  for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseClick(&Picture(), button, {}, {340, 200});
    EXPECT_FALSE(view.markerSet());
  }
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {340, 200});
  EXPECT_TRUE(view.markerSet());
  EXPECT_FALSE(view.selectionShown());
  EXPECT_DOUBLE_EQ(view.channel().cursor.ms, TimeAt(view, 340));
  EXPECT_FALSE(view.press.held);
  QTest::mouseDClick(&Picture(), Qt::LeftButton, {}, {420, 200});
  EXPECT_DOUBLE_EQ(view.channel().cursor.ms, TimeAt(view, 420));
  QTest::mousePress(&Picture(), Qt::LeftButton, {}, {500, 200});
  QTest::mouseMove(&Picture(), {400, 200});
  EXPECT_DOUBLE_EQ(view.channel().dragPoint.ms, TimeAt(view, 400)) << "the rubber band";
  QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, {400, 200});
  EXPECT_TRUE(view.selectionShown());
  EXPECT_DOUBLE_EQ(view.channel().selectionStart.ms, TimeAt(view, 400));
}

// Small turns count once they make a whole step; sideways the picture moves as the wheel turns.
TEST_F(ViewInput, TheWheelScrollsByLinesForwardToTheRight) {
  CSonadexView& view = OpenSample();
  Perform(Command::kZoomIn);
  const std::int32_t before = view.horizontal.position;
  const std::int32_t line = view.horizontal.page / 10;
  for (const auto& [turn, lines] : {std::pair{QPoint(0, 240), 2},
                                    {QPoint(0, -120), 1},
                                    {QPoint(0, -60), 1},
                                    {QPoint(0, -60), 0},
                                    {QPoint(120, 0), -1},
                                    {QPoint(-240, 0), 1}}) {
    Wheel(turn);
    EXPECT_EQ(view.horizontal.position, before + lines * line);
  }
}

TEST_F(ViewInput, CtrlAndTheWheelZoomAtThePointer) {
  CSonadexView& view = OpenSample();
  const double under = TimeAt(view, 300);
  Wheel({0, 240}, Qt::ControlModifier);
  EXPECT_TRUE(view.zoomed());
  EXPECT_NEAR(view.channel().visibleLength.samples, view.channel().totalLength / 4.0, 1e-6);
  EXPECT_NEAR(TimeAt(view, 300), under, 1e-6);
}

TEST_F(ViewInput, ShiftAndTheWheelScrollTiersAndPanes) {
  CSonadexView& view = OpenLow();
  ASSERT_LE(view.vertical.page + 10, view.vertical.range);
  Wheel({0, -120}, Qt::ShiftModifier);
  EXPECT_LT(view.tierOffset, 0);
  Wheel({0, 120}, Qt::ShiftModifier);
  EXPECT_EQ(view.tierOffset, 0);
}

TEST_F(ViewInput, KeysAndBarsScrollByLinesAndPages) {
  CSonadexView& view = OpenLow();
  QScrollBar& across = frame.activeFrame()->area().horizontalBar();
  QScrollBar& down = frame.activeFrame()->area().verticalBar();
  EXPECT_EQ(across.maximum(), 0);
  Perform(Command::kZoomIn);
  Picture().setFocus();
  const std::int32_t middle = view.horizontal.position;
  const std::int32_t page = view.horizontal.page;
  const std::int32_t line = view.vertical.page / 10;
  EXPECT_EQ(across.maximum(), kScrollRange - page + 1);
  EXPECT_EQ(across.pageStep(), page);
  using Slider = QAbstractSlider;
  struct Row {
    QScrollBar& bar;
    Qt::Key key;
    Slider::SliderAction action;
    std::int32_t position;
  };
  const Row rows[] = {
      {across, Qt::Key_Right, Slider::SliderSingleStepAdd, middle + page / 10},
      {across, Qt::Key_Left, Slider::SliderSingleStepSub, middle},
      {across, Qt::Key_PageUp, Slider::SliderPageStepSub, std::max(middle - page, 0)},
      {across, Qt::Key_PageDown, Slider::SliderPageStepAdd,
       std::min(std::max(middle - page, 0) + page, across.maximum())},
      {down, Qt::Key_Down, Slider::SliderSingleStepAdd, line},
      {down, Qt::Key_Up, Slider::SliderSingleStepSub, 0},
  };
  const auto drag = [](QScrollBar& bar, int position) {
    bar.setSliderPosition(position);
    bar.triggerAction(Slider::SliderMove);
  };
  for (const bool byKey : {true, false}) {
    for (const Row& row : rows) {
      SCOPED_TRACE(std::to_string(row.key) + (byKey ? " by key" : " by bar"));
      if (byKey) {
        QTest::keyClick(&Picture(), row.key);
      } else {
        row.bar.triggerAction(row.action);
      }
      EXPECT_EQ(row.bar.value(), row.position);
      EXPECT_EQ(&row.bar == &down ? view.vertical.position : view.horizontal.position,
                row.position);
    }
    drag(across, middle);
    EXPECT_EQ(view.horizontal.position, middle);
  }
  drag(down, line);
  EXPECT_LT(view.tierOffset, 0);
}

}  // namespace
}  // namespace cantorix
