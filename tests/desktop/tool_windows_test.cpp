// tool_windows_test.cpp - the floating windows: display options, label list, log, keyboard panes.
#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "desktop/desktop_fixture.h"
#include "desktop/display_option_frame.h"
#include "desktop/keyboard_panes.h"
#include "desktop/label_list_frame.h"
#include "desktop/log_frame.h"
#include "mainview/view_commands.h"
#include "platform/numbers.h"
#include "settings/config_file.h"

namespace cantorix {
namespace {

class ToolWindows : public DesktopTest {
 protected:
  Settings Stored() {
    Settings settings;
    EXPECT_TRUE(DecodeRecord(ReadConfiguration(ConfigPath(folder.path())), settings));
    return settings;
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
  const Told told(view.document());
  int changes = 0;
  using Y = DisplaySettings;
  const std::pair<const char*, std::int32_t Y::*> switches[] = {
      {"Audio", &Y::drawAudio},
      {"Intensity", &Y::drawIntensity},
      {"Intensity in its own pane", &Y::intensityInOwnPane},
      {"Pitch", &Y::drawPitch},
      {"Tiers", &Y::drawTiers},
      {"Grids", &Y::drawGrids},
      {"Track mouse for all windows", &Y::trackMouse},
      {"Always perform Pitch and Intensity\nfor all files automatically.", &Y::automaticAnalysis}};
  for (const auto& [name, field] : switches) {
    const std::string text = name;
    SCOPED_TRACE(text);
    const auto boxes = frame.displayOptions().findChildren<QCheckBox*>();
    const auto box = std::ranges::find_if(
        boxes, [&](QCheckBox* found) { return Typed(found->text().remove('&')) == text; });
    ASSERT_NE(box, boxes.end());
    const DisplaySettings before = display;
    (*box)->click();
    EXPECT_EQ(told.settings, ++changes) << "the windows draw it";
    for (const auto& [other, each] : switches) {
      EXPECT_EQ(display.*each, each == field ? 1 - before.*each : before.*each) << other;
    }
    EXPECT_EQ(Stored().document.display.*field, display.*field);
  }
  frame.displayOptions().audioPercent().setValue(70);
  frame.displayOptions().timeBase().button(1)->click();
  frame.displayOptions().printWidth().setValue(10.5);
  frame.displayOptions().printUnit().setCurrentIndex(1);
  EXPECT_EQ(display.audioPanePercent, 70);
  EXPECT_EQ(display.printWidth, 10.5);
  EXPECT_EQ(Stored().document.display.printUnit, 1);
  EXPECT_EQ(Stored().document.display.printHeight, 4.0);
  EXPECT_EQ(display.timeBase, 1);
  EXPECT_EQ(Stored().document.display.timeBase, 1);
  EXPECT_EQ(Stored().document.display.pitchPanePercent, 50);
}

TEST_F(ToolWindows, DisplayOptionsFollowTheDocumentInFront) {
  EXPECT_FALSE(frame.displayOptions().isEnabled());
  OpenSample().document().settings.display.drawGrids = 0;
  Perform(Command::kNew);
  QApplication::processEvents();
  const auto grids = [&] {
    for (const auto& entry : frame.displayOptions().switches()) {
      if (entry.field == &DisplaySettings::drawGrids) return entry.box->isChecked();
    }
    return false;
  };
  EXPECT_TRUE(grids());
  frame.activeFrame()->close();
  EXPECT_FALSE(grids());
  EXPECT_EQ(frame.activeView()->document().settings.display.drawGrids, 0)
      << "showing a document may not change it";
}

TEST_F(ToolWindows, TheLabelListShowsTierTimeAndText) {
  CSonadexView& view = OpenSample();
  Perform(Command::kViewLabels);
  LabelListFrame& list = frame.labelList();
  EXPECT_EQ(list.windowTitle(), "Labels - vowels.qrv");
  const auto& tiers = view.channel().tiers;
  const QAbstractItemModel& model = *list.table().model();
  for (const int seconds : {0, 1}) {
    view.document().settings.display.timeBase = seconds;
    list.Refresh();
    int row = 0;
    for (const Tier& tier : tiers) {
      for (int i = 0; tier.inUse && i < tier.labelCount(); ++i, ++row) {
        const Label& label = tier.labels[static_cast<std::size_t>(i)];
        EXPECT_EQ(Text(list.table(), row, 0), tier.name);
        EXPECT_EQ(Text(list.table(), row, 1),
                  FormatOneDecimal(seconds == 1 ? label.timeMs * 0.001 : label.timeMs));
        EXPECT_EQ(Text(list.table(), row, 2), label.text);
      }
    }
    EXPECT_GT(row, 7);
    EXPECT_EQ(model.rowCount(), row);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal), seconds == 1 ? "Time (sec)" : "Time (ms)");
  }
  EXPECT_EQ(model.headerData(0, Qt::Horizontal), "Tier");
  EXPECT_EQ(model.headerData(2, Qt::Horizontal), "Label");
  EXPECT_EQ(model.headerData(4, Qt::Vertical), 5);
  EXPECT_EQ(model.index(0, 1).data(Qt::TextAlignmentRole).toInt(),
            Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_FALSE(model.index(0, 2).data(Qt::TextAlignmentRole).isValid());
}

TEST_F(ToolWindows, TheLabelListZoomsEditsAndDeletesTheRowThatIsChosen) {
  CSonadexView& view = OpenSample();
  Perform(Command::kViewLabels);
  LabelListFrame& list = frame.labelList();
  const auto buttonsWork = [&] {
    const auto buttons = list.findChildren<QPushButton*>();
    return std::all_of(buttons.begin(), buttons.end(),
                       [](const QPushButton* button) { return button->isEnabled(); });
  };
  const int labels = list.table().model()->rowCount();
  EXPECT_FALSE(buttonsWork());
  list.Delete();
  EXPECT_EQ(list.table().model()->rowCount(), labels) << "nothing is chosen";

  list.table().selectRow(3);
  EXPECT_TRUE(buttonsWork());
  const std::string fourth = Text(list.table(), 3, 2);
  const std::string fifth = Text(list.table(), 4, 2);
  const QPoint place = list.table().visualRect(list.table().model()->index(3, 2)).center();
  QTest::mouseClick(list.table().viewport(), Qt::LeftButton, {}, place);
  list.Zoom();
  EXPECT_TRUE(view.zoomed());
  QApplication::setActiveWindow(&list);
  list.table().setFocus();
  QTest::keyClick(&list.table(), Qt::Key_Delete);
  EXPECT_EQ(list.table().model()->rowCount(), labels - 1);
  EXPECT_EQ(Text(list.table(), 3, 2), fifth);
  EXPECT_EQ(list.table().currentIndex().row(), 3) << "the label that took its place";
  EXPECT_TRUE(view.document().isModified());

  Label edited;
  edited.text = "edited";
  edited.timeMs = std::stod(Text(list.table(), 3, 1));
  dialogs.label.WillGive({edited, false});
  list.Edit();
  ASSERT_EQ(dialogs.label.presets.size(), 1U);
  EXPECT_TRUE(dialogs.label.presets[0].exists);
  EXPECT_EQ(dialogs.label.presets[0].label.text, fifth);
  EXPECT_EQ(list.table().model()->rowCount(), labels - 1);
  EXPECT_EQ(list.table()
                .model()
                ->match(list.table().model()->index(0, 2), Qt::DisplayRole, "edited")
                .size(),
            1);
  Perform(Command::kUndo);
  EXPECT_EQ(Text(list.table(), 3, 2), fifth) << "of " << fourth;
  view.document().SetModified(false);
}

TEST_F(ToolWindows, TheLogShowsRowsAsTheyComeAndLosesThoseDeleted) {
  CSonadexView& view = OpenSample();
  Perform(Command::kLogNew);
  EXPECT_TRUE(frame.log().isVisible());
  SelectSpan(view, 100.0, 350.5);
  Perform(Command::kEnterDuration);
  Perform(Command::kEnterLabelsAll);
  QTableView& table = frame.log().form().table();
  ASSERT_GT(table.model()->rowCount(), 2);
  EXPECT_EQ(Text(table, 0, 0), "vowels.qrv");
  EXPECT_EQ(Text(table, 0, 4), "250.5");
  EXPECT_TRUE(frame.log().isWindowModified());

  const int rows = table.model()->rowCount();
  const std::string third = Text(table, 2, 3);
  table.selectRow(0);
  frame.log().form().CopyRows();
  EXPECT_EQ(QApplication::clipboard()->text(),
            "vowels.qrv\tDuration Entry: start, end, duration\t100.0\t350.5\t250.5\t\t\n");
  table.selectionModel()->select(table.model()->index(1, 0),
                                 QItemSelectionModel::Select | QItemSelectionModel::Rows);
  frame.log().form().DeleteRows();
  EXPECT_EQ(table.model()->rowCount(), rows - 2);
  EXPECT_EQ(Text(table, 0, 3), third);
  EXPECT_EQ(table.model()->headerData(2, Qt::Horizontal), "Entry 1");
  EXPECT_EQ(table.model()->headerData(0, Qt::Vertical), 1);
  EXPECT_EQ(table.model()->index(0, 2).data(Qt::TextAlignmentRole).toInt(),
            Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_FALSE(table.model()->index(0, 1).data(Qt::TextAlignmentRole).isValid());
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
  prompts.TakeTranscript();
}

TEST_F(ToolWindows, TheKeysOfTheLogAreNotThoseOfTheRecording) {
  CSonadexView& view = OpenSample();
  Perform(Command::kLogNew);
  SelectSpan(view, 100.0, 350.5);
  Perform(Command::kEnterDuration);
  Perform(Command::kEnterDuration);
  QApplication::setActiveWindow(&frame.log());
  QTableView& table = frame.log().form().table();
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 2);
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
}

TEST_F(ToolWindows, AModifiedLogAsksBeforeItCloses) {
  CSonadexView& view = OpenSample();
  Perform(Command::kLogNew);
  SelectSpan(view, 100.0, 200.0);
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

TEST_F(ToolWindows, PlacesAreRemembered) {
  OpenSample();
  Perform(Command::kViewLabels);
  frame.labelList().setGeometry(120, 130, 410, 320);
  QApplication::processEvents();
  const WindowPlacement& place = app.host.application.labelList;
  EXPECT_EQ(QRect(place.x, place.y, place.width, place.height), QRect(120, 130, 410, 320));
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
