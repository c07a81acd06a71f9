// commands_test.cpp - the command table against a list of its own, and where commands begin.
#include "mainview/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
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
// v selection to save, c changed, u undo, p clipboard, g log open, r recording into the document,
// o into another one.
using State = std::string_view;

constexpr State kStates[] = {"",           "d",         "dp",        "dc",      "dg",  "dl",  "dlz",
                             "dlm",        "dls",       "dlv",       "dlc",     "dlu", "du",  "dlg",
                             "dlgm",       "dlgs",      "dm",        "dzsv",    "do",  "dlo", "dlr",
                             "dlzsvcupgr", "dlzsvcupg", "dlzmcupgr", "dlzmcupg"};

// The menus from the bar on. "-" stands before a group of entries, a number after the text of one
// that has a button in that group of the tool bar, "*" after one that works during another
// operation. What it needs stands behind the colon: the letters of a state that must all hold, i
// for no recording into the document, n for none anywhere. The keys stand on the manual's page of
// commands, which is compared with the table elsewhere.
constexpr State kMenus =
    R"([&File]|&New 1:|&Open... 1:|&Close:di|-&Save 1:dci|Save &As...:li|Save Copy As...:li
|Save Selection As...:lvi|-Export as Wave...:li|Export Selection as Wave...:lvi|-Save As bmp...:li
|Save Screen As bmp...:li|-Load Configuration...:|Save Configuration...:di
|Revert to Default Configuration:|-&Print... 1:li|Print Screen...:li|Print Pre&view:li
|Print Setup...:|-Recent File:|-E&xit:
[&Edit]|&Undo 2:lui|-Cu&t 2:lsi|&Copy 2:lsi|&Paste 2:pi|Clear to Reference:lsi|-Select Window:li
|Select All:li
[&View]|Toolbar:|Status Bar:
[&Zoom]|In 3:li|Out 3:lzi|Selection 3:lsi|From Cursor for Duration:lmi|Home 3:li|UnZoom 3:li
[Reference/&Gain]|Reference/Gain...:li
[&Record/Play]|Record 4:dn|-Play All 4:li|Play Selection 4:lsi|Play Window 4:li
[&Analysis]|FFT/LPC 5:lmi|FFT/LPC Selection:lsi|-Spectrogram All:li|Spectrogram Selection:lsi
|Spectrogram Window 5:li|-Pitch All 5:li|Pitch Selection:lsi|Pitch Window:li
[]|Intensity 5:li|Smooth 5:li|Set Channels Reference All 5:li
[&Tiers/Labels]|Enable Label Entry Mode 6:li|Set/Modify...:li|Import Labels into a Tier...:li
|-Vew Labels 6:li
[&Log]|New:d|Open...:d|Save:dg|Save As...:dg|-Enter Duration:glsi|Enter Pitch at Marker:glmi
|Enter Pitch Selection:glsi|Enter Pitch All:gli|Enter Labels Selection:glsi|Enter Labels All:gli
[&Options]|Display:li|Record/Play:d|-Zoom...:li|FFT/LPC...:li|Spectrogram...:li|Pitch...:li
|Intensity...:li|Log...:li
[&Window]|New Window:di|Cascade:d|Tile:d|Arrange Icons:d|-Close Status Window*:d
[&Help]|Help Topics 7:|-&About Sonadex...:)";

struct Entry {
  State menu, text, needs;
};

std::vector<Entry> Entries() {
  std::vector<Entry> entries;
  State menu;
  for (std::size_t at = 0; at < kMenus.size();) {
    const std::size_t end = std::min(kMenus.find_first_of("|\n", at), kMenus.size());
    const State entry = kMenus.substr(at, end - at);
    const std::size_t colon = entry.rfind(':');
    if (entry.starts_with('[')) menu = entry.substr(1, entry.size() - 2);
    if (colon != State::npos) {
      entries.push_back({menu, entry.substr(0, colon), entry.substr(colon + 1)});
    }
    at = end + 1;
  }
  return entries;
}

bool Holds(State state, char letter) {
  if (letter == 'i') return !Holds(state, 'r');
  if (letter == 'n') return !Holds(state, 'r') && !Holds(state, 'o');
  return state.find(letter) != State::npos;
}

bool Expected(const Entry& entry, State state) {
  return std::all_of(entry.needs.begin(), entry.needs.end(),
                     [state](char letter) { return Holds(state, letter); });
}

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

TEST(Commands, AreEnabledInEveryStateAsExpected) {
  const std::vector<Entry> entries = Entries();
  ASSERT_EQ(entries.size(), CommandTable().size());
  for (const State state : kStates) {
    const Facts facts = FactsIn(state);
    for (std::size_t i = 0; i < entries.size(); ++i) {
      EXPECT_EQ(IsEnabled(CommandTable()[i], facts), Expected(entries[i], state))
          << entries[i].text << " in state \"" << state << '"';
    }
  }
}

TEST(Commands, StandInTheirMenusAndOnTheToolBar) {
  std::vector<Entry> entries = Entries();
  for (const CommandRow& row : CommandTable()) {
    const Entry entry = entries.front();
    entries.erase(entries.begin());
    EXPECT_EQ(&RowOf(row.id), &row) << row.text;
    EXPECT_EQ(MenuTitle(row.menu), entry.menu) << row.text;
    EXPECT_EQ((row.separator ? "-" : "") + std::string(row.text) +
                  (row.toolGroup > 0 ? " " + std::to_string(row.toolGroup) : "") +
                  (row.whileBusy ? "*" : ""),
              entry.text);
  }
}

TEST(Commands, HaveKeysMnemonicsAndHelpOfTheirOwn) {
  std::set<State> keys;
  std::set<std::pair<Menu, char>> mnemonics;
  std::string otherTips;  // that are not the text of the entry
  for (const CommandRow& row : CommandTable()) {
    EXPECT_TRUE(row.accelerator.empty() || keys.insert(row.accelerator).second) << row.accelerator;
    std::string text(row.text.substr(0, row.text.find("...")));
    const std::size_t mark = text.find('&');
    if (mark != std::string::npos) {
      EXPECT_TRUE(mnemonics.emplace(row.menu, std::tolower(text.at(mark + 1))).second) << text;
      text.erase(mark, 1);
    }
    if (row.toolTip != text) otherTips += std::string(row.toolTip) + "|";
    EXPECT_FALSE(row.status.empty()) << row.text;
  }
  EXPECT_EQ(otherTips,
            "Zoom In|Zoom Out|Zoom to Selection|Label Entry Mode|Set/Modify Tiers|Import Labels|"
            "View Labels|New Log|Open Log|Save Log|Save Log As|Display Options|"
            "Record/Play Options|Zoom Option|FFT/LPC Option|Spectrogram Option|Pitch Option|"
            "Intensity Options|Log Option|About Cantorix|");
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
