// commands.h - every command of the program as one row: where it stands, what it says, when it is
// enabled and what carries it out. Menus, tool bar, enabling, tooltips and the page of commands are
// made from these rows and from nothing else. command_table.cpp holds the rows,
// command_conditions.cpp the facts, command_run.cpp the place where commands begin.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "mainview/carrier.h"
#include "mainview/frame_actions.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

class Prompts;

enum class Command {
  // File
  kNew,
  kOpen,
  kClose,
  kSave,
  kSaveAs,
  kSaveCopyAs,
  kSaveSelectionAs,
  kExportAsWave,
  kExportSelectionAsWave,
  kSaveAsBmp,
  kSaveScreenAsBmp,
  kSaveGroupPicture,
  kLoadConfiguration,
  kSaveConfiguration,
  kRevertConfiguration,
  kPrint,
  kPrintScreen,
  kPrintPreview,
  kPrintSetup,
  kRecentFiles,  // the place of the files opened or saved last
  kExit,
  // Edit
  kUndo,
  kCut,
  kCopy,
  kPaste,
  kClearToReference,
  kSelectWindow,
  kSelectAll,
  kGoTo,
  kSelectTimes,
  kZeroCrossing,
  // View
  kToolBar,
  kStatusBar,
  // Zoom
  kZoomIn,
  kZoomOut,
  kZoomSelection,
  kZoomFromCursor,
  kHome,
  kUnZoom,
  // Reference/Gain
  kReferenceGain,
  // Record/Play
  kRecord,
  kPlayAll,
  kPlaySelection,
  kPlayWindow,
  // Analysis
  kFftLpc,
  kFftLpcSelection,
  kSpectrogramAll,
  kSpectrogramSelection,
  kSpectrogramWindow,
  kPitchAll,
  kPitchSelection,
  kPitchWindow,
  // Tool bar only
  kStatistics,
  kIntensity,
  kSmooth,
  kSetReferenceOfAll,
  // Tiers/Labels
  kLabelEntryMode,
  kNewLabel,
  kTypeLabel,
  kEditLabel,
  kPlayLabel,
  kDeleteLabel,
  kNextLabel,
  kPreviousLabel,
  kNextTier,
  kPreviousTier,
  kPhoneticChart,
  kSetTiers,
  kImportLabels,
  kImportLabelFile,
  kExportLabels,
  kViewLabels,
  // Log
  kLogNew,
  kLogOpen,
  kLogSave,
  kLogSaveAs,
  kEnterDuration,
  kEnterPitchAtMarker,
  kEnterPitchSelection,
  kEnterPitchAll,
  kEnterLabelsSelection,
  kEnterLabelsAll,
  // Options
  kDisplayOptions,
  kRecordPlayOptions,
  kZoomOptions,
  kFftLpcOptions,
  kSpectrogramOptions,
  kPitchOptions,
  kIntensityOptions,
  kLogOptions,
  // Window
  kNewWindow,
  kCascade,
  kTile,
  kArrangeIcons,
  kArrangeAnalyses,
  kNextWindow,
  kPreviousWindow,
  kNextRecording,
  kCloseStatusWindow,
  // Help
  kHelpTopics,
  kHelpOfWindow,
  kAbout,
};

// In the order of the menu bar.
enum class Menu {
  kFile,
  kEdit,
  kView,
  kZoom,
  kReferenceGain,
  kRecordPlay,
  kAnalysis,
  kTiersLabels,
  kLog,
  kOptions,
  kWindow,
  kHelp,
  kNone,  // the command has a button on the tool bar only
};

// With "&" before the mnemonic; empty for kNone.
std::string_view MenuTitle(Menu menu);

// Facts about the active view and its surroundings, one bit each: as what a command needs and as
// what holds at the moment.
using Facts = std::uint32_t;
namespace fact {
inline constexpr Facts kDocument = 1U << 0U;  // a document is active
inline constexpr Facts kIdle = 1U << 1U;      // no recording runs into it
inline constexpr Facts kLoaded = 1U << 2U;
inline constexpr Facts kZoomed = 1U << 3U;
inline constexpr Facts kMarker = 1U << 4U;             // of the view
inline constexpr Facts kSelection = 1U << 5U;          // shown in the view
inline constexpr Facts kDocumentSelection = 1U << 6U;  // noted for saving
inline constexpr Facts kModified = 1U << 7U;
inline constexpr Facts kUndo = 1U << 8U;
inline constexpr Facts kClipboard = 1U << 9U;
inline constexpr Facts kLogOpen = 1U << 10U;
inline constexpr Facts kRecordAllowed = 1U << 11U;  // no recording runs anywhere
inline constexpr Facts kLabel = 1U << 12U;          // a label is selected in the view
}  // namespace fact

struct CommandRow {
  Command id;
  Menu menu;
  std::string_view text;         // with "&" before the mnemonic
  std::string_view accelerator;  // "Ctrl+Z"; empty: none
  Facts needs;                   // all of them must hold
  std::string_view status;       // one line for the status bar
  std::string_view toolTip;
  Carrier<CSonadexView, CSonadexDoc, FrameActions> carrier;
  bool separator = false;  // stands above it in its menu
  int toolGroup = 0;       // of its button on the tool bar, from 1; 0: no button
  bool whileBusy = false;  // also while another operation runs
  // Further accelerators, with blanks between them.
  std::string_view otherKeys = {};
  // The accelerator counts only while a picture of the recording has the focus.
  bool keyInPicture = false;
};

// All commands, those of a menu in its order. A menu shows the rows that need no document also
// while none is open.
std::span<const CommandRow> CommandTable();
const CommandRow& RowOf(Command command);

// What holds for the active view; null, with nothing holding, when no document is open. To be
// computed once for each time the commands are enabled.
Facts FactsOf(const CSonadexView* view);
bool IsEnabled(const CommandRow& row, Facts facts);
// "loaded, selection": the facts in words, without those that every command of a document needs.
std::string FactNames(Facts facts);

// The row's line for the status bar; of a command that is not enabled, with what to do first:
// "Cut the selection (select a stretch first)".
std::string StatusText(const CommandRow& row, Facts facts);

// The text of the entry as the view is now: that of label entry mode names what a click would do.
// `view` may be null.
std::string_view MenuText(const CommandRow& row, const CSonadexView* view);

// Whether a label that is being typed stays open beside the command, which only shows or plays;
// every other one keeps it first.
bool LeavesTypingOpen(const CommandRow& row);

// Where a command of a view or its document begins: carries it out when it is enabled. False when
// it is not, when it is one of the frame's, and when it was given up.
bool RunCommand(CSonadexView& view, Command command);

// Where everything else begins that the user does to a view, mouse input for one. What was
// cancelled or already shown ends silently, an error is shown; the other documents stay alive.
// False when the action was given up.
bool Guarded(CSonadexView& view, const std::function<void()>& action);

// "There is not enough memory."; a beep when there is none for the words either.
void SayOutOfMemory(Prompts& prompts) noexcept;

}  // namespace cantorix
