// view_input_test.cpp - what mouse, wheel, keys and scroll bars do to the working view.
#include <QScrollBar>
#include <QWheelEvent>

#include "desktop/desktop_fixture.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

class ViewInput : public DesktopTest {
 protected:
  void Wheel(QPoint at, QPoint turn, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event(at, Picture().mapToGlobal(at), {}, turn, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Picture(), &event);
  }
  void Drag(int fromX, int toX) {
    QTest::mousePress(&Picture(), Qt::LeftButton, {}, {fromX, 200});
    QTest::mouseMove(&Picture(), {toX, 200});
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, {toX, 200});
  }
};

TEST_F(ViewInput, AClickPlacesTheMarkerUnderThePointer) {
  CSonadexView& view = OpenSample();
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {340, 200});
  EXPECT_TRUE(view.markerSet());
  EXPECT_FALSE(view.selectionShown());
  EXPECT_DOUBLE_EQ(view.channel().cursor.ms,
                   PixelToTime(view.channel(), view.layout.axisWidth(), 300).ms);
  EXPECT_FALSE(view.press.held);
}

TEST_F(ViewInput, OnlyTheLeftButtonPlacesTheMarker) {
  CSonadexView& view = OpenSample();
  QTest::mouseClick(&Picture(), Qt::RightButton, {}, {340, 200});
  QTest::mouseClick(&Picture(), Qt::MiddleButton, {}, {340, 200});
  EXPECT_FALSE(view.markerSet());
}

TEST_F(ViewInput, ADragOfMoreThanFivePixelsSelectsInBothDirections) {
  struct Row {
    int fromX, toX;
    bool selects;
  };
  CSonadexView& view = OpenSample();
  for (const Row& row : {Row{300, 305, false}, Row{300, 306, true}, Row{500, 400, true}}) {
    SCOPED_TRACE(row.toX);
    view.DropMarks();
    Drag(row.fromX, row.toX);
    EXPECT_EQ(view.selectionShown(), row.selects);
    EXPECT_EQ(view.markerSet(), !row.selects);
    const auto [left, right] = std::minmax(row.fromX, row.toX);
    EXPECT_DOUBLE_EQ(view.channel().selectionStart.ms,
                     PixelToTime(view.channel(), view.layout.axisWidth(), left - kLeftMargin).ms);
    EXPECT_DOUBLE_EQ(view.channel().selectionEnd.ms,
                     PixelToTime(view.channel(), view.layout.axisWidth(), right - kLeftMargin).ms);
  }
}

TEST_F(ViewInput, ADragThatLeavesTheWindowSelectsToTheEnd) {
  CSonadexView& view = OpenSample();
  Drag(400, Picture().width() + 300);
  EXPECT_DOUBLE_EQ(view.channel().selectionEnd.ms, view.channel().totalDurationMs);
}

TEST_F(ViewInput, TheWheelScrollsByLinesForwardToTheRight) {
  CSonadexView& view = OpenSample();
  Perform(Command::kZoomIn);
  const std::int32_t before = view.horizontal.position;
  const std::int32_t line = view.horizontal.page / 10;
  Wheel({300, 200}, {0, 240});
  EXPECT_EQ(view.horizontal.position, before + 2 * line);
  Wheel({300, 200}, {0, -120});
  EXPECT_EQ(view.horizontal.position, before + line);
  // Small turns count once they make a whole step.
  Wheel({300, 200}, {0, -60});
  EXPECT_EQ(view.horizontal.position, before + line);
  Wheel({300, 200}, {0, -60});
  EXPECT_EQ(view.horizontal.position, before);
  Wheel({300, 200}, {120, 0});
  EXPECT_EQ(view.horizontal.position, before - line);
}

TEST_F(ViewInput, CtrlAndTheWheelZoomAtThePointer) {
  CSonadexView& view = OpenSample();
  const double under = PixelToTime(view.channel(), view.layout.axisWidth(), 300 - kLeftMargin).ms;
  Wheel({300, 200}, {0, 240}, Qt::ControlModifier);
  EXPECT_TRUE(view.zoomed());
  EXPECT_NEAR(view.channel().visibleLength.samples, view.channel().totalLength / 4.0, 1e-6);
  EXPECT_NEAR(PixelToTime(view.channel(), view.layout.axisWidth(), 300 - kLeftMargin).ms, under,
              1e-6);
}

TEST_F(ViewInput, ShiftAndTheWheelScrollTiersAndPanes) {
  CSonadexView& view = OpenSample();
  frame.resize(700, 330);
  QApplication::processEvents();
  ASSERT_LE(view.vertical.page + 10, view.vertical.range);
  Wheel({200, 60}, {0, -120}, Qt::ShiftModifier);
  EXPECT_LT(view.tierOffset, 0);
  Wheel({200, 60}, {0, 120}, Qt::ShiftModifier);
  EXPECT_EQ(view.tierOffset, 0);
}

TEST_F(ViewInput, KeysAndBarsScrollByLinesAndPages) {
  CSonadexView& view = OpenSample();
  frame.resize(700, 330);
  QApplication::processEvents();
  Perform(Command::kZoomIn);
  Picture().setFocus();
  MainViewArea& area = frame.activeFrame()->area();
  const std::int32_t middle = view.horizontal.position;
  const std::int32_t page = view.horizontal.page;
  const std::int32_t line = view.vertical.page / 10;
  using Slider = QAbstractSlider;
  struct Row {
    const char* name;
    QScrollBar& bar;
    Qt::Key key;
    Slider::SliderAction action;
    std::int32_t position;
  };
  const Row rows[] = {
      {"right", area.horizontalBar(), Qt::Key_Right, Slider::SliderSingleStepAdd,
       middle + page / 10},
      {"left", area.horizontalBar(), Qt::Key_Left, Slider::SliderSingleStepSub, middle},
      {"page back", area.horizontalBar(), Qt::Key_PageUp, Slider::SliderPageStepSub,
       std::max(middle - page, 0)},
      {"down", area.verticalBar(), Qt::Key_Down, Slider::SliderSingleStepAdd, line},
      {"up", area.verticalBar(), Qt::Key_Up, Slider::SliderSingleStepSub, 0},
  };
  for (const bool byKey : {true, false}) {
    for (const Row& row : rows) {
      SCOPED_TRACE(std::string(row.name) + (byKey ? " by key" : " by bar"));
      if (byKey) {
        QTest::keyClick(&Picture(), row.key);
      } else {
        row.bar.triggerAction(row.action);
      }
      EXPECT_EQ(row.bar.value(), row.position);
      EXPECT_EQ(&row.bar == &area.verticalBar() ? view.vertical.position : view.horizontal.position,
                row.position);
    }
    area.horizontalBar().setSliderPosition(middle);
    area.horizontalBar().triggerAction(Slider::SliderMove);
  }
  area.verticalBar().setSliderPosition(line);
  area.verticalBar().triggerAction(Slider::SliderMove);
  EXPECT_LT(view.tierOffset, 0);
}

TEST_F(ViewInput, TheScrollBarsFollowTheViewAndMoveIt) {
  CSonadexView& view = OpenSample();
  QScrollBar& bar = frame.activeFrame()->area().horizontalBar();
  EXPECT_EQ(bar.maximum(), 0);
  Perform(Command::kZoomIn);
  EXPECT_EQ(bar.value(), view.horizontal.position);
  EXPECT_EQ(bar.maximum(), kScrollRange - view.horizontal.page + 1);
  EXPECT_EQ(bar.pageStep(), view.horizontal.page);
  bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(view.horizontal.position, bar.value());
  EXPECT_EQ(bar.value(), bar.maximum());
  bar.setSliderPosition(100);
  bar.triggerAction(QAbstractSlider::SliderMove);
  EXPECT_EQ(view.horizontal.position, 100);
}

TEST_F(ViewInput, AnotherSizeLaysTheViewOutAgain) {
  CSonadexView& view = OpenSample();
  frame.resize(1200, 800);
  QApplication::processEvents();
  EXPECT_EQ(view.layout.client.width, Picture().width());
  EXPECT_EQ(view.layout.client.height, Picture().height());
}

TEST_F(ViewInput, PaintingConsumesTheRedraw) {
  CSonadexView& view = OpenSample();
  view.Redraw();
  EXPECT_FALSE(Picture().grab().isNull());
  EXPECT_FALSE(view.redrawNeeded);
}

}  // namespace
}  // namespace cantorix
