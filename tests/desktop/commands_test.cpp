// commands_test.cpp - menus, accelerators and enabling as the user meets them.
#include <QLineEdit>
#include <QMenuBar>
#include <QSpinBox>

#include "desktop/desktop_fixture.h"
#include "desktop/display_option_frame.h"
#include "document/document.h"
#include "mainview/label_entry_state.h"
#include "mainview/view_commands.h"

namespace cantorix {
namespace {

using testing::ElementsAre;

class Commands : public DesktopTest {
 protected:
  // The titles of the menu bar, without mnemonics.
  std::vector<std::string> Menus() {
    std::vector<std::string> titles;
    for (const QAction* const action : frame.menuBar()->actions()) {
      if (action->isVisible()) titles.push_back(Typed(action->text()));
    }
    return titles;
  }
  // The texts of a menu's entries, which all are reachable.
  std::vector<std::string> Entries(Menu menu) {
    std::vector<std::string> texts;
    for (const QAction* const action : frame.actions().MenuOf(menu).actions()) {
      if (action->isVisible() && !action->isSeparator()) texts.push_back(Typed(action->text()));
    }
    return texts;
  }

  // Commands whose accelerator was typed, carried out by nobody: every one of them is enabled.
  std::vector<Command> reached;
  void Intercept() {
    for (const CommandRow& row : CommandTable()) {
      QAction& action = frame.actions().ActionOf(row.id);
      action.disconnect();
      action.setEnabled(true);
      QObject::connect(&action, &QAction::triggered, &frame,
                       [this, id = row.id] { reached.push_back(id); });
    }
  }
  void Type(QWidget& widget, std::string_view accelerator) {
    ASSERT_TRUE(accelerator.starts_with("Ctrl+")) << accelerator;
    QTest::keyClick(&widget, accelerator.back(), Qt::ControlModifier);
  }
};

TEST_F(Commands, WithoutADocumentThreeMenusShowWhatNeedsNone) {
  EXPECT_THAT(Menus(), ElementsAre("&File", "&View", "&Help"));
  EXPECT_THAT(Entries(Menu::kFile), ElementsAre("&New", "&Open...", "Load Configuration...",
                                                "Revert to Default Configuration", "Print Setup...",
                                                "Recent File", "E&xit"));
  OpenSample();
  EXPECT_EQ(Menus().size(), 12U);
  frame.activeFrame()->close();
  EXPECT_EQ(Menus().size(), 3U);
}

TEST_F(Commands, EveryAcceleratorReachesItsCommandFromThePicture) {
  OpenSample();
  Picture().setFocus();
  Intercept();
  for (const CommandRow& row : CommandTable()) {
    if (row.accelerator.empty()) continue;
    SCOPED_TRACE(row.accelerator);
    reached.clear();
    Type(Picture(), row.accelerator);
    EXPECT_THAT(reached, ElementsAre(row.id));
    EXPECT_NE(frame.activeView(), nullptr);
  }
}

TEST_F(Commands, AcceleratorsPassThroughTheFieldsOfAFloatingWindow) {
  OpenSample();
  frame.ShowDisplayOptions();
  QApplication::setActiveWindow(&frame.displayOptions());
  QSpinBox& field = frame.displayOptions().audioPercent();
  field.setFocus();
  Intercept();
  auto* const line = field.findChild<QLineEdit*>();
  for (const Command command : {Command::kPlaySelection, Command::kZoomOut}) {
    reached.clear();
    Type(*line, RowOf(command).accelerator);
    EXPECT_THAT(reached, ElementsAre(command));
  }
}

TEST_F(Commands, EnablingFollowsTheTable) {
  CSonadexView& view = OpenSample();
  const auto check = [&](const char* state) {
    SCOPED_TRACE(state);
    frame.Refresh();
    const Facts facts = FactsOf(&view);
    for (const CommandRow& row : CommandTable()) {
      if (frame.actions().ActionOf(row.id).isEnabled()) {
        EXPECT_TRUE(IsEnabled(row, facts)) << row.text;
      } else if (IsEnabled(row, facts)) {
        // Nothing draws, prints or opens analysis windows in this program.
        EXPECT_EQ(row.handler, nullptr) << row.text;
      }
    }
  };
  check("loaded");
  EXPECT_FALSE(Enabled(Command::kZoomOut));
  EXPECT_FALSE(Enabled(Command::kCut));
  Perform(Command::kZoomIn);
  check("zoomed");
  EXPECT_TRUE(Enabled(Command::kZoomOut));
  PlaceMarker(view, 300.0);
  check("marker");
  EXPECT_TRUE(Enabled(Command::kZoomFromCursor));
  Perform(Command::kSelectAll);
  check("selection");
  EXPECT_TRUE(Enabled(Command::kCut));
  EXPECT_FALSE(Enabled(Command::kEnterDuration));
  Perform(Command::kLogNew);
  check("log open");
  EXPECT_TRUE(Enabled(Command::kEnterDuration));
}

TEST_F(Commands, WhatIsNotBuiltInStaysDisabled) {
  OpenSample();
  Perform(Command::kSelectAll);
  for (const Command command :
       {Command::kFftLpcSelection, Command::kSpectrogramAll, Command::kPrint, Command::kSaveAsBmp,
        Command::kRecord, Command::kPlayAll, Command::kRecordPlayOptions}) {
    EXPECT_FALSE(Enabled(command)) << RowOf(command).text;
  }
}

class RecordingWindows : public AnalysisWindows {
 public:
  bool Offers(AnalysisKind kind) const override { return kind == AnalysisKind::kSpectrogram; }
  void Open(CSonadexView&, const AnalysisRequest& request) override { opened.push_back(request); }
  void CursorMoved(CSonadexView&, MousePhase phase, double) override { moves.push_back(phase); }
  void RefreshCommands() override {}
  void CloseWindowsOf(CSonadexView&) override { ++closed; }
  CSonadexView* ViewOf(const QMdiSubWindow&) const override { return nullptr; }

  std::vector<AnalysisRequest> opened;
  std::vector<MousePhase> moves;
  int closed = 0;
};

TEST_F(Commands, AnalysisWindowsAreAskedForByKindAndStretch) {
  RecordingWindows windows;
  frame.SetAnalysisWindows(&windows);
  OpenSample();
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {300, 200});
  Perform(Command::kSelectAll);
  EXPECT_FALSE(Enabled(Command::kFftLpcSelection));
  Perform(Command::kSpectrogramSelection);
  Perform(Command::kSpectrogramAll);
  ASSERT_EQ(windows.opened.size(), 2U);
  EXPECT_EQ(windows.opened[0].stretch, Stretch::kSelection);
  EXPECT_EQ(windows.opened[1].stretch, Stretch::kAll);
  EXPECT_THAT(windows.moves, ElementsAre(MousePhase::kPress, MousePhase::kRelease));
  frame.activeFrame()->close();
  EXPECT_EQ(windows.closed, 1);
  frame.SetAnalysisWindows(nullptr);
}

TEST_F(Commands, TheLabelEntryCommandNamesWhatAClickWouldDo) {
  OpenSample();
  QAction& action = frame.actions().ActionOf(Command::kLabelEntryMode);
  EXPECT_EQ(action.text(), "Enable Label Entry Mode");
  action.trigger();
  EXPECT_EQ(action.text(), "Disable Label Entry Mode");
  EXPECT_TRUE(frame.activeView()->labelEntry.enabled);
}

TEST_F(Commands, RecentFilesOpenAgainAndMissingOnesGo) {
  OpenSample();
  ASSERT_EQ(frame.actions().recentActions().size(), 1U);
  EXPECT_EQ(frame.actions().recentActions()[0]->text(), "&1 vowels.qrv");
  frame.activeFrame()->close();
  frame.actions().recentActions()[0]->trigger();
  QApplication::processEvents();
  ASSERT_NE(frame.activeView(), nullptr);
  EXPECT_EQ(frame.activeView()->document().pathName(), app.recentFiles.paths()[0]);

  app.recentFiles.Add(folder / "gone.qrv");
  frame.Refresh();
  frame.actions().recentActions()[0]->trigger();
  EXPECT_EQ(prompts.TakeTranscript().size(), 1U);
  EXPECT_EQ(frame.actions().recentActions().size(), 1U);
}

TEST_F(Commands, HelpOpensTheManualOfTheCurrentFolder) {
  Perform(Command::kHelpTopics);
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("message: No help file was found. Please contact the vendor."));
}

TEST_F(Commands, ToolBarAndStatusBarComeAndGo) {
  for (const Command command : {Command::kToolBar, Command::kStatusBar}) {
    QAction& action = frame.actions().ActionOf(command);
    EXPECT_TRUE(action.isChecked());
    action.trigger();
    EXPECT_FALSE(action.isChecked());
    action.trigger();
    EXPECT_TRUE(action.isChecked());
  }
}

TEST_F(Commands, EveryButtonOfTheToolBarHasADrawing) {
  for (const CommandRow& row : CommandTable()) {
    const bool drawn = !frame.actions().ActionOf(row.id).icon().isNull();
    EXPECT_EQ(drawn, row.toolGroup > 0) << row.text;
  }
}

}  // namespace
}  // namespace cantorix
