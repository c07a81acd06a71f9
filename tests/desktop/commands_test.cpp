// commands_test.cpp - menus, accelerators and enabling as the user meets them.
#include <QLineEdit>
#include <QMenuBar>
#include <QSpinBox>
#include <filesystem>

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
      if (row.id == Command::kRecentFiles) continue;  // gave its place to the files
      EXPECT_EQ(Enabled(row.id), IsEnabled(row, facts)) << row.text;
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

TEST_F(Commands, WhatAViewCarriesOutNeedsADocument) {
  for (const CommandRow& row : CommandTable()) {
    EXPECT_TRUE(row.carrier.IsFor<FrameActions>() || (row.needs & fact::kDocument) != 0U)
        << row.text;
  }
}

TEST_F(Commands, AMouseEventRefreshesTheFrameOnce) {
  OpenSample();
  QApplication::processEvents();
  analyses.refreshes = 0;
  QTest::mousePress(&Picture(), Qt::LeftButton, {}, {300, 200});
  EXPECT_EQ(analyses.refreshes, 1);
  QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, {360, 200});
  EXPECT_EQ(analyses.refreshes, 2);
}

TEST_F(Commands, AnalysesAreAskedForByKindAndStretch) {
  OpenSample();
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {300, 200});
  EXPECT_THAT(analyses.moves, ElementsAre(MousePhase::kPress, MousePhase::kRelease));
  struct Row {
    Command command;
    AnalysisKind kind;
    std::optional<Stretch> stretch;
  };
  const auto check = [&](const Row& row) {
    analyses.opened.clear();
    Perform(row.command);
    ASSERT_EQ(analyses.opened.size(), 1U) << RowOf(row.command).text;
    EXPECT_EQ(analyses.opened[0].kind, row.kind) << RowOf(row.command).text;
    EXPECT_EQ(analyses.opened[0].stretch, row.stretch) << RowOf(row.command).text;
  };
  check({Command::kFftLpc, AnalysisKind::kFftLpc, std::nullopt});
  Perform(Command::kSelectAll);
  for (const Row& row :
       {Row{Command::kFftLpcSelection, AnalysisKind::kFftLpc, Stretch::kSelection},
        Row{Command::kSpectrogramAll, AnalysisKind::kSpectrogram, Stretch::kAll},
        Row{Command::kSpectrogramSelection, AnalysisKind::kSpectrogram, Stretch::kSelection},
        Row{Command::kSpectrogramWindow, AnalysisKind::kSpectrogram, Stretch::kWindow},
        Row{Command::kPitchAll, AnalysisKind::kPitch, Stretch::kAll},
        Row{Command::kPitchSelection, AnalysisKind::kPitch, Stretch::kSelection},
        Row{Command::kPitchWindow, AnalysisKind::kPitch, Stretch::kWindow}}) {
    check(row);
  }
  frame.activeFrame()->close();
  EXPECT_EQ(analyses.closed, 1);
}

TEST_F(Commands, PrintsAndPicturesAreAskedForOneByOne) {
  OpenSample();
  for (const Command command :
       {Command::kSaveAsBmp, Command::kSaveScreenAsBmp, Command::kPrint, Command::kPrintScreen,
        Command::kPrintPreview, Command::kPrintSetup}) {
    Perform(command);
  }
  EXPECT_THAT(outputs.done, ElementsAre("save picture", "save screen", "print", "print screen",
                                        "preview", "set up"));
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
  EXPECT_EQ(frame.actions().recentActions()[0]->statusTip(), ShownPath(SamplePath()));
  EXPECT_FALSE(frame.actions().ActionOf(Command::kRecentFiles).isVisible());
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
  std::filesystem::current_path(folder.path());
  Perform(Command::kHelpTopics);
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("message: No help file was found. Please contact the vendor."));
  std::filesystem::create_directory(folder / "Manual");
  WriteBytes(folder / "Manual/HelpIndex.html", {});
  Perform(Command::kHelpTopics);
  EXPECT_THAT(opener.opened, ElementsAre(folder / "Manual/HelpIndex.html"));
  std::filesystem::current_path("/");
}

TEST_F(Commands, ButtonsSayWhatTheyDo) {
  struct Row {
    Command command;
    const char* status;
    const char* toolTip;
  };
  for (const Row& row :
       {Row{Command::kViewLabels, "View the label list", "View Labels"},
        Row{Command::kIntensity, "Perform power intensity of the waveform", "Intensity"},
        Row{Command::kSmooth, "Smooth the data", "Smooth"},
        Row{Command::kSetReferenceOfAll, "Set the reference for all channels",
            "Set Channels Reference All"},
        Row{Command::kRecord, "Start recording", "Record"},
        Row{Command::kPlayWindow, "Play the section of the file displayed in the current window",
            "Play Window"},
        Row{Command::kFftLpc, "Perform FFT & LPC analysis", "FFT/LPC"},
        Row{Command::kSpectrogramWindow, "Perform spectrogram on the window",
            "Spectrogram Window"}}) {
    const QAction& action = frame.actions().ActionOf(row.command);
    EXPECT_EQ(action.statusTip(), row.status);
    EXPECT_EQ(action.toolTip(), row.toolTip);
    EXPECT_TRUE(frame.actions().toolBar().actions().contains(&action)) << row.toolTip;
  }
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
