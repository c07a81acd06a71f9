// keyboard_test.cpp - keys of the pictures, and labels typed in the main view, as the user has
// them.
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QMessageBox>
#include <QToolButton>

#include "desktop/analysis_fixture.h"
#include "desktop/dialog_sheet.h"
#include "desktop/label_field.h"
#include "desktop/phonetic_chart.h"
#include "document/label.h"
#include "mainview/label_commands.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_typing.h"
#include "support/eventually.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

class Keyboard : public AnalysisDesktopTest {
 protected:
  Keyboard() {
    view = &OpenSample();
    for (Tier& tier : view->channel().tiers) tier = Tier();
    view->channel().tiers[1].name = "words";
    view->Changed(DocumentChange::kLabels);
    view->undoAvailable = false;
    Picture().setFocus();
  }
  LabelField& Field() { return *Picture().findChild<LabelField*>(); }
  QWidget& Focused() { return *QApplication::focusWidget(); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&Focused(), key, modifiers);
  }
  void Type(const char* text) {
    for (; *text != '\0'; ++text) QTest::keyClick(&Focused(), *text);
  }
  void Click(int x) { QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {x, 300}); }
  std::string Labels() {
    std::string text;
    for (const Label& label : view->channel().tiers[1].labels) text += label.text + ' ';
    return text + (view->undoAvailable ? "undo" : "");
  }

  CSonadexView* view;
};

TEST_F(Keyboard, TenWordsAreTypedWithAClickEachAndTabReachesThemInOrder) {
  Perform(Command::kLabelEntryMode);
  const char* const words[] = {"one", "two",   "three", "four", "five",
                               "six", "seven", "eight", "nine", "ten"};
  std::vector<double> times;
  for (int i = 0; i < 10; ++i) {
    Click(100 + 60 * i);
    times.push_back(view->channel().cursor.ms);
    Type(words[i]);
    EXPECT_TRUE(Field().hasFocus());
  }
  Key(Qt::Key_Return);
  EXPECT_TRUE(Picture().hasFocus());
  EXPECT_EQ(Labels(), "one two three four five six seven eight nine ten undo");
  Key(Qt::Key_Home, Qt::ControlModifier);
  for (const double time : times) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(view->channel().cursor.ms, time);
  }
  EXPECT_EQ(Picture().accessibleDescription(),
            QStringLiteral("words: ten at %1 ms").arg(times.back(), 0, 'f', 1));
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(view->channel().cursor.ms, times[8]);
}

TEST_F(Keyboard, TheFieldTakesLettersAndEndsAsItsKeysSay) {
  Perform(Command::kLabelEntryMode);
  Click(200);
  const double cursor = view->channel().cursor.ms;
  Type("ab");
  for (const Qt::Key key : {Qt::Key_K, Qt::Key_T, Qt::Key_I, Qt::Key_J}) {
    Key(key, Qt::ControlModifier);
  }
  EXPECT_EQ(Field().text(), "ab");
  EXPECT_EQ(view->channel().cursor.ms, cursor);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(Field().text(), "ab");
  Key(Qt::Key_B, Qt::ControlModifier);  // zooms, and leaves the field open
  EXPECT_TRUE(view->zoomed() && Field().isVisible());
  Key(Qt::Key_Escape);
  EXPECT_EQ(Labels(), "");
  EXPECT_FALSE(Field().isVisible() || view->document().isModified() ||
               view->channel().tiers[1].inUse);
  EXPECT_TRUE(view->labelEntry.enabled && Picture().hasFocus());

  Type("kept");
  Perform(Command::kSelectAll);
  EXPECT_EQ(Labels(), "kept undo");
  Click(300);
  Type("x");
  Key(Qt::Key_Tab);  // nothing follows
  EXPECT_EQ(Labels(), "kept x undo");
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  Key(Qt::Key_F2);
  EXPECT_EQ(Field().selectedText(), "kept");
  Type("K");
  frame.activateWindow();
  Key(Qt::Key_Return);
  EXPECT_EQ(Labels(), "x K undo");
  Key(Qt::Key_Delete);
  EXPECT_EQ(Labels(), "x undo");
  Perform(Command::kUndo);
  EXPECT_EQ(Labels(), "x K ");
}

TEST_F(Keyboard, ALongTextIsRefusedInTheFieldItself) {
  Perform(Command::kNewLabel);
  Field().insert(QString(255, 'x'));
  Q_EMIT Field().textEdited(Field().text());
  Type("y");
  EXPECT_EQ(Field().text().size(), 255);
  EXPECT_EQ(Field().accessibleDescription(),
            "A label holds at most 255 bytes. Delete something, or press Esc.");
  Key(Qt::Key_Return);
  EXPECT_TRUE(Field().isVisible());
  Click(600);
  QApplication::processEvents();
  EXPECT_TRUE(Field().hasFocus()) << "stays open and takes the next key";
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Return);
  EXPECT_EQ(Labels(), std::string(254, 'x') + " undo");
}

TEST_F(Keyboard, ShiftAndTheEdgesWorkUnderThePointer) {
  Select(*view, 1000.0, 3000.0);
  const double fixed = view->channel().selectionStart.ms;
  const int edge =
      40 + static_cast<int>(3000.0 / view->channel().totalDurationMs * view->layout.axisWidth());
  QTest::mouseMove(&Picture(), {edge + 3, 300});
  EXPECT_EQ(Picture().cursor().shape(), Qt::SizeHorCursor);
  QTest::mouseMove(&Picture(), {edge + 30, 300});
  EXPECT_EQ(Picture().cursor().shape(), Qt::ArrowCursor);
  QTest::mouseClick(&Picture(), Qt::LeftButton, Qt::ShiftModifier, {edge + 40, 300});
  EXPECT_EQ(view->channel().selectionStart.ms, fixed);
  EXPECT_GT(view->channel().selectionEnd.ms, 3000.0);
}

TEST_F(Keyboard, TheContextMenuHasTheActionsOfTheMenuBar) {
  Select(*view, 1000.0, 3000.0);
  const auto menu = [] {
    auto* const open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QStringList texts;
    for (const QAction* const action : open->actions()) {
      texts << (action->isSeparator() ? "--"
                                      : action->text() + (action->isEnabled() ? "" : "(off)"));
    }
    open->close();
    return Typed(texts.join(' '));
  };
  const std::string onSelection =
      "Selection Play Selection -- Cu&t &Copy -- Spectrogram Selection FFT/LPC Selection Pitch "
      "Selection Statistics of Selection -- Display";
  QContextMenuEvent byMouse(QContextMenuEvent::Mouse, {250, 200}, {250, 200});
  QApplication::sendEvent(&Picture(), &byMouse);
  EXPECT_EQ(menu(), onSelection);
  Key(Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_EQ(menu(), onSelection);
  EXPECT_TRUE(view->selectionShown());
}

TEST_F(Keyboard, ARingMarksThePictureThatHasTheKeys) {
  Perform(Command::kSpectrogramAll);
  QWidget& spectrogram = Find(*view, WindowKind::kSpectrogram).canvas();
  const auto hasRing = [](QWidget& picture) {
    const QImage image = picture.grab().toImage();
    const QColor ring = StyleOf(PaletteKind::kLight).selectionEdge;
    return image.pixelColor(0, image.height() / 2) == ring &&
           image.pixelColor(image.width() - 2, 1) == ring;
  };
  // The window system says late which window is active, and whose it was before may get it again.
  const auto getsRing = [&hasRing](QWidget& picture) {
    return Eventually([&] {
      if (!picture.isActiveWindow()) picture.window()->activateWindow();
      if (!picture.hasFocus()) picture.setFocus();
      QApplication::processEvents();
      return hasRing(picture);
    });
  };
  EXPECT_TRUE(getsRing(spectrogram));
  EXPECT_FALSE(hasRing(Picture()));
  EXPECT_TRUE(getsRing(Picture()));
  EXPECT_FALSE(hasRing(spectrogram));
}

// The drawings are those of the buttons; a menu with them would be a third wider.
TEST_F(Keyboard, MenusAreOfWordsAlone) {
  Perform(Command::kSpectrogramAll);
  int drawn = 0;
  QList<QAction*> actions = Find(*view, WindowKind::kSpectrogram).canvas().actions();
  actions << frame.findChildren<QAction*>(Qt::FindDirectChildrenOnly);
  for (const QAction* const action : actions) {
    if (action->icon().isNull()) continue;
    EXPECT_FALSE(action->isIconVisibleInMenu()) << Typed(action->text());
    ++drawn;
  }
  EXPECT_GT(drawn, 30);
}

TEST_F(Keyboard, TheChartGivesSignsByClickAndByTwoKeys) {
  Perform(Command::kLabelEntryMode);
  Click(200);
  Type("n=");
  Key(Qt::Key_F9);
  PhoneticChart& chart = frame.phoneticChart();
  EXPECT_TRUE(chart.isVisible() && Field().hasFocus());
  ExpectText("desktop/expected/PhoneticChart.txt", SheetOf(chart));
  const auto cell = [&chart](const char* name) {
    for (QToolButton* const button : chart.findChildren<QToolButton*>()) {
      if (button->accessibleName() == name) return button;
    }
    throw std::runtime_error(name);
  };
  EXPECT_EQ(cell("voiced velar nasal")->toolTip(),
            "<p style='white-space:pre'>voiced velar nasal: n then =</p>");
  EXPECT_EQ(cell("voiceless")->text().size(), 2) << "on a circle";
  EXPECT_EQ(cell("voiceless")->size(), QSize(24, 24));
  EXPECT_EQ(cell("voiceless")->font().pixelSize(), 16);
  cell("mid central vowel")->click();
  Type("n=");
  EXPECT_EQ(Typed(Field().text()), "n=\xC9\x99\xC5\x8B");
  Key(Qt::Key_Return);
  EXPECT_EQ(Labels(), "n=\xC9\x99\xC5\x8B undo");
  cell("voiced velar nasal")->click();
  EXPECT_EQ(Typed(Field().text()), "\xC5\x8B");
  Key(Qt::Key_Escape);
  Key(Qt::Key_F9);
  EXPECT_FALSE(chart.isVisible());
  Type("n=");
  EXPECT_EQ(Field().text(), "n=");
}

TEST_F(Keyboard, StayWithTheirRecordingWhenALabelEndsBehindAMessage) {
  Perform(Command::kNewWindow);
  view = frame.activeView();
  const QWidget& picture = Picture();
  Perform(Command::kNewLabel);
  ASSERT_TRUE(Field().hasFocus());
  Field().insert("a");
  Q_EMIT Field().textEdited(Field().text());
  QMessageBox message(&frame);
  message.setModal(true);
  message.show();
  QApplication::setActiveWindow(&message);
  KeepTyping(*view);
  message.close();
  QApplication::setActiveWindow(&frame);
  EXPECT_TRUE(picture.hasFocus());
}

// In the other windows plain and Shift arrows keep what they do.
TEST_F(Keyboard, CtrlF4ClosesTheRecordingAndCtrlWZoomsIt) {
  Click(300);
  Key(Qt::Key_W, Qt::ControlModifier);
  EXPECT_TRUE(view->zoomed());
  QMessageBox question(&frame);
  question.setModal(true);
  question.show();
  // As a window manager does that gives the keys to what is clicked.
  QApplication::setActiveWindow(&frame);
  Picture().setFocus();
  Key(Qt::Key_F4, Qt::ControlModifier);
  EXPECT_FALSE(frame.activeFrame()->close() || frame.close());
  EXPECT_EQ(frame.area().subWindowList().size(), 1) << "everything waits for the answer";
  Key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_GT(view->channel().cursor.ms, 0.0);
  QLineEdit list;
  list.setWindowFlag(Qt::Popup);
  QTest::keyClick(&list, 'a');
  EXPECT_EQ(list.text(), "a") << "as the list of a field does, which hands it on";
  QTest::keyClick(&question, Qt::Key_Escape);
  EXPECT_FALSE(question.isVisible());
  Key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(view->channel().cursor.ms, 0.0);
  Key(Qt::Key_F4, Qt::ControlModifier);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(frame.area().subWindowList().isEmpty());
}

TEST_F(Keyboard, KeysOfTheRecordingWorkInItsOtherWindows) {
  view->channel().tiers[1].inUse = true;
  Label label;
  label.timeMs = 500.0;
  label.text = "one";
  view->channel().AddLabel(1, label);
  Mark(*view, 1000.0);
  Perform(Command::kSpectrogramAll);
  Perform(Command::kPitchAll);
  Mark(*view, 1000.0);
  Perform(Command::kFftLpc);
  for (const WindowKind kind :
       {WindowKind::kSpectrogram, WindowKind::kPitch, WindowKind::kFftLpc}) {
    if (windows.Find(*view, kind) == nullptr) continue;
    AnalysisCanvas& canvas = Find(*view, kind).canvas();
    Mark(*view, 1000.0);
    QTest::keyClick(&canvas, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_FALSE(view->selectionShown());
    QTest::keyClick(&canvas, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view->channel().cursor.ms, view->channel().totalDurationMs);
    QTest::keyClick(&canvas, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(view->channel().cursor.ms, 500.0);
    QTest::keyClick(&canvas, Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(view->selectionShown());
    QTest::keyClick(&canvas, Qt::Key_Escape);
    EXPECT_FALSE(view->selectionShown());
  }
}

}  // namespace
}  // namespace cantorix
