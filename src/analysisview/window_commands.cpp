// window_commands.cpp - the rows of the table, and what carries them out.
#include "analysisview/window_commands.h"

#include <algorithm>

#include "mainview/listening.h"
#include "platform/progress.h"

namespace cantorix {
namespace {

constexpr std::uint32_t kToLog = kPictureThere | kPictureCurrent | kWindowLogOpen;
constexpr std::uint32_t kWithStrips = kInSpectrogram | kInPitch;

// The rows of a log command into the open log; a long run of them can be stopped.
template <WindowLog kLog>
void Enter(AnalysisWindow& window) {
  const std::vector<LogEntry> rows = window.LogRows(kLog);
  ProgressScope scope(window.host().progress, kEnteringText, static_cast<double>(rows.size()));
  double entered = 0.0;
  for (const LogEntry& row : rows) {
    if (window.openLog()->Append(row) || scope.Cancelled(++entered)) return;
  }
}

// Of the recording, or what the window shows of it.
template <Stretch kStretch>
void Play(AnalysisWindow& window) {
  CSonadexView* const view = window.mainView();
  if (view == nullptr) return;
  if (kStretch == Stretch::kWindow) return PlaySamples(*view, window.ShownSamples());
  PlayStretch(*view, kStretch);
}

template <WindowSwitch kSwitch>
void Turn(AnalysisWindow& window) {
  window.Toggle(kSwitch);
}

void Compute(AnalysisWindow& window) { window.Update(); }

template <auto kAction>
constexpr auto& ByWidget = Call<WindowActionsHost, kAction>;
using Widget = WindowActionsHost;

template <WindowLog kLog>
constexpr WindowCommandRow LogRow(WindowCommand id, std::uint32_t windows, std::string_view text,
                                  std::string_view key, std::string_view tip,
                                  std::uint32_t conditions) {
  return {id, windows, WindowGroup::kLog, text, key, tip, kToLog | conditions, Enter<kLog>};
}

template <WindowSwitch kSwitch>
constexpr WindowCommandRow SwitchRow(WindowCommand id, std::uint32_t windows, std::string_view text,
                                     std::string_view tip) {
  return {id, windows, WindowGroup::kSwitches, text, "", tip, 0, Turn<kSwitch>, kSwitch};
}

// clang-format off
constexpr WindowCommandRow kRows[] = {
    LogRow<WindowLog::kMarker>(WindowCommand::kEnterMarker, kInAll, "Enter &Marker",
     "Ctrl+Shift+M", "Enter the values at the marker into the log", kMarkerThere),
    LogRow<WindowLog::kFormantsHere>(WindowCommand::kEnterFormants, kInFftLpc, "Enter &Formants",
     "Ctrl+Shift+F", "Enter the formants and their bandwidths into the log", kFormantsThere),
    LogRow<WindowLog::kFormantsHere>(WindowCommand::kEnterFormants, kInSpectrogram,
     "Enter &Formants", "Ctrl+Shift+F", "Enter the formants at the marker into the log",
     kMarkerThere | kFormantsThere),
    LogRow<WindowLog::kFormantsAll>(WindowCommand::kEnterFormantsAll, kInSpectrogram,
     "Enter Formants &All", "Ctrl+Shift+A", "Enter the formants of every column into the log",
     kFormantsThere),
    LogRow<WindowLog::kEntireFrame>(WindowCommand::kEnterEntireFrame, kInFftLpc,
     "Enter &Entire Frame", "Ctrl+Shift+E", "Enter both levels over all frequencies into the log",
     0),
    LogRow<WindowLog::kEntireFrame>(WindowCommand::kEnterEntireFrame, kInSpectrogram,
     "Enter &Entire Frame", "Ctrl+Shift+E",
     "Enter the levels of the column at the marker into the log", kMarkerThere),
    {WindowCommand::kPlayAll, kInSpectrogram, WindowGroup::kSound, "Play A&ll", "",
     "Play the whole file", kSoundThere, Play<Stretch::kAll>, {}, false},
    {WindowCommand::kPlaySelection, kInSpectrogram, WindowGroup::kSound, "Play Selec&tion", "",
     "Play the selected section of the file", kSoundThere | kSelectionThere,
     Play<Stretch::kSelection>, {}, false},
    {WindowCommand::kPlayWindow, kInSpectrogram, WindowGroup::kSound, "Pla&y Window", "",
     "Play the section of the file displayed in this window", kSoundThere | kPictureThere,
     Play<Stretch::kWindow>},
    {WindowCommand::kUpdate, kInAll, WindowGroup::kCompute, "&Update", "F5",
     "Compute again from the recording as it is now", kUpdatePossible, Compute},
    {WindowCommand::kOptions, kInAll, WindowGroup::kCompute, "&Options...", "",
     "Change the settings of this analysis", 0, ByWidget<&Widget::ShowOptions>},
    SwitchRow<WindowSwitch::kDrawLpc>(WindowCommand::kDrawLpc, kInFftLpc, "&LPC",
     "Draw the LPC envelope"),
    SwitchRow<WindowSwitch::kRelativeLevel>(WindowCommand::kRelativeLevel, kInFftLpc, "&Relative",
     "Let the level axis end at the highest level, or at the level of the options"),
    SwitchRow<WindowSwitch::kDrawFormants>(WindowCommand::kDrawFormants, kInSpectrogram,
     "Fo&rmants", "Draw the formants"),
    SwitchRow<WindowSwitch::kDrawAudio>(WindowCommand::kDrawAudio, kWithStrips, "A&udio",
     "Draw the waveform"),
    SwitchRow<WindowSwitch::kDrawIntensity>(WindowCommand::kDrawIntensity, kWithStrips,
     "&Intensity", "Draw the intensity"),
    SwitchRow<WindowSwitch::kDrawLabels>(WindowCommand::kDrawLabels, kWithStrips, "La&bels",
     "Draw the labels"),
    SwitchRow<WindowSwitch::kTrackMouse>(WindowCommand::kTrackMouse, kWithStrips, "Lin&k",
     "Track mouse for all windows: a press or drag here sets cursor and selection everywhere"),
    SwitchRow<WindowSwitch::kFollowView>(WindowCommand::kFollowView, kWithStrips, "Follow &View",
     "Show what the main view shows"),
    SwitchRow<WindowSwitch::kFollowMarker>(WindowCommand::kFollowMarker, kInFftLpc,
     "Follow Mar&ker", "Take the spectrum where the marker of the main view is"),
    {WindowCommand::kSavePicture, kInAll, WindowGroup::kOutput, "&Save Picture...", "Ctrl+Shift+S",
     "Save the picture as PNG, BMP, SVG or PDF", kPictureThere, ByWidget<&Widget::SavePicture>},
    {WindowCommand::kCopyPicture, kInAll, WindowGroup::kOutput, "&Copy Picture", "Ctrl+Shift+C",
     "Copy the picture to the clipboard", kPictureThere, ByWidget<&Widget::CopyPicture>},
    {WindowCommand::kCopyReadouts, kInAll, WindowGroup::kOutput, "Copy &Readouts", "Ctrl+Shift+R",
     "Copy the values at the marker and the settings as text", kPictureThere,
     ByWidget<&Widget::CopyReadouts>, {}, false},
    {WindowCommand::kPrint, kInAll, WindowGroup::kOutput, "&Print...", "",
     "Print the picture", kPictureThere, ByWidget<&Widget::Print>},
    {WindowCommand::kCloseWindow, kInAll, WindowGroup::kOutput, "Close &Window", "Ctrl+Shift+W",
     "Close this window; the recording stays open", 0, ByWidget<&Widget::CloseWindow>, {}, false},
};
// clang-format on

std::uint32_t BitOf(WindowKind kind) { return 1U << static_cast<std::uint32_t>(kind); }

}  // namespace

std::span<const WindowCommandRow> WindowCommands() { return kRows; }

const WindowCommandRow* RowOf(WindowKind kind, WindowCommand command) {
  const auto row = std::find_if(std::begin(kRows), std::end(kRows), [&](const auto& candidate) {
    return candidate.id == command && Offers(kind, candidate);
  });
  return row == std::end(kRows) ? nullptr : row;
}

bool Offers(WindowKind kind, const WindowCommandRow& row) {
  return (row.windows & BitOf(kind)) != 0;
}

std::uint32_t ConditionsOf(const AnalysisWindow& window) {
  std::uint32_t conditions = 0;
  if (window.computed()) conditions |= kPictureThere;
  if (window.computed() && !window.samplesChanged()) conditions |= kPictureCurrent;
  if (window.markerSet) conditions |= kMarkerThere;
  if (window.hasFormants()) conditions |= kFormantsThere;
  if (window.openLog() != nullptr) conditions |= kWindowLogOpen;
  if (window.canUpdate()) conditions |= kUpdatePossible;
  const CSonadexView* const view = window.mainView();
  if (view == nullptr) return conditions;
  const bool isFree = !view->services().sound.Sound().recordingHere;
  if (isFree && window.document().loaded) conditions |= kSoundThere;
  if (view->selectionShown()) conditions |= kSelectionThere;
  return conditions;
}

std::string StatusText(const WindowCommandRow& row, std::uint32_t conditions) {
  struct Remedy {
    std::uint32_t condition;
    const char* text;
  };
  constexpr std::array kRemedies{
      Remedy{kPictureThere, "press Update first"},
      Remedy{kPictureCurrent, "the recording has changed: press Update first"},
      Remedy{kWindowLogOpen, "open a log first"},
      Remedy{kMarkerThere, "click to set the cursor first"},
      Remedy{kFormantsThere, "turn formant tracking on and press Update first"},
      Remedy{kUpdatePossible, "there is nothing to compute from"},
      Remedy{kSoundThere, "open a recording first"},
      Remedy{kSelectionThere, "select a stretch first"},
  };
  std::string text(row.toolTip);
  for (const Remedy& remedy : kRemedies) {
    if ((row.conditions & ~conditions & remedy.condition) == 0U) continue;
    return text + " (" + remedy.text + ')';
  }
  return text;
}

bool RunWindowCommand(AnalysisWindow& window, WindowCommand command, WindowActionsHost* widget) {
  const WindowCommandRow* const row = RowOf(window.kind(), command);
  if (row == nullptr || !IsEnabled(*row, ConditionsOf(window))) return false;
  return row->carrier.RunOn(window) || (widget != nullptr && row->carrier.RunOn(*widget));
}

}  // namespace cantorix
