// window_commands.cpp - the rows of the table, and what carries them out.
#include "analysisview/window_commands.h"

#include <algorithm>

#include "platform/progress.h"

namespace cantorix {
namespace {

constexpr std::uint32_t kToLog = kPictureThere | kPictureCurrent | kWindowLogOpen;
constexpr std::uint32_t kInSpectra = kInFftLpc | kInSpectrogram;
constexpr std::uint32_t kWithStrips = kInSpectrogram | kInPitch;
constexpr const char* kEnteringText = "Entering into the log...(Press mouse to cancel)";
constexpr auto kNoLog = std::nullopt;
constexpr auto kNoSwitch = std::nullopt;

// clang-format off
constexpr WindowCommandRow kRows[] = {
    {WindowCommand::kEnterMarker, kInAll, "Enter &Marker", "Ctrl+Shift+M",
     "Enter the values at the marker into the log", kToLog | kMarkerThere,
     WindowLog::kMarker, kNoSwitch},
    {WindowCommand::kEnterFormants, kInFftLpc, "Enter &Formants", "Ctrl+Shift+F",
     "Enter the formants and their bandwidths into the log", kToLog | kFormantsThere,
     WindowLog::kFormantsHere, kNoSwitch},
    {WindowCommand::kEnterFormants, kInSpectrogram, "Enter &Formants", "Ctrl+Shift+F",
     "Enter the formants at the marker into the log", kToLog | kMarkerThere | kFormantsThere,
     WindowLog::kFormantsHere, kNoSwitch},
    {WindowCommand::kEnterFormantsAll, kInSpectrogram, "Enter Formants &All", "Ctrl+Shift+A",
     "Enter the formants of every column into the log", kToLog | kFormantsThere,
     WindowLog::kFormantsAll, kNoSwitch},
    {WindowCommand::kEnterEntireFrame, kInFftLpc, "Enter &Entire Frame", "Ctrl+Shift+E",
     "Enter both levels over all frequencies into the log", kToLog,
     WindowLog::kEntireFrame, kNoSwitch},
    {WindowCommand::kEnterEntireFrame, kInSpectrogram, "Enter &Entire Frame", "Ctrl+Shift+E",
     "Enter the levels of the column at the marker into the log", kToLog | kMarkerThere,
     WindowLog::kEntireFrame, kNoSwitch},
    {WindowCommand::kUpdate, kInAll, "&Update", "F5",
     "Compute again from the recording as it is now", kUpdatePossible, kNoLog, kNoSwitch},
    {WindowCommand::kOptions, kInAll, "&Options...", "",
     "Change the settings of this analysis", 0, kNoLog, kNoSwitch},
    {WindowCommand::kDrawLpc, kInFftLpc, "&LPC", "",
     "Draw the LPC envelope", 0, kNoLog, WindowSwitch::kDrawLpc},
    {WindowCommand::kRelativeLevel, kInFftLpc, "&Relative", "",
     "Let the level axis end at the highest level, or at the level of the options", 0, kNoLog,
     WindowSwitch::kRelativeLevel},
    {WindowCommand::kDrawFormants, kInSpectrogram, "Fo&rmants", "",
     "Draw the formants", 0, kNoLog, WindowSwitch::kDrawFormants},
    {WindowCommand::kDrawAudio, kWithStrips, "A&udio", "",
     "Draw the waveform", 0, kNoLog, WindowSwitch::kDrawAudio},
    {WindowCommand::kDrawIntensity, kWithStrips, "&Intensity", "",
     "Draw the intensity", 0, kNoLog, WindowSwitch::kDrawIntensity},
    {WindowCommand::kDrawLabels, kWithStrips, "La&bels", "",
     "Draw the labels", 0, kNoLog, WindowSwitch::kDrawLabels},
    {WindowCommand::kSavePicture, kInAll, "&Save Picture...", "Ctrl+Shift+S",
     "Save the picture as PNG, BMP, SVG or PDF", kPictureThere, kNoLog, kNoSwitch},
    {WindowCommand::kCopyPicture, kInAll, "&Copy Picture", "Ctrl+Shift+C",
     "Copy the picture to the clipboard", kPictureThere, kNoLog, kNoSwitch},
    {WindowCommand::kCopyReadouts, kInAll, "Copy &Readouts", "Ctrl+Shift+R",
     "Copy the values at the marker and the settings as text", kPictureThere, kNoLog, kNoSwitch, false},
    {WindowCommand::kPrint, kInAll, "&Print...", "",
     "Print the picture", kPictureThere, kNoLog, kNoSwitch},
    {WindowCommand::kCloseWindow, kInAll, "Close &Window", "Ctrl+Shift+W",
     "Close this window; the recording stays open", 0, kNoLog, kNoSwitch, false},
};
// clang-format on

std::uint32_t BitOf(WindowKind kind) { return 1U << static_cast<std::uint32_t>(kind); }

// A long run of rows can be stopped.
void Enter(const std::vector<LogEntry>& rows, LogSink& sink, Progress& progress) {
  ProgressScope scope(progress, kEnteringText, static_cast<double>(rows.size()));
  double entered = 0.0;
  for (const LogEntry& row : rows) {
    if (sink.Append(row) || scope.Cancelled(++entered)) return;
  }
}

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
  return conditions;
}

bool RunWindowCommand(AnalysisWindow& window, WindowCommand command) {
  const WindowCommandRow* const row = RowOf(window.kind(), command);
  if (row == nullptr || !IsEnabled(*row, ConditionsOf(window))) return false;
  if (row->log) {
    Enter(window.LogRows(*row->log), *window.openLog(), window.host().progress);
    return true;
  }
  if (row->checkedWith) {
    window.Toggle(*row->checkedWith);
    return true;
  }
  if (command != WindowCommand::kUpdate) return false;
  window.Update();
  return true;
}

}  // namespace cantorix
