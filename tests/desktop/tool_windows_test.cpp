// tool_windows_test.cpp - the floating windows: display options, label list, log, keyboard panes.
#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <filesystem>
#include <fstream>

#include "desktop/desktop_fixture.h"
#include "desktop/dialog_sheet.h"
#include "desktop/display_option_frame.h"
#include "desktop/keyboard_panes.h"
#include "desktop/label_list_frame.h"
#include "desktop/log_frame.h"
#include "settings/config_file.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

class ToolWindows : public DesktopTest {
 protected:
  Settings Stored() {
    Settings settings;
    EXPECT_TRUE(DecodeRecord(ReadConfiguration(ConfigPath(folder.path())), settings));
    return settings;
  }
  static QPushButton& ButtonOf(QWidget& window, const char* text) {
    for (QPushButton* const button : window.findChildren<QPushButton*>()) {
      if (button->text() == text) return *button;
    }
    throw std::runtime_error(text);
  }
  std::string Text(const QTableView& table, int row, int column) {
    return Typed(table.model()->index(row, column).data().toString());
  }
};

// Counts what the windows of a document are told.
class Told : public DocumentObserver {
 public:
  explicit Told(CSonadexDoc& document) : document_(document) { document.Attach(*this); }
  ~Told() override { document_.Detach(*this); }
  void DocumentChanged(DocumentChanges changes, const DocumentObserver*) override {
    settings += changes.Has(DocumentChange::kSettings) ? 1 : 0;
  }
  int settings = 0;

 private:
  CSonadexDoc& document_;
};

TEST_F(ToolWindows, EveryDisplayOptionChangesItsOwnFieldAndTheFile) {
  ASSERT_TRUE(WriteConfiguration(ConfigPath(folder.path()), Settings{}));
  CSonadexView& view = OpenSample();
  DisplaySettings& display = view.document().settings.display;
  CDisplayOptionFrame& options = frame.displayOptions();
  ExpectText("desktop/expected/DisplayOptions.txt", SheetOf(options));
  const Told told(view.document());
  int changes = 0;
  using Y = DisplaySettings;
  const std::pair<const char*, std::int32_t Y::*> switches[] = {
      {"&Audio", &Y::drawAudio},
      {"&Intensity", &Y::drawIntensity},
      {"Intensity in its &own pane", &Y::intensityInOwnPane},
      {"&Pitch", &Y::drawPitch},
      {"&Tiers", &Y::drawTiers},
      {"&Grids", &Y::drawGrids},
      {"Trac&k mouse for all windows", &Y::trackMouse}};
  for (const auto& [text, field] : switches) {
    SCOPED_TRACE(text);
    const DisplaySettings before = display;
    for (QCheckBox* const box : options.findChildren<QCheckBox*>()) {
      if (box->text() == text) box->click();
    }
    EXPECT_EQ(told.settings, ++changes) << "the windows draw it";
    for (const auto& [other, each] : switches) {
      EXPECT_EQ(display.*each, each == field ? 1 - before.*each : before.*each) << other;
    }
    EXPECT_EQ(Stored().document.display.*field, display.*field);
  }
  options.audioPercent().setValue(70);
  options.pitchPercent().setValue(60);
  options.timeBase().button(1)->click();
  options.printWidth().setValue(10.5);
  options.printHeight().setValue(8.5);
  options.printUnit().setCurrentIndex(1);
  for (const DisplaySettings& each : {display, Stored().document.display}) {
    EXPECT_EQ(each.audioPanePercent, 70);
    EXPECT_EQ(each.pitchPanePercent, 60);
    EXPECT_EQ(each.timeBase, 1);
    EXPECT_EQ(each.printWidth, 10.5);
    EXPECT_EQ(each.printHeight, 8.5);
    EXPECT_EQ(each.printUnit, 1);
  }
}

TEST_F(ToolWindows, DisplayOptionsFollowTheDocumentInFront) {
  EXPECT_FALSE(frame.displayOptions().isEnabled());
  OpenSample().document().settings.display.drawGrids = 0;
  Perform(Command::kNew);
  const auto grids = [&] {
    return SheetOf(frame.displayOptions()).find("(x) &Grids") != std::string::npos;
  };
  EXPECT_TRUE(grids());
  frame.activeFrame()->close();
  EXPECT_FALSE(grids());
  EXPECT_EQ(frame.activeView()->document().settings.display.drawGrids, 0)
      << "showing a document may not change it";
}

// In both time bases, then after deleting by key, editing, undo and deleting by button.
TEST_F(ToolWindows, TheLabelListShowsLabelsAndZoomsEditsAndDeletesTheRowThatIsChosen) {
  CSonadexView& view = OpenSample();
  Perform(Command::kViewLabels);
  LabelListFrame& list = frame.labelList();
  std::string seen = SheetOf(list) + TableSheet(list.table());
  view.document().settings.display.timeBase = 1;
  list.Refresh();
  seen += TableSheet(list.table());
  view.document().settings.display.timeBase = 0;
  list.Refresh();
  QApplication::setActiveWindow(&list);
  list.table().setFocus();
  QTest::keyClick(&list.table(), Qt::Key_Delete);
  EXPECT_FALSE(view.document().isModified()) << "nothing is chosen";
  const QPoint place = list.table().visualRect(list.table().model()->index(3, 2)).center();
  QTest::mouseClick(list.table().viewport(), Qt::LeftButton, {}, place);
  list.Zoom();
  EXPECT_TRUE(view.zoomed());
  QTest::keyClick(&list.table(), Qt::Key_Delete);
  EXPECT_EQ(list.table().currentIndex().row(), 3) << "the label that took its place";
  EXPECT_TRUE(view.document().isModified());
  seen += SheetOf(list) + TableSheet(list.table());

  Label edited;
  edited.text = "edited";
  edited.timeMs = std::stod(Text(list.table(), 3, 1));
  dialogs.label.WillGive({edited, false});
  ButtonOf(list, "&Edit...").click();
  EXPECT_TRUE(dialogs.label.presets.at(0).exists);
  seen += "of " + dialogs.label.presets[0].label.text + '\n' + TableSheet(list.table());
  Perform(Command::kUndo);
  list.table().selectRow(0);
  ButtonOf(list, "&Delete").click();
  ExpectText("desktop/expected/LabelList.txt", seen + TableSheet(list.table()));
  view.document().SetModified(false);
}

TEST_F(ToolWindows, TheLogHasAMenuOfItsRows) {
  CSonadexView& view = OpenSample();
  Perform(Command::kLogNew);
  Select(view, 100.0, 350.5);
  for (int i = 0; i < 3; ++i) Perform(Command::kEnterDuration);
  QTableView& table = frame.log().form().table();
  const auto menu = [&table] {
    QString text;
    for (const QAction* const action : table.actions()) {
      text += action->text() + (action->isEnabled() ? " " : "(off) ");
    }
    return text;
  };
  EXPECT_EQ(menu(), "&Copy(off) &Delete(off) Select &All ");
  table.selectRow(1);
  EXPECT_EQ(menu(), "&Copy &Delete Select &All ");
  table.actions()[1]->trigger();
  EXPECT_EQ(table.model()->rowCount(), 2);
  table.actions()[2]->trigger();
  table.actions()[1]->trigger();
  EXPECT_EQ(table.model()->rowCount(), 0);
  EXPECT_EQ(menu(), "&Copy(off) &Delete(off) Select &All ");
  app.log.reset();
}

TEST_F(ToolWindows, TheLabelListSortsFiltersAndChangesManyRows) {
  CSonadexView& view = OpenSample();
  Perform(Command::kViewLabels);
  LabelListFrame& list = frame.labelList();
  QTableView& table = list.table();
  const auto order = [&] {
    return Text(table, 0, 2) + ' ' + Text(table, 1, 2) + ' ' + Text(table, 2, 2);
  };
  const auto clickHeader = [&](int column) {
    const QHeaderView& header = *table.horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      {header.sectionViewportPosition(column) + 5, header.height() / 2});
    return order();
  };
  EXPECT_EQ(order(), "L* L% L*");
  EXPECT_EQ(clickHeader(1), "i L* L%");
  EXPECT_EQ(clickHeader(1), "L% H* a");
  EXPECT_EQ(clickHeader(1), "L* L% L*");
  EXPECT_EQ(clickHeader(2), "a a a\xC9\xAA");
  list.tier().setCurrentIndex(1);
  EXPECT_EQ(order(), "H% H% H%");
  QTest::keyClicks(&list.search(), "l*");
  EXPECT_EQ(table.model()->rowCount(), 4);
  EXPECT_FALSE(list.note().isVisible());
  QTest::keyClicks(&list.search(), "x");
  EXPECT_TRUE(list.note().isVisible());
  EXPECT_EQ(list.note().text(), "No label matches 'l*x' (21 hidden).");
  list.search().setText("l*");
  table.selectAll();
  const auto enabled = [&] {
    std::string text;
    for (const QAction* const action : table.actions()) text += action->isEnabled() ? 'x' : '.';
    return text;
  };
  EXPECT_EQ(enabled(), "...xx");
  dialogs.texts.WillGive({"L", "low "});
  ButtonOf(list, "&Rename...").click();
  EXPECT_EQ(table.model()->rowCount(), 0);
  list.search().setText("low");
  EXPECT_EQ(order(), "low * low * low *");
  table.selectRow(0);
  EXPECT_EQ(enabled(), "xxxxx");
  table.selectAll();
  table.actions().back()->trigger();
  EXPECT_EQ(LabelListRows(view.document()).size(), 17U);
  list.search().clear();
  list.tier().setCurrentIndex(0);
  EXPECT_EQ(table.model()->rowCount(), 17) << "of all tiers";
  view.document().SetModified(false);
}

TEST_F(ToolWindows, TheLogShowsRowsAsTheyComeAndLosesThoseDeleted) {
  CSonadexView& view = OpenSample();
  Perform(Command::kLogNew);
  EXPECT_TRUE(frame.log().isVisible());
  Select(view, 100.0, 350.5);
  Perform(Command::kEnterDuration);
  Perform(Command::kEnterLabelsAll);
  CFormLog& form = frame.log().form();
  ExpectText("desktop/expected/Log.txt", SheetOf(frame.log()) + TableSheet(form.table()));
  EXPECT_TRUE(frame.log().isWindowModified());

  const int rows = form.table().model()->rowCount();
  const std::string third = Text(form.table(), 2, 3);
  form.table().selectRow(1);
  form.table().selectionModel()->select(form.table().model()->index(0, 0),
                                        QItemSelectionModel::Select | QItemSelectionModel::Rows);
  ButtonOf(form, "&Copy").click();
  const QStringList copied = QApplication::clipboard()->text().split('\n');
  EXPECT_EQ(copied.size(), 4) << "in their order, whichever was chosen first";
  EXPECT_EQ(copied[0], "Source\tEntry Type\tEntry 1\tEntry 2\tEntry 3\tEntry 4\tEntry 5");
  EXPECT_EQ(copied[1], "vowels.qrv\tDuration Entry: start, end, duration\t100.0\t350.5\t250.5\t\t");
  ButtonOf(form, "&Delete").click();
  EXPECT_EQ(form.table().model()->rowCount(), rows - 2);
  EXPECT_EQ(Text(form.table(), 0, 3), third);
  ButtonOf(form, "&Undo").click();
  EXPECT_EQ(Text(form.table(), 2, 3), third);
}

TEST_F(ToolWindows, TheLogIsSortedAndEditedInItsCells) {
  OpenSample();
  Perform(Command::kLogNew);
  for (const char* value : {"10.0", "-", "9.5"}) app.log->Append({"a", "b", {value}});
  QTableView& table = frame.log().form().table();
  frame.log().Refresh();
  const auto column = [&] {
    return Text(table, 0, 2) + ' ' + Text(table, 1, 2) + ' ' + Text(table, 2, 2);
  };
  table.sortByColumn(2, Qt::AscendingOrder);
  EXPECT_EQ(column(), "9.5 10.0 -") << "by size, none last";
  table.selectAll();
  frame.log().form().CopyRows();
  EXPECT_EQ(QApplication::clipboard()->text().section('\n', 1, 1), "a\tb\t9.5") << "as shown";
  EXPECT_TRUE(table.model()->setData(table.model()->index(0, 2), "11"));
  EXPECT_EQ(app.log->rows()[2][2], "11") << "of the row that stands there";
  table.sortByColumn(-1, Qt::AscendingOrder);
  EXPECT_EQ(column(), "10.0 - 11") << "as measured";
  table.selectRow(0);
  frame.log().form().DeleteRows();
  QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(column(), "10.0 - 11");
}

TEST_F(ToolWindows, TakingRowsOutOfASavedLogModifiesIt) {
  OpenSample();
  Perform(Command::kLogNew);
  for (int row = 0; row < 60; ++row) app.log->Append({"a", "b", {std::to_string(row)}});
  prompts.WillChooseFile(folder / "log.txt");
  Perform(Command::kLogSave);
  EXPECT_EQ(frame.log().windowTitle(), "log.txt[*]");
  EXPECT_FALSE(frame.log().isWindowModified());
  QTableView& table = frame.log().form().table();
  EXPECT_EQ(table.verticalScrollBar()->value(), table.verticalScrollBar()->maximum())
      << "the rows that came last are in sight";
  table.selectRow(7);
  frame.log().form().DeleteRows();
  EXPECT_TRUE(app.log->isModified());
  EXPECT_TRUE(frame.log().isWindowModified());
  EXPECT_EQ(Text(table, 7, 2), "8");
  for (const Command command : {Command::kLogSaveAs, Command::kLogOpen}) {
    prompts.WillChooseFile(folder / "log.txt");
    Perform(command);
    EXPECT_FALSE(frame.log().isWindowModified());
    EXPECT_EQ(table.model()->rowCount(), 59);
  }
  EXPECT_EQ(prompts.TakeTranscript().size(), 3U);
}

TEST_F(ToolWindows, TheKeysOfTheLogAreNotThoseOfTheRecording) {
  CSonadexView& view = OpenSample();
  Perform(Command::kLogNew);
  Select(view, 100.0, 350.5);
  Perform(Command::kEnterDuration);
  Perform(Command::kEnterDuration);
  QApplication::setActiveWindow(&frame.log());
  QTableView& table = frame.log().form().table();
  table.setFocus();
  QApplication::clipboard()->clear();
  QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "");
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 3) << "captions and both";
  EXPECT_FALSE(clipboard.clipboardFull);
  EXPECT_DOUBLE_EQ(view.channel().selectionEnd.ms, 350.5);
  QTest::keyClick(&table, Qt::Key_Delete);
  EXPECT_EQ(table.model()->rowCount(), 0);
}

TEST_F(ToolWindows, TablesWithoutRowsCopyNothing) {
  CSonadexView& view = OpenSample();
  for (Tier& tier : view.channel().tiers) tier.labels.clear();
  Perform(Command::kViewLabels);
  Perform(Command::kLogNew);
  frame.labelList().Refresh();
  for (QTableView* const table : {&frame.labelList().table(), &frame.log().form().table()}) {
    SCOPED_TRACE(Typed(table->accessibleName()));
    ASSERT_EQ(table->model()->rowCount(), 0);
    table->window()->activateWindow();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, {20, 20});
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    for (int role = 0; role <= Qt::InitialSortOrderRole; ++role) {
      EXPECT_FALSE(table->model()->data({}, role).isValid()) << role;
    }
  }
  for (const int section : {-1, 99}) {
    const QAbstractItemModel& log = *frame.log().form().table().model();
    EXPECT_FALSE(log.headerData(section, Qt::Horizontal).isValid());
  }
}

TEST_F(ToolWindows, AModifiedLogAsksBeforeItCloses) {
  CSonadexView& view = OpenSample();
  Perform(Command::kLogNew);
  Select(view, 100.0, 200.0);
  Perform(Command::kEnterDuration);
  prompts.WillAnswer(Answer::kCancel);
  EXPECT_FALSE(frame.log().close());
  EXPECT_TRUE(app.log.has_value());
  prompts.WillAnswer(Answer::kNo);
  EXPECT_TRUE(frame.log().close());
  EXPECT_FALSE(app.log.has_value());
  EXPECT_FALSE(Enabled(Command::kEnterDuration));
  EXPECT_EQ(prompts.TakeTranscript().size(), 2U);
}

TEST(KeyboardLamps, AnyKeyboardsLampCounts) {
  const TemporaryFolder folder;
  for (const auto& [name, brightness] :
       {std::pair{"input3::capslock", "0"}, std::pair{"input9::capslock", "1"},
        std::pair{"input3::numlock", "0"}}) {
    std::filesystem::create_directory(folder / name);
    std::ofstream(folder / name + "/brightness") << brightness << '\n';
  }
  EXPECT_TRUE(IsLampLit(folder.path(), "capslock"));
  EXPECT_FALSE(IsLampLit(folder.path(), "numlock"));
  EXPECT_FALSE(IsLampLit(folder.path(), "scrolllock"));
  EXPECT_FALSE(IsLampLit(folder / "none", "capslock"));
}

}  // namespace
}  // namespace cantorix
