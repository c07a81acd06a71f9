// commands_test.cpp - menus, accelerators and enabling as the user meets them.
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>
#include <filesystem>

#include "desktop/desktop_fixture.h"
#include "desktop/dialog_helpers.h"
#include "desktop/display_option_frame.h"
#include "document/document.h"
#include "mainview/label_entry_state.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

using testing::ElementsAre;

class Commands : public DesktopTest {
 protected:
  // The colour of the first opaque pixel of a drawing.
  static QString InkOf(const QIcon& icon, QIcon::Mode mode) {
    const QImage drawing = icon.pixmap(22, mode).toImage();
    for (int i = 0; i < drawing.width() * drawing.height(); ++i) {
      const QColor ink = drawing.pixelColor(i % drawing.width(), i / drawing.width());
      if (ink.alpha() == 255) return ink.name();
    }
    return "none";
  }
  static QString LineOf(const QAction& action) {
    if (action.isSeparator()) return "--\n";
    const QIcon icon = action.icon();
    QStringList parts{action.text(), action.shortcut().toString(), action.toolTip(),
                      action.statusTip()};
    if (!icon.isNull()) {
      if (action.isIconVisibleInMenu()) parts << "drawn in menus";
      for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Selected}) {
        parts << InkOf(icon, mode);
      }
    }
    return parts.join(" | ") + '\n';
  }
  // What is to be seen of a menu or a tool bar.
  static QString LinesOf(const QString& title, const QList<QAction*>& actions) {
    QString lines = "== " + title + " ==\n";
    for (const QAction* const action : actions) {
      if (action->isVisible()) lines += LineOf(*action);
    }
    return lines;
  }
  std::string Bars() {
    QString sheet;
    for (QAction* const menu : frame.menuBar()->actions()) {
      if (menu->isVisible()) sheet += LinesOf(menu->text(), menu->menu()->actions());
    }
    const QToolBar& bar = frame.actions().toolBar();
    sheet += LinesOf(bar.windowTitle(), bar.actions()) + "== Keys ==\n";
    for (const QLabel* const pane : frame.statusBar()->findChildren<QLabel*>()) {
      sheet += pane->text() + " | " + pane->toolTip() + '\n';
    }
    return Typed(sheet);
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
    const QKeyCombination key =
        QKeySequence(QString::fromUtf8(accelerator.data(), ssize(accelerator)))[0];
    QTest::keyClick(&widget, key.key(), key.keyboardModifiers());
  }
};

// In menus and tool bar: text, key, tooltip, status, and the ink of the drawing.
TEST_F(Commands, ButtonsSayWhatTheyDo) {
  const std::string without = Bars();
  Perform(Command::kNew);
  ExpectText("desktop/expected/Menus.txt",
             "Without a document\n" + without + "\nWith a document\n" + Bars());
  frame.activeFrame()->close();
  EXPECT_EQ(Bars(), without);
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
  for (const Command next : {Command::kZoomIn, Command::kSelectAll, Command::kLogNew}) {
    SCOPED_TRACE(RowOf(next).text);
    EXPECT_FALSE(Enabled(Command::kEnterDuration));
    const Facts facts = FactsOf(&view);
    for (const CommandRow& row : CommandTable()) {
      if (row.id == Command::kRecentFiles) continue;  // gave its place to the files
      EXPECT_EQ(Enabled(row.id), IsEnabled(row, facts)) << row.text;
    }
    Perform(next);
  }
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
  Perform(Command::kSelectAll);
  using Asked = std::pair<WindowKind, std::optional<Stretch>>;
  for (const auto& [command, asked] :
       {std::pair{Command::kFftLpcSelection, Asked{WindowKind::kFftLpc, Stretch::kSelection}},
        {Command::kSpectrogramAll, {WindowKind::kSpectrogram, Stretch::kAll}},
        {Command::kSpectrogramSelection, {WindowKind::kSpectrogram, Stretch::kSelection}},
        {Command::kSpectrogramWindow, {WindowKind::kSpectrogram, Stretch::kWindow}},
        {Command::kPitchAll, {WindowKind::kPitch, Stretch::kAll}},
        {Command::kPitchSelection, {WindowKind::kPitch, Stretch::kSelection}},
        {Command::kPitchWindow, {WindowKind::kPitch, Stretch::kWindow}},
        {Command::kFftLpc, {WindowKind::kFftLpc, std::nullopt}}}) {
    if (command == Command::kFftLpc) Mark(*frame.activeView(), 500.0);
    analyses.opened.clear();
    Perform(command);
    ASSERT_EQ(analyses.opened.size(), 1U);
    EXPECT_TRUE(Asked(analyses.opened[0].kind, analyses.opened[0].stretch) == asked)
        << RowOf(command).text;
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

TEST_F(Commands, TheAboutBoxNamesProgramVersionAndPurpose) {
  QApplication::setApplicationVersion("9.8");
  DialogUser<QMessageBox> user([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "About Cantorix");
    EXPECT_EQ(box.text(), "<b>Cantorix 9.8</b>");
    EXPECT_EQ(box.informativeText(),
              QString("A speech-analysis workstation for phoneticians and speech scientists.\n\n"
                      "Built with Qt %1.")
                  .arg(qVersion()));
    EXPECT_EQ(box.iconPixmap().width(), 64);
    box.accept();
  });
  Perform(Command::kAbout);
  EXPECT_EQ(user.used, 1);
}

TEST_F(Commands, ConfigurationsAreSavedAndLoaded) {
  CSonadexView& view = OpenSample();
  for (const double rangeMs : {333.0, 444.0}) {
    view.document().settings.zoomRangeMs = rangeMs;
    prompts.WillChooseFile(folder / "own.cfg");
    Perform(rangeMs == 333.0 ? Command::kSaveConfiguration : Command::kLoadConfiguration);
  }
  EXPECT_EQ(view.document().settings.zoomRangeMs, 333.0);
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("save: Save Configuration As", "open: Load a Configuration file"));
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

}  // namespace
}  // namespace cantorix
