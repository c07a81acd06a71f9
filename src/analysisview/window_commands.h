// window_commands.h - the one table of the commands of the analysis windows. Their tool strips,
// context menus, enabling and tooltips are made from it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "analysisview/analysis_window.h"
#include "mainview/carrier.h"

namespace cantorix {

enum class WindowCommand {
  kEnterMarker,
  kEnterFormants,
  kEnterFormantsAll,
  kEnterEntireFrame,
  kPlayAll,
  kPlaySelection,
  kPlayWindow,
  kUpdate,
  kOptions,
  kDrawLpc,
  kRelativeLevel,
  kDrawFormants,
  kDrawAudio,
  kDrawIntensity,
  kDrawLabels,
  kTrackMouse,
  kFollowView,
  kFollowMarker,
  kSavePicture,
  kCopyPicture,
  kCopyReadouts,
  kPrint,
  kCloseWindow,
};

// Conditions, as bits: all of a row's must hold.
enum WindowCondition : std::uint32_t {
  kPictureThere = 1U << 0U,
  kPictureCurrent = 1U << 1U,  // the samples are still those of the picture
  kMarkerThere = 1U << 2U,
  kFormantsThere = 1U << 3U,
  kWindowLogOpen = 1U << 4U,
  kUpdatePossible = 1U << 5U,
  kSoundThere = 1U << 6U,      // the main view has samples to play, and records none
  kSelectionThere = 1U << 7U,  // of the main view
};

// Windows that have the command, as bits.
enum WindowKinds : std::uint32_t {
  kInFftLpc = 1U << 0U,
  kInSpectrogram = 1U << 1U,
  kInPitch = 1U << 2U,
  kInAll = kInFftLpc | kInSpectrogram | kInPitch,
};

// What the table leaves to the widget of the window.
class WindowActionsHost {
 public:
  virtual ~WindowActionsHost() = default;
  virtual void ShowOptions() = 0;
  virtual void SavePicture() = 0;
  virtual void CopyPicture() = 0;
  virtual void CopyReadouts() = 0;
  virtual void Print() = 0;
  virtual void CloseWindow() = 0;
};

// Commands of a group stand together, with a separator between groups.
enum class WindowGroup { kLog, kSound, kCompute, kSwitches, kOutput };

struct WindowCommandRow {
  WindowCommand id;
  std::uint32_t windows;
  WindowGroup group;
  std::string_view text;         // with its mnemonic
  std::string_view accelerator;  // empty: none
  std::string_view toolTip;
  std::uint32_t conditions;
  Carrier<AnalysisWindow, WindowActionsHost> carrier;
  std::optional<WindowSwitch> checkedWith = {};  // the switch that its check mark shows
  bool onStrip = true;                           // false: in the context menu only
};

// In the order of the tool strip.
std::span<const WindowCommandRow> WindowCommands();
// The row of a command in a kind of window; null when it has no such command.
const WindowCommandRow* RowOf(WindowKind kind, WindowCommand command);
// Whether a kind of window has the command.
bool Offers(WindowKind kind, const WindowCommandRow& row);

// The conditions that hold for a window now.
std::uint32_t ConditionsOf(const AnalysisWindow& window);
inline bool IsEnabled(const WindowCommandRow& row, std::uint32_t conditions) {
  return (row.conditions & ~conditions) == 0;
}

// The row's line for the status bar; of a command that is not enabled, with what to do first.
std::string StatusText(const WindowCommandRow& row, std::uint32_t conditions);

// Carries out a command that is enabled: on the model, or by `widget`; a null widget carries
// nothing out. Returns whether it was carried out. Throws as the computation of the window does.
bool RunWindowCommand(AnalysisWindow& window, WindowCommand command,
                      WindowActionsHost* widget = nullptr);

}  // namespace cantorix
