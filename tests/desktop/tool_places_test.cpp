// tool_places_test.cpp - where the floating windows stand, and how they are docked.
#include <QDockWidget>
#include <QLabel>
#include <QMdiArea>
#include <QPushButton>
#include <QTableView>
#include <stdexcept>

#include "desktop/desktop_fixture.h"
#include "desktop/display_option_frame.h"
#include "desktop/label_list_frame.h"
#include "desktop/log_frame.h"

namespace cantorix {
namespace {

using ToolPlaces = DesktopTest;

TEST_F(ToolPlaces, StandAsideAndTheirPlacesAreRemembered) {
  frame.setGeometry(0, 0, 1000, 700);
  OpenSample();
  Perform(Command::kViewLabels);
  Perform(Command::kLogNew);
  Perform(Command::kDisplayOptions);
  EXPECT_TRUE(frame.displayOptions().isVisible());
  EXPECT_EQ(frame.displayOptions().pos(),
            QPoint(939 - frame.displayOptions().sizeHint().width(), 120));
  EXPECT_EQ(frame.labelList().geometry().topLeft(), QPoint(539, 140));
  EXPECT_EQ(frame.labelList().height(), 360);
  EXPECT_EQ(frame.log().geometry(), QRect(199, 319, 760, 300));
  frame.labelList().setGeometry(120, 130, 500, 320);
  QApplication::processEvents();
  const WindowPlacement& place = app.host.application.labelList;
  EXPECT_EQ(QRect(place.x, place.y, place.width, place.height), QRect(120, 130, 500, 320));
}

// A docked log takes its room from the recordings; closed there it asks as ever.
TEST_F(ToolPlaces, ADockedLogCoversNothing) {
  OpenSample();
  Perform(Command::kLogNew);
  CFrameLog& log = frame.log();
  const QRect floating = log.geometry();
  const int before = frame.area().height();
  const auto button = [&log](const char* text) {
    for (QPushButton* const each : log.findChildren<QPushButton*>()) {
      if (each->text() == text) return each;
    }
    throw std::runtime_error(text);
  };
  const auto press = [&button] {
    button("D&ock")->click();
    QApplication::processEvents();
  };
  press();
  ASSERT_TRUE(log.isVisible() && log.isDocked());
  EXPECT_TRUE(button("Export as CS&V...")->shortcut().isEmpty()) << "Alt+V is the menu's";
  auto* const dock = qobject_cast<QDockWidget*>(log.parentWidget());
  EXPECT_EQ(frame.dockWidgetArea(dock), Qt::BottomDockWidgetArea);
  EXPECT_LE(frame.area().height(), before - 100);
  EXPECT_GE(log.mapTo(&frame, QPoint()).y(), frame.area().geometry().bottom());
  EXPECT_EQ(dock->windowTitle(), log.windowTitle());
  const QWidget* const note = log.form().table().findChild<QLabel*>()->parentWidget();
  EXPECT_NEAR(note->geometry().center().y(), log.form().table().viewport()->geometry().center().y(),
              1)
      << "the headings stay in sight";
  Select(*frame.activeView(), 100.0, 300.0);
  Perform(Command::kEnterDuration);
  EXPECT_TRUE(log.isWindowModified() && dock->isWindowModified());
  EXPECT_FALSE(frame.isWindowModified()) << "the recording is not";
  QApplication::setActiveWindow(&frame);
  log.form().table().setFocus();
  EXPECT_EQ(frame.PageOfWindow(), "log.html");
  press();
  EXPECT_TRUE(log.isVisible() && !log.isDocked() && log.isWindow());
  EXPECT_EQ(button("Export as CS&V...")->shortcut(), QKeySequence(Qt::ALT | Qt::Key_V));
  EXPECT_EQ(log.geometry(), floating);
  EXPECT_EQ(frame.area().height(), before);
  press();
  prompts.WillAnswer(Answer::kCancel);
  frame.findChild<QDockWidget*>()->close();
  EXPECT_TRUE(log.isVisible());
  prompts.WillAnswer(Answer::kNo);
  frame.findChild<QDockWidget*>()->close();
  EXPECT_FALSE(log.isVisible() || frame.findChild<QDockWidget*>()->isVisible());
  EXPECT_EQ(prompts.TakeTranscript().size(), 2U);
  Perform(Command::kLogNew);
  EXPECT_TRUE(log.isVisible() && log.isDocked());
}

}  // namespace
}  // namespace cantorix
