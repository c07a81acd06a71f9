// frame_commands.h - the commands that the main frame carries out itself: files, windows, logs,
// configuration, help. Those of a view run through its own table.
#pragma once

#include <optional>

#include "desktop/analysis_windows.h"
#include "desktop/desktop_services.h"
#include "mainview/commands.h"

namespace cantorix {

class CMainFrame;

class FrameCommands {
 public:
  FrameCommands(CMainFrame& frame, const DesktopServices& services)
      : frame_(frame), services_(services) {}

  // Whether this program can carry a command out at all.
  bool Offers(Command command) const;
  // Carries out an enabled command, whoever's it is.
  void Perform(Command command);

 private:
  bool HasWindows(AnalysisKind kind) const;
  void PerformOnView(Command command, CSonadexView& view);
  // Each returns whether the command was one of its kind.
  bool PerformFile(Command command);
  bool PerformLog(Command command);
  bool PerformWindow(Command command);
  bool PerformConfiguration(Command command);

  CMainFrame& frame_;
  const DesktopServices& services_;
};

}  // namespace cantorix
