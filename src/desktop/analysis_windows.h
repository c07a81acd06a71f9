// analysis_windows.h - where the frame asks for the windows of the analyses. What draws and holds
// them stands behind this interface.
#pragma once

#include <optional>
#include <vector>

#include "analysisview/analysis_window.h"
#include "analysisview/pointed.h"
#include "mainview/analysis_commands.h"

class QMdiSubWindow;

namespace cantorix {

class CSpectrogramView;

class DeskWindow;

struct AnalysisRequest {
  WindowKind kind;
  std::optional<Stretch> stretch;  // none: the frame at the cursor
};

// An open window of an analysis.
struct AnalysisWindowOf {
  WindowKind kind;
  DeskWindow* window;
};

class AnalysisWindows {
 public:
  virtual ~AnalysisWindows() = default;

  // Analyses and shows the result in the view's window of that kind, which is opened when there is
  // none. Throws Abandoned when the user cancels.
  virtual void Open(CSonadexView& view, const AnalysisRequest& request) = 0;
  // The pointer was used in a main view, whose cursor stands at `ms`.
  virtual void CursorMoved(CSonadexView& view, MousePhase phase, double ms) = 0;
  // The time of the document that is heard now; nothing: none.
  virtual void ShowPlayed(const CSonadexDoc& document, std::optional<double> ms) = 0;
  // The time under the pointer in any window of the view; nothing: none.
  virtual void ShowPointed(const CSonadexView& view, const std::optional<Pointed>& pointed) = 0;
  // Something that commands depend on may have changed: a log was opened, say.
  virtual void RefreshCommands() = 0;
  // The view goes: its windows must, too.
  virtual void CloseWindowsOf(CSonadexView& view) = 0;
  // The view's spectrogram; null without one.
  virtual const CSpectrogramView* SpectrogramOf(const CSonadexView& view) const = 0;
  // Those of the view that are open: spectrogram, pitch, spectrum.
  virtual std::vector<AnalysisWindowOf> WindowsOf(const CSonadexView& view) const = 0;
  // The view that an analysis window belongs to; null for any other window.
  virtual CSonadexView* ViewOf(const QMdiSubWindow& window) const = 0;
};

}  // namespace cantorix
