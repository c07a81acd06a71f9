// commands_test.cpp - the command table as approved, and where commands begin.
#include "mainview/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <set>

#include "mainview/view_fixture.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What a state holds, as letters: d a document, l loaded, z zoomed, m marker or s selection shown,
// v selection to save, c changed, u undo, p clipboard, g log open, r recording into the document,
// o into another one.
using State = std::string_view;

constexpr State kStates[] = {"",           "d",         "dp",        "dc",      "dg",  "dl",  "dlz",
                             "dlm",        "dls",       "dlv",       "dlc",     "dlu", "du",  "dlg",
                             "dlgm",       "dlgs",      "dm",        "dzsv",    "do",  "dlo", "dlr",
                             "dlzsvcupgr", "dlzsvcupg", "dlzmcupgr", "dlzmcupg"};

bool Holds(State state, char letter) { return state.find(letter) != State::npos; }

class SoundInState : public CountingPlayback {
 public:
  explicit SoundInState(State state) : state_(state) {}
  SoundState Sound() const override {
    const bool here = Holds(state_, 'r');
    return {here || Holds(state_, 'o'), here};
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

// A line for each command: in which states it is enabled ("x"), its menu, separator, text, group of
// the tool bar, tool tip, and whether it works during another operation.
TEST(Commands, StandInTheirMenusAndAreEnabledInEveryStateAsApproved) {
  std::vector<Facts> facts;
  std::string table;
  for (const State state : kStates) {
    facts.push_back(FactsIn(state));
    table += "[" + std::string(state) + "] ";
  }
  for (const CommandRow& row : CommandTable()) {
    EXPECT_EQ(&RowOf(row.id), &row) << row.text;
    table += '\n';
    for (const Facts& state : facts) table += IsEnabled(row, state) ? 'x' : '.';
    table += " | " + Joined(MenuTitle(row.menu), row.separator ? "| -" : "|", row.text, "|",
                            row.toolGroup, "|", row.toolTip, row.whileBusy ? "| busy" : "|");
  }
  ExpectText("mainview/expected/Commands.txt", table + '\n');
}

TEST(Commands, SayWhyTheyAreGreyed) {
  struct Row {
    State state;
    Command command;
    const char* text;
  };
  for (const Row& row :
       {Row{"dls", Command::kCut, "Move the selection to the clipboard"},
        Row{"dl", Command::kCut, "Move the selection to the clipboard (select a stretch first)"},
        Row{"d", Command::kPrint, "Print the recording (open a recording first)"},
        Row{"", Command::kClose, "Close the document (open a recording first)"},
        Row{"dlr", Command::kClose, "Close the document (a recording runs)"},
        Row{"dl", Command::kSave, "Save the document (nothing has changed)"},
        Row{"dl", Command::kUndo, "Take the last edit back (there is no edit to take back)"},
        Row{"dl", Command::kPaste,
            "Insert the clipboard at the cursor or in place of the selection (cut or copy a "
            "stretch first)"}}) {
    EXPECT_EQ(StatusText(RowOf(row.command), FactsIn(row.state)), row.text);
  }
  const auto reason = [](State state, Command command) {
    const std::string text = StatusText(RowOf(command), FactsIn(state));
    return text.substr(RowOf(command).status.size());
  };
  EXPECT_EQ(reason("dls", Command::kEnterDuration), " (open a log first)");
  EXPECT_EQ(reason("dlgs", Command::kEnterPitchAtMarker), " (click to set the cursor first)");
  EXPECT_EQ(reason("dl", Command::kZoomOut), " (the whole recording is in sight)");
  EXPECT_EQ(reason("do", Command::kRecord), " (a recording runs)");
}

TEST(Commands, HaveKeysAndMnemonicsOfTheirOwn) {
  std::set<State> keys;
  std::set<std::pair<Menu, char>> mnemonics;
  for (const CommandRow& row : CommandTable()) {
    EXPECT_TRUE(row.accelerator.empty() || keys.insert(row.accelerator).second) << row.accelerator;
    const std::size_t mark = row.text.find('&');
    if (mark == State::npos) continue;
    EXPECT_TRUE(mnemonics.emplace(row.menu, std::tolower(row.text.at(mark + 1))).second)
        << row.text;
  }
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
