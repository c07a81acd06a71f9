// commands_test.cpp - the command table against a list of its own, and where commands begin.
#include "mainview/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <set>

#include "mainview/view_fixture.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What a state holds, as letters: d a document, l loaded, z zoomed, m marker or s selection shown,
// v selection to save, c changed, u undo, p clipboard, g log open, a sound, r recording into the
// document, o into another one.
using State = std::string_view;

constexpr State kStates[] = {
    "",     "d",   "dp",   "dc",   "dg",   "da",          "dl",         "dlz",        "dlm",
    "dls",  "dlv", "dlc",  "dlu",  "du",   "dlg",         "dlgm",       "dlgs",       "dm",
    "dzsv", "dla", "dlas", "dlao", "dlar", "dlzsvcupgar", "dlzsvcupga", "dlzmcupgar", "dlzmcupga"};

struct Expectation {
  Command id;
  std::string_view text, accelerator;
  State needs;  // the letters that must all hold
  bool ofDocument = true;
};

constexpr bool kOfProgram = false;

constexpr Expectation kExpectations[] = {
    {Command::kNew, "&New", "Ctrl+N", "", kOfProgram},
    {Command::kOpen, "&Open...", "Ctrl+O", "", kOfProgram},
    {Command::kClose, "&Close", "", "d"},
    {Command::kSave, "&Save", "Ctrl+S", "dc"},
    {Command::kSaveAs, "Save &As...", "", "l"},
    {Command::kSaveCopyAs, "Save Copy As...", "", "l"},
    {Command::kSaveSelectionAs, "Save Selection As...", "", "lv"},
    {Command::kExportAsWave, "Export as Wave...", "", "l"},
    {Command::kExportSelectionAsWave, "Export Selection as Wave...", "", "lv"},
    {Command::kSaveAsBmp, "Save As bmp...", "", "l"},
    {Command::kSaveScreenAsBmp, "Save Screen As bmp...", "", "l"},
    {Command::kLoadConfiguration, "Load Configuration...", "", "", kOfProgram},
    {Command::kSaveConfiguration, "Save Configuration...", "", "d"},
    {Command::kRevertConfiguration, "Revert to Default Configuration", "", "", kOfProgram},
    {Command::kPrint, "&Print...", "Ctrl+P", "l"},
    {Command::kPrintScreen, "Print Screen...", "", "l"},
    {Command::kPrintPreview, "Print Pre&view", "", "l"},
    {Command::kPrintSetup, "Print Setup...", "", "", kOfProgram},
    {Command::kRecentFiles, "Recent File", "", "", kOfProgram},
    {Command::kExit, "E&xit", "", "", kOfProgram},
    {Command::kUndo, "&Undo", "Ctrl+Z", "lu"},
    {Command::kCut, "Cu&t", "Ctrl+X", "ls"},
    {Command::kCopy, "&Copy", "Ctrl+C", "ls"},
    {Command::kPaste, "&Paste", "Ctrl+V", "p"},
    {Command::kClearToReference, "Clear to Reference", "", "ls"},
    {Command::kSelectWindow, "Select Window", "", "l"},
    {Command::kSelectAll, "Select All", "Ctrl+A", "l"},
    {Command::kToolBar, "Toolbar", "", "", kOfProgram},
    {Command::kStatusBar, "Status Bar", "", "", kOfProgram},
    {Command::kZoomIn, "In", "Ctrl+B", "l"},
    {Command::kZoomOut, "Out", "Ctrl+E", "lz"},
    {Command::kZoomSelection, "Selection", "Ctrl+Q", "ls"},
    {Command::kZoomFromCursor, "From Cursor for Duration", "Ctrl+W", "lm"},
    {Command::kHome, "Home", "", "l"},
    {Command::kUnZoom, "UnZoom", "", "l"},
    {Command::kReferenceGain, "Reference/Gain...", "", "l"},
    {Command::kRecord, "Record", "Ctrl+R", "da"},
    {Command::kPlayAll, "Play All", "Ctrl+Y", "la"},
    {Command::kPlaySelection, "Play Selection", "Ctrl+U", "las"},
    {Command::kPlayWindow, "Play Window", "", "la"},
    {Command::kFftLpc, "FFT/LPC", "Ctrl+F", "lm"},
    {Command::kFftLpcSelection, "FFT/LPC Selection", "", "ls"},
    {Command::kSpectrogramAll, "Spectrogram All", "Ctrl+G", "l"},
    {Command::kSpectrogramSelection, "Spectrogram Selection", "Ctrl+H", "ls"},
    {Command::kSpectrogramWindow, "Spectrogram Window", "", "l"},
    {Command::kPitchAll, "Pitch All", "Ctrl+L", "l"},
    {Command::kPitchSelection, "Pitch Selection", "", "ls"},
    {Command::kPitchWindow, "Pitch Window", "", "l"},
    {Command::kIntensity, "Intensity", "", "l"},
    {Command::kSmooth, "Smooth", "", "l"},
    {Command::kSetReferenceOfAll, "Set Channels Reference All", "", "l"},
    {Command::kLabelEntryMode, "Enable Label Entry Mode", "", "l"},
    {Command::kSetTiers, "Set/Modify...", "", "l"},
    {Command::kImportLabels, "Import Labels into a Tier...", "", "l"},
    {Command::kViewLabels, "Vew Labels", "", "l"},
    {Command::kLogNew, "New", "", "d", kOfProgram},
    {Command::kLogOpen, "Open...", "", "d", kOfProgram},
    {Command::kLogSave, "Save", "", "dg", kOfProgram},
    {Command::kLogSaveAs, "Save As...", "", "dg", kOfProgram},
    {Command::kEnterDuration, "Enter Duration", "Ctrl+D", "gls"},
    {Command::kEnterPitchAtMarker, "Enter Pitch at Marker", "Ctrl+M", "glm"},
    {Command::kEnterPitchSelection, "Enter Pitch Selection", "", "gls"},
    {Command::kEnterPitchAll, "Enter Pitch All", "", "gl"},
    {Command::kEnterLabelsSelection, "Enter Labels Selection", "", "gls"},
    {Command::kEnterLabelsAll, "Enter Labels All", "", "gl"},
    {Command::kDisplayOptions, "Display", "", "l"},
    {Command::kRecordPlayOptions, "Record/Play", "", "da", kOfProgram},
    {Command::kZoomOptions, "Zoom...", "", "l"},
    {Command::kFftLpcOptions, "FFT/LPC...", "", "l"},
    {Command::kSpectrogramOptions, "Spectrogram...", "", "l"},
    {Command::kPitchOptions, "Pitch...", "", "l"},
    {Command::kIntensityOptions, "Intensity...", "", "l"},
    {Command::kLogOptions, "Log...", "", "l"},
    {Command::kNewWindow, "New Window", "", "d"},
    {Command::kCascade, "Cascade", "", "d", kOfProgram},
    {Command::kTile, "Tile", "", "d", kOfProgram},
    {Command::kArrangeIcons, "Arrange Icons", "", "d", kOfProgram},
    {Command::kCloseStatusWindow, "Close Status Window", "", "d", kOfProgram},
    {Command::kHelpTopics, "Help Topics", "", "", kOfProgram},
    {Command::kAbout, "&About Sonadex...", "", "", kOfProgram},
};

bool Holds(State state, char letter) { return state.find(letter) != State::npos; }

bool Expected(const Expectation& row, State state) {
  if (row.ofDocument && Holds(state, 'r')) return false;
  if (row.id == Command::kRecord && Holds(state, 'o')) return false;
  for (const char letter : row.needs) {
    if (!Holds(state, letter)) return false;
  }
  return true;
}

class SoundInState : public CountingPlayback {
 public:
  explicit SoundInState(State state) : state_(state) {}
  SoundState Sound() const override {
    const bool here = Holds(state_, 'r');
    return {Holds(state_, 'a'), here || Holds(state_, 'o'), here};
  }

 private:
  State state_;
};

// The facts of a real view in that state.
Facts FactsIn(State state) {
  if (state.empty()) return FactsOf(nullptr);
  ViewWorld world;
  SoundInState sound(state);
  CSonadexDoc document(world.test.host);
  document.loaded = Holds(state, 'l');
  document.SetModified(Holds(state, 'c'));
  world.clipboard.clipboardFull = Holds(state, 'p');
  world.logOpen = Holds(state, 'g');
  ViewServices services{world.clipboard,         "",    world.textMeasurer,
                        world.listener,          sound, world.dialogs,
                        world.Services().openLog};
  CSonadexView view(document, services);
  document.channel().totalLength = document.channel().visibleEnd.samples = 10.0;
  document.channel().visibleStart.samples = Holds(state, 'z') ? 5.0 : 0.0;
  view.FollowStretch();
  if (Holds(state, 'm')) view.SetMarker();
  if (Holds(state, 's')) view.SetSelection();
  document.hasSelection = Holds(state, 'v');
  view.undoAvailable = Holds(state, 'u');
  return FactsOf(&view);
}

TEST(Commands, AreEnabledInEveryStateAsExpected) {
  for (const State state : kStates) {
    const Facts facts = FactsIn(state);
    for (const Expectation& row : kExpectations) {
      EXPECT_EQ(IsEnabled(RowOf(row.id), facts), Expected(row, state))
          << row.text << " in state \"" << state << '"';
    }
  }
}

TEST(Commands, BearTheirTextsAndKeys) {
  for (const Expectation& row : kExpectations) {
    EXPECT_EQ(RowOf(row.id).text, row.text);
    EXPECT_EQ(RowOf(row.id).accelerator, row.accelerator) << row.text;
  }
}

TEST(Commands, StandInOneUnambiguousPlaceEach) {
  std::set<Command> ids;
  std::set<std::pair<Menu, std::string_view>> places;
  std::set<std::string_view> keys;
  std::set<std::pair<Menu, char>> mnemonics;
  Menu menu = Menu::kFile;
  for (const CommandRow& row : CommandTable()) {
    EXPECT_TRUE(ids.insert(row.id).second) << row.text;
    EXPECT_TRUE(places.emplace(row.menu, row.text).second) << row.text;
    EXPECT_TRUE(row.accelerator.empty() || keys.insert(row.accelerator).second) << row.accelerator;
    const std::size_t mark = row.text.find('&');
    if (mark != std::string_view::npos) {
      EXPECT_TRUE(mnemonics.emplace(row.menu, std::tolower(row.text.at(mark + 1))).second)
          << row.text;
    }
    EXPECT_FALSE(row.status.empty() || row.toolTip.empty()) << row.text;
    EXPECT_TRUE(row.menu != Menu::kNone || row.toolGroup > 0) << row.text << " is nowhere";
    if (row.menu == Menu::kNone) continue;
    EXPECT_GE(row.menu, menu) << row.text << " stands apart from its menu";
    menu = row.menu;
  }
  EXPECT_EQ(ids.size(), std::size(kExpectations));
}

TEST(Commands, OldSpellingsOfTheMenusAreKept) {
  EXPECT_EQ(RowOf(Command::kViewLabels).text, "Vew Labels");
  EXPECT_EQ(RowOf(Command::kAbout).text, "&About Sonadex...");
}

using RunCommandTest = ViewTest;

TEST_F(RunCommandTest, RunsWhatIsEnabledAndNothingElse) {
  ViewedRecording recording(world, Ramp(1000));
  EXPECT_FALSE(RunCommand(recording.view, Command::kCut));  // nothing is selected
  EXPECT_FALSE(RunCommand(recording.view, Command::kEnterPitchAll));
  EXPECT_FALSE(RunCommand(recording.view, Command::kPrint));  // the frame's
  EXPECT_FALSE(recording.document.isModified());

  EXPECT_TRUE(RunCommand(recording.view, Command::kSelectAll));
  EXPECT_TRUE(RunCommand(recording.view, Command::kZoomIn));
  EXPECT_TRUE(recording.view.zoomed() && recording.view.selectionShown());
  world.logOpen = true;
  EXPECT_TRUE(RunCommand(recording.view, Command::kEnterDuration));
  ASSERT_EQ(world.log.entries.size(), 1U);
  EXPECT_THAT(world.log.entries[0].columns, ElementsAre("0.0", "1000.0", "1000.0"));
}

TEST_F(RunCommandTest, NamesLabelEntryByWhatAClickWouldDo) {
  ViewedRecording recording(world, Ramp(1000));
  const CommandRow& row = RowOf(Command::kLabelEntryMode);
  EXPECT_EQ(MenuText(row, nullptr), "Enable Label Entry Mode");
  EXPECT_EQ(MenuText(row, &recording.view), "Enable Label Entry Mode");
  EXPECT_TRUE(RunCommand(recording.view, Command::kLabelEntryMode));
  EXPECT_EQ(MenuText(row, &recording.view), "Disable Label Entry Mode");
  EXPECT_EQ(MenuText(RowOf(Command::kUndo), &recording.view), "&Undo");
}

TEST_F(RunCommandTest, EndsAFailedSaveSilentlyAfterItsMessage) {
  ViewedRecording recording(world, Ramp(10));
  world.test.prompts.WillChooseFile(world.temporary / "no folder/out");
  EXPECT_FALSE(RunCommand(recording.view, Command::kSaveAs));
  EXPECT_EQ(world.test.prompts.TakeTranscript().back(), "message: Error in save operation.");
}

TEST_F(RunCommandTest, GuardShowsErrorsAndIsSilentAboutWhatWasGivenUp) {
  ViewedRecording recording(world, Ramp(10));
  auto& prompts = world.test.prompts;
  EXPECT_TRUE(Guarded(recording.view, [] {}));
  recording.view.redrawNeeded = false;
  EXPECT_FALSE(Guarded(recording.view, [] { throw Abandoned(AbandonReason::kCancelled); }));
  EXPECT_TRUE(recording.view.redrawNeeded);
  EXPECT_THAT(prompts.TakeTranscript(), IsEmpty());
  EXPECT_FALSE(Guarded(recording.view, [] { throw FileError("The store is gone."); }));
  EXPECT_FALSE(Guarded(recording.view, [] { throw std::bad_alloc(); }));
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("message: The store is gone.", "message: There is not enough memory."));
}

}  // namespace
}  // namespace cantorix
