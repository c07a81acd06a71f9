// command_table.cpp - the rows of all commands: one long table.
// A command that works on a view or its document names the function; windows, printing, sound and
// what concerns the whole program are members of the frame's actions.
#include <array>

#include "document/save_commands.h"
#include "mainview/analysis_commands.h"
#include "mainview/commands.h"
#include "mainview/editing.h"
#include "mainview/go_to_commands.h"
#include "mainview/label_commands.h"
#include "mainview/label_moves.h"
#include "mainview/label_typing.h"
#include "mainview/listening.h"
#include "mainview/log_commands.h"
#include "mainview/option_commands.h"
#include "mainview/view_commands.h"

namespace cantorix {
namespace {

// What most commands need.
constexpr Facts kAnyTime = 0U;
constexpr Facts kOpen = fact::kDocument;
constexpr Facts kOwn = kOpen | fact::kIdle;  // works on the document itself
constexpr Facts kLoaded = kOwn | fact::kLoaded;
constexpr Facts kSelected = kLoaded | fact::kSelection;
constexpr Facts kMarked = kLoaded | fact::kMarker;
constexpr Facts kLogged = kLoaded | fact::kLogOpen;
constexpr Facts kOnLabel = kLoaded | fact::kLabel;

constexpr bool kSeparator = true;

constexpr CommandRow InPicture(CommandRow row) {
  row.keyInPicture = true;
  return row;
}

constexpr CommandRow AlsoBy(CommandRow row, std::string_view keys) {
  row.otherKeys = keys;
  return row;
}

// Of a document, whatever it returns.
template <auto kFunction>
void OnDocument(CSonadexDoc& document) {
  kFunction(document);
}

template <auto kAction, auto... kArguments>
constexpr auto& ByFrame = Call<FrameActions, kAction, kArguments...>;
using Frame = FrameActions;

template <Zoom kZoom>
void ZoomBy(CSonadexView& view) {
  ZoomView(view, kZoom);
}

void IntensityOfAll(CSonadexView& view) { AnalyseIntensity(view, Stretch::kAll); }

template <Stretch kStretch>
void Play(CSonadexView& view) {
  PlayStretch(view, kStretch);
}

template <int kDirection>
void StepToLabel(CSonadexView& view) {
  StepLabel(view, kDirection);
}

template <int kDirection>
void StepToTier(CSonadexView& view) {
  StepTier(view, kDirection);
}

template <LogCommand kCommand>
void Enter(CSonadexView& view) {
  EnterIntoOpenLog(view, kCommand);
}

constexpr std::array kTable{
    // File
    CommandRow{Command::kNew, Menu::kFile, "&New", "Ctrl+N", kAnyTime, "Open an empty document",
               "New", ByFrame<&Frame::NewDocument>, false, 1},
    CommandRow{Command::kOpen, Menu::kFile, "&Open...", "Ctrl+O", kAnyTime, "Open a recording",
               "Open", ByFrame<&Frame::OpenRecording>, false, 1},
    CommandRow{Command::kClose, Menu::kFile, "&Close", "", kOwn, "Close the document", "Close",
               ByFrame<&Frame::CloseDocument>},
    CommandRow{Command::kSave, Menu::kFile, "&Save", "Ctrl+S", kOwn | fact::kModified,
               "Save the document", "Save", OnDocument<SaveDocument>, kSeparator, 1},
    CommandRow{Command::kSaveAs, Menu::kFile, "Save &As...", "", kLoaded,
               "Save the document under a new name", "Save As", OnDocument<SaveDocumentAs>},
    CommandRow{Command::kSaveCopyAs, Menu::kFile, "Save Copy As...", "", kLoaded,
               "Save a copy of the document and stay with the original", "Save Copy As",
               OnDocument<SaveCopyAs>},
    CommandRow{Command::kSaveSelectionAs, Menu::kFile, "Save Selection As...", "",
               kLoaded | fact::kDocumentSelection, "Save the selection as a recording of its own",
               "Save Selection As", OnDocument<SaveSelectionAs>},
    CommandRow{Command::kExportAsWave, Menu::kFile, "Export as Wave...", "", kLoaded,
               "Write the recording as a WAV file", "Export as Wave", OnDocument<ExportAsWave>,
               kSeparator},
    CommandRow{Command::kExportSelectionAsWave, Menu::kFile, "Export Selection as Wave...", "",
               kLoaded | fact::kDocumentSelection, "Write the selection as a WAV file",
               "Export Selection as Wave", OnDocument<ExportSelectionAsWave>},
    CommandRow{Command::kSaveAsBmp, Menu::kFile, "Save As bmp...", "", kLoaded,
               "Save the picture of the recording as a bitmap file", "Save As bmp",
               ByFrame<&Frame::SavePicture>, kSeparator},
    CommandRow{Command::kSaveScreenAsBmp, Menu::kFile, "Save Screen As bmp...", "", kLoaded,
               "Save the window as it is on the screen as a bitmap file", "Save Screen As bmp",
               ByFrame<&Frame::SaveScreen>},
    CommandRow{Command::kSaveGroupPicture, Menu::kFile, "Save Group Picture...", "", kLoaded,
               "Save waveform, spectrogram and pitch under each other as one picture",
               "Save Group Picture", ByFrame<&Frame::SaveGroupPicture>},
    CommandRow{Command::kLoadConfiguration, Menu::kFile, "Load Configuration...", "", kAnyTime,
               "Take all settings from a configuration file", "Load Configuration",
               ByFrame<&Frame::LoadConfiguration>, kSeparator},
    CommandRow{Command::kSaveConfiguration, Menu::kFile, "Save Configuration...", "", kOwn,
               "Keep all settings in a configuration file of a name of yours", "Save Configuration",
               ByFrame<&Frame::SaveConfiguration>},
    CommandRow{Command::kRevertConfiguration, Menu::kFile, "Revert to Default Configuration", "",
               kAnyTime, "Go back to the settings of a first run",
               "Revert to Default Configuration", ByFrame<&Frame::RevertConfiguration>},
    CommandRow{Command::kPrint, Menu::kFile, "&Print...", "Ctrl+P", kLoaded, "Print the recording",
               "Print", ByFrame<&Frame::Print>, kSeparator, 1},
    CommandRow{Command::kPrintScreen, Menu::kFile, "Print Screen...", "", kLoaded,
               "Print the window as it is on the screen", "Print Screen",
               ByFrame<&Frame::PrintScreen>},
    CommandRow{Command::kPrintPreview, Menu::kFile, "Print Pre&view", "", kLoaded,
               "Show what would be printed", "Print Preview", ByFrame<&Frame::PreviewPrint>},
    CommandRow{Command::kPrintSetup, Menu::kFile, "Print Setup...", "", kAnyTime,
               "Choose printer and paper", "Print Setup", ByFrame<&Frame::SetUpPrinter>},
    CommandRow{Command::kRecentFiles, Menu::kFile, "Recent File", "", kAnyTime,
               "Open this recording again", "Recent File", ByFrame<&Frame::OpenRecentFile>,
               kSeparator},
    CommandRow{Command::kExit, Menu::kFile, "E&xit", "", kAnyTime, "Close all documents and leave",
               "Exit", ByFrame<&Frame::Exit>, kSeparator},

    // Edit
    CommandRow{Command::kUndo, Menu::kEdit, "&Undo", "Ctrl+Z", kLoaded | fact::kUndo,
               "Take the last edit back", "Undo", Undo, false, 2},
    CommandRow{Command::kCut, Menu::kEdit, "Cu&t", "Ctrl+X", kSelected,
               "Move the selection to the clipboard", "Cut", CutSelection, kSeparator, 2},
    CommandRow{Command::kCopy, Menu::kEdit, "&Copy", "Ctrl+C", kSelected,
               "Copy the selection to the clipboard", "Copy", CopySelection, false, 2},
    CommandRow{Command::kPaste, Menu::kEdit, "&Paste", "Ctrl+V", kOwn | fact::kClipboard,
               "Insert the clipboard at the cursor or in place of the selection", "Paste", Paste,
               false, 2},
    CommandRow{Command::kClearToReference, Menu::kEdit, "Clear to Reference", "", kSelected,
               "Set the samples of the selection to the reference level", "Clear to Reference",
               ClearToReference},
    CommandRow{Command::kSelectWindow, Menu::kEdit, "Select Window", "", kLoaded,
               "Select the stretch displayed in the window", "Select Window", SelectWindow,
               kSeparator},
    CommandRow{Command::kSelectAll, Menu::kEdit, "Select All", "Ctrl+A", kLoaded,
               "Select the whole recording", "Select All", SelectAll},
    CommandRow{Command::kSelectTimes, Menu::kEdit, "Select...", "Ctrl+Shift+J", kLoaded,
               "Select between typed times", "Select", SelectTypedTimes},
    CommandRow{Command::kGoTo, Menu::kEdit, "Go to...", "Ctrl+J", kLoaded,
               "Put the cursor at a typed time", "Go to", GoToTypedTime, kSeparator},
    CommandRow{Command::kZeroCrossing, Menu::kEdit, "Nearest Zero Crossing", "Ctrl+K", kLoaded,
               "Move the cursor, or both edges of the selection, to the nearest zero crossing",
               "Nearest Zero Crossing", MoveToZeroCrossing},

    // View
    CommandRow{Command::kToolBar, Menu::kView, "Toolbar", "", kAnyTime, "Show or hide the tool bar",
               "Toolbar", ByFrame<&Frame::ToggleToolBar>},
    CommandRow{Command::kStatusBar, Menu::kView, "Status Bar", "", kAnyTime,
               "Show or hide the status bar", "Status Bar", ByFrame<&Frame::ToggleStatusBar>},

    // Zoom
    AlsoBy({Command::kZoomIn, Menu::kZoom, "In", "Ctrl+B", kLoaded, "Show less and larger",
            "Zoom In", ZoomBy<Zoom::kIn>, false, 3},
           "Ctrl++ Ctrl+="),
    AlsoBy({Command::kZoomOut, Menu::kZoom, "Out", "Ctrl+E", kLoaded | fact::kZoomed,
            "Show more and smaller", "Zoom Out", ZoomBy<Zoom::kOut>, false, 3},
           "Ctrl+-"),
    CommandRow{Command::kZoomSelection, Menu::kZoom, "Selection", "Ctrl+Q", kSelected,
               "Show the selection alone", "Zoom to Selection", ZoomBy<Zoom::kSelection>, false, 3},
    CommandRow{Command::kZoomFromCursor, Menu::kZoom, "From Cursor for Duration", "Ctrl+W", kMarked,
               "Show the duration of the zoom option from the cursor on",
               "From Cursor for Duration", ZoomBy<Zoom::kFromCursor>},
    AlsoBy({Command::kHome, Menu::kZoom, "Home", "", kLoaded, "Show the whole recording", "Home",
            ZoomBy<Zoom::kHome>, false, 3},
           "Ctrl+0"),
    CommandRow{Command::kUnZoom, Menu::kZoom, "UnZoom", "", kLoaded,
               "Show the stretch before the last zoom", "UnZoom", ZoomBy<Zoom::kUnZoom>, false, 3},

    // Reference/Gain
    CommandRow{Command::kReferenceGain, Menu::kReferenceGain, "Reference/Gain...", "", kLoaded,
               "Move the reference level of the samples and amplify them", "Reference/Gain",
               ReferenceAndGain},

    // Record/Play
    CommandRow{Command::kRecord, Menu::kRecordPlay, "Record", "Ctrl+R", kOwn | fact::kRecordAllowed,
               "Start recording", "Record", BeginRecording, false, 4},
    CommandRow{Command::kPlayAll, Menu::kRecordPlay, "Play All", "Ctrl+Y", kLoaded,
               "Play the whole file", "Play All", Play<Stretch::kAll>, kSeparator, 4},
    CommandRow{Command::kPlaySelection, Menu::kRecordPlay, "Play Selection", "Ctrl+U", kSelected,
               "Play the selected section of the file", "Play Selection", Play<Stretch::kSelection>,
               false, 4},
    CommandRow{Command::kPlayWindow, Menu::kRecordPlay, "Play Window", "", kLoaded,
               "Play the section of the file displayed in the current window", "Play Window",
               Play<Stretch::kWindow>, false, 4},

    // Analysis
    CommandRow{Command::kFftLpc, Menu::kAnalysis, "FFT/LPC", "Ctrl+F", kMarked,
               "Perform FFT & LPC analysis", "FFT/LPC", ByFrame<&Frame::ShowSpectrum>, false, 5},
    CommandRow{Command::kFftLpcSelection, Menu::kAnalysis, "FFT/LPC Selection", "", kSelected,
               "Perform FFT & LPC analysis averaged over the selection", "FFT/LPC Selection",
               ByFrame<&Frame::ShowMeanSpectrum, Stretch::kSelection>},
    CommandRow{Command::kSpectrogramAll, Menu::kAnalysis, "Spectrogram All", "Ctrl+G", kLoaded,
               "Perform spectrogram on the whole file", "Spectrogram All",
               ByFrame<&Frame::ShowSpectrogram, Stretch::kAll>, kSeparator},
    CommandRow{Command::kSpectrogramSelection, Menu::kAnalysis, "Spectrogram Selection", "Ctrl+H",
               kSelected, "Perform spectrogram on the selection", "Spectrogram Selection",
               ByFrame<&Frame::ShowSpectrogram, Stretch::kSelection>},
    CommandRow{Command::kSpectrogramWindow, Menu::kAnalysis, "Spectrogram Window", "", kLoaded,
               "Perform spectrogram on the window", "Spectrogram Window",
               ByFrame<&Frame::ShowSpectrogram, Stretch::kWindow>, false, 5},
    CommandRow{Command::kPitchAll, Menu::kAnalysis, "Pitch All", "Ctrl+L", kLoaded,
               "Perform pitch and intensity of the whole file", "Pitch All",
               ByFrame<&Frame::ShowPitch, Stretch::kAll>, kSeparator, 5},
    CommandRow{Command::kPitchSelection, Menu::kAnalysis, "Pitch Selection", "", kSelected,
               "Perform pitch and intensity of the selection", "Pitch Selection",
               ByFrame<&Frame::ShowPitch, Stretch::kSelection>},
    CommandRow{Command::kPitchWindow, Menu::kAnalysis, "Pitch Window", "", kLoaded,
               "Perform pitch and intensity of the window", "Pitch Window",
               ByFrame<&Frame::ShowPitch, Stretch::kWindow>},
    CommandRow{Command::kStatistics, Menu::kAnalysis, "Statistics of Selection", "Ctrl+I",
               kSelected,
               "Show what the selection measures in all; once more: enter it into the log",
               "Statistics of Selection", ByFrame<&Frame::ShowStatistics>, kSeparator},

    // Tool bar only
    CommandRow{Command::kIntensity, Menu::kNone, "Intensity", "", kLoaded,
               "Perform power intensity of the waveform", "Intensity", IntensityOfAll, false, 5},
    CommandRow{Command::kSmooth, Menu::kNone, "Smooth", "", kLoaded, "Smooth the data", "Smooth",
               Smooth, false, 5},
    CommandRow{Command::kSetReferenceOfAll, Menu::kNone, "Set Channels Reference All", "", kLoaded,
               "Set the reference for all channels", "Set Channels Reference All",
               SetReferenceOfAllChannels, false, 5},

    // Tiers/Labels
    CommandRow{Command::kLabelEntryMode, Menu::kTiersLabels, "Enable Label Entry Mode", "", kLoaded,
               "Set, edit and move labels with the mouse, or stop doing so", "Label Entry Mode",
               ToggleLabelEntry, false, 6},
    CommandRow{Command::kNewLabel, Menu::kTiersLabels, "New Label", "Ctrl+T", kLoaded,
               "Type a label at the cursor or over the selection", "New Label", BeginNewLabel,
               kSeparator},
    InPicture({Command::kTypeLabel, Menu::kTiersLabels, "Type Label", "F2", kLoaded,
               "Type over the selected label, or the one at the cursor", "Type Label",
               TypeOverLabel}),
    CommandRow{Command::kEditLabel, Menu::kTiersLabels, "Edit Label...", "", kOnLabel,
               "Change text and looks of the selected label", "Edit Label", EditSelectedLabel},
    CommandRow{Command::kPlayLabel, Menu::kTiersLabels, "Play Label", "", kOnLabel,
               "Play from the selected label to the next one of its tier", "Play Label",
               PlaySelectedLabel},
    InPicture({Command::kDeleteLabel, Menu::kTiersLabels, "Delete Label", "Del", kOnLabel,
               "Delete the selected label", "Delete Label", DeleteSelectedLabel}),
    InPicture({Command::kNextLabel, Menu::kTiersLabels, "Next Label", "Tab", kLoaded,
               "Go to the next label of the current tier", "Next Label", StepToLabel<1>,
               kSeparator}),
    InPicture({Command::kPreviousLabel, Menu::kTiersLabels, "Previous Label", "Shift+Tab", kLoaded,
               "Go to the previous label of the current tier", "Previous Label", StepToLabel<-1>}),
    InPicture({Command::kNextTier, Menu::kTiersLabels, "Next Tier", "Ctrl+Down", kLoaded,
               "Make the next tier the current one", "Next Tier", StepToTier<1>}),
    InPicture({Command::kPreviousTier, Menu::kTiersLabels, "Previous Tier", "Ctrl+Up", kLoaded,
               "Make the previous tier the current one", "Previous Tier", StepToTier<-1>}),
    CommandRow{Command::kPhoneticChart, Menu::kTiersLabels, "Phonetic Chart", "F9", kOpen,
               "Show or hide the phonetic signs that a click puts into a label", "Phonetic Chart",
               ByFrame<&Frame::TogglePhoneticChart>, kSeparator, 6},
    CommandRow{Command::kSetTiers, Menu::kTiersLabels, "Set/Modify...", "", kLoaded,
               "Name the tiers, set their heights and which of them are shown", "Set/Modify Tiers",
               SetTiers, kSeparator},
    CommandRow{Command::kImportLabels, Menu::kTiersLabels, "Import Labels into a Tier...", "",
               kLoaded, "Add the labels of a text file to a tier", "Import Labels", ImportLabels},
    CommandRow{Command::kImportLabelFile, Menu::kTiersLabels, "Import Label File...", "", kLoaded,
               "Add the labels of a file of another program to their tiers", "Import Label File",
               ImportLabelFile},
    CommandRow{Command::kExportLabels, Menu::kTiersLabels, "Export Labels As...", "", kLoaded,
               "Write the labels as a file for another program", "Export Labels As", ExportLabels},
    // Kept: the entry has always been spelled so.
    CommandRow{Command::kViewLabels, Menu::kTiersLabels, "Vew Labels", "", kLoaded,
               "View the label list", "View Labels", ByFrame<&Frame::ShowLabelList>, kSeparator, 6},

    // Log
    CommandRow{Command::kLogNew, Menu::kLog, "New", "", kOpen, "Open an empty log", "New Log",
               ByFrame<&Frame::NewLog>},
    CommandRow{Command::kLogOpen, Menu::kLog, "Open...", "", kOpen, "Open a log file", "Open Log",
               ByFrame<&Frame::OpenLog>},
    CommandRow{Command::kLogSave, Menu::kLog, "Save", "", kOpen | fact::kLogOpen, "Save the log",
               "Save Log", ByFrame<&Frame::SaveLog>},
    CommandRow{Command::kLogSaveAs, Menu::kLog, "Save As...", "", kOpen | fact::kLogOpen,
               "Save the log under another name", "Save Log As", ByFrame<&Frame::SaveLogAs>},
    CommandRow{Command::kEnterDuration, Menu::kLog, "Enter Duration", "Ctrl+D",
               kLogged | fact::kSelection, "Enter the duration of the selection into the log",
               "Enter Duration", Enter<LogCommand::kDuration>, kSeparator},
    CommandRow{Command::kEnterPitchAtMarker, Menu::kLog, "Enter Pitch at Marker", "Ctrl+M",
               kLogged | fact::kMarker, "Enter pitch and intensity at the marker into the log",
               "Enter Pitch at Marker", Enter<LogCommand::kPitchAtMarker>},
    CommandRow{Command::kEnterPitchSelection, Menu::kLog, "Enter Pitch Selection", "",
               kLogged | fact::kSelection, "Enter the pitch track of the selection into the log",
               "Enter Pitch Selection", Enter<LogCommand::kPitchSelection>},
    CommandRow{Command::kEnterPitchAll, Menu::kLog, "Enter Pitch All", "", kLogged,
               "Enter the whole pitch track into the log", "Enter Pitch All",
               Enter<LogCommand::kPitchAll>},
    CommandRow{Command::kEnterLabelsSelection, Menu::kLog, "Enter Labels Selection", "",
               kLogged | fact::kSelection, "Enter the labels of the selection into the log",
               "Enter Labels Selection", Enter<LogCommand::kLabelsSelection>},
    CommandRow{Command::kEnterLabelsAll, Menu::kLog, "Enter Labels All", "", kLogged,
               "Enter all labels into the log", "Enter Labels All", Enter<LogCommand::kLabelsAll>},

    // Options
    CommandRow{Command::kDisplayOptions, Menu::kOptions, "Display", "", kLoaded,
               "Choose what the main view draws", "Display Options",
               ByFrame<&Frame::ShowDisplayOptions>},
    CommandRow{Command::kRecordPlayOptions, Menu::kOptions, "Record/Play", "", kOpen,
               "Set input, rate and levels of recording and playback", "Record/Play Options",
               ByFrame<&Frame::ShowRecordPlayOptions>},
    CommandRow{Command::kZoomOptions, Menu::kOptions, "Zoom...", "", kLoaded,
               "Set the duration to zoom from the cursor", "Zoom Option", SetZoomRange, kSeparator},
    CommandRow{Command::kFftLpcOptions, Menu::kOptions, "FFT/LPC...", "", kLoaded,
               "Set the parameters of FFT and LPC", "FFT/LPC Option", SetFftLpcOptions},
    CommandRow{Command::kSpectrogramOptions, Menu::kOptions, "Spectrogram...", "", kLoaded,
               "Set the parameters of the spectrogram", "Spectrogram Option",
               SetSpectrogramOptions},
    CommandRow{Command::kPitchOptions, Menu::kOptions, "Pitch...", "", kLoaded,
               "Set the parameters of pitch tracking", "Pitch Option", SetPitchOptions},
    CommandRow{Command::kIntensityOptions, Menu::kOptions, "Intensity...", "", kLoaded,
               "Set the parameters of the intensity", "Intensity Options", SetIntensityOptions},
    CommandRow{Command::kLogOptions, Menu::kOptions, "Log...", "", kLoaded,
               "Set the step of whole spectra in the log", "Log Option", SetLogOptions},

    // Window
    CommandRow{Command::kNewWindow, Menu::kWindow, "New Window", "", kOwn,
               "Open another window of the document", "New Window", ByFrame<&Frame::NewWindow>},
    CommandRow{Command::kCascade, Menu::kWindow, "Cascade", "", kOpen,
               "Let the windows overlap in steps", "Cascade", ByFrame<&Frame::CascadeWindows>},
    CommandRow{Command::kTile, Menu::kWindow, "Tile", "", kOpen, "Lay the windows side by side",
               "Tile", ByFrame<&Frame::TileWindows>},
    CommandRow{Command::kArrangeIcons, Menu::kWindow, "Arrange Icons", "", kOpen,
               "Put the minimised windows in a row", "Arrange Icons",
               ByFrame<&Frame::ArrangeIcons>},
    CommandRow{Command::kArrangeAnalyses, Menu::kWindow, "Arrange Analysis Windows", "", kOpen,
               "Put the windows of the recording beside each other", "Arrange Analysis Windows",
               ByFrame<&Frame::ArrangeAnalyses>},
    CommandRow{Command::kNextWindow, Menu::kWindow, "Next Window", "F6", kOpen,
               "Go to the next window of the recording", "Next Window",
               ByFrame<&Frame::ActivateNextWindow, 1>, kSeparator},
    CommandRow{Command::kPreviousWindow, Menu::kWindow, "Previous Window", "Shift+F6", kOpen,
               "Go to the previous window of the recording", "Previous Window",
               ByFrame<&Frame::ActivateNextWindow, -1>},
    CommandRow{Command::kNextRecording, Menu::kWindow, "Next Recording", "Ctrl+Tab", kOpen,
               "Go to the window used last of the next recording", "Next Recording",
               ByFrame<&Frame::ActivateNextRecording>},
    CommandRow{Command::kCloseStatusWindow, Menu::kWindow, "Close Status Window", "", kOpen,
               "Close the progress window", "Close Status Window",
               ByFrame<&Frame::CloseStatusWindow>, kSeparator, 0, true},

    // Help
    CommandRow{Command::kHelpTopics, Menu::kHelp, "Help Topics", "", kAnyTime, "Open the manual",
               "Help Topics", ByFrame<&Frame::ShowManual>, false, 7},
    CommandRow{Command::kHelpOfWindow, Menu::kHelp, "Help on This Window", "F1", kAnyTime,
               "Open the manual at the page of the window in front", "Help on This Window",
               ByFrame<&Frame::ShowManualOfWindow>},
    // Kept: the entry carries the inner name of the program.
    CommandRow{Command::kAbout, Menu::kHelp, "&About Sonadex...", "", kAnyTime,
               "Show what this program is and its version", "About Cantorix",
               ByFrame<&Frame::ShowAbout>, kSeparator},
};

}  // namespace

std::span<const CommandRow> CommandTable() { return kTable; }

std::string_view MenuTitle(Menu menu) {
  static constexpr std::array<std::string_view, 13> kTitles{
      "&File",     "&Edit",         "&View", "&Zoom",    "Reference/&Gain", "&Record/Play",
      "&Analysis", "&Tiers/Labels", "&Log",  "&Options", "&Window",         "&Help",
      ""};
  return kTitles.at(static_cast<std::size_t>(menu));
}

}  // namespace cantorix
