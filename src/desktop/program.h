// program.h - the desktop program: its services, the start-up, the main frame, the end.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/application.h"
#include "desktop/main_frame.h"
#include "desktop/main_view_output.h"
#include "desktop/qt_dialogs.h"
#include "desktop/qt_progress.h"
#include "desktop/qt_prompts.h"
#include "desktop/qt_shell_opener.h"
#include "desktop/qt_text.h"
#include "desktop/windows/analysis_window_set.h"
#include "mainview/clipboard.h"
#include "platform/host_services.h"
#include "platform/ini_profile_store.h"

namespace cantorix {

class Program {
 public:
  // `sound` outlives the program.
  explicit Program(SoundHost& sound);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Starts up, opens `files`, or a new document without any, and shows the main frame. False when
  // the start-up failed or a file could not be opened; the user has been told.
  bool Start(const std::vector<std::string>& files);

  // The user logs out. Ends a recording and, when questions are allowed, closes as the user would;
  // false when they keep the program. Without questions what is recorded stays for the next start.
  bool EndSession(bool mayAsk);

 private:
  bool OpenAll(const std::vector<std::string>& files);

  IniProfileStore profile_;
  HostMemoryProbe memory_;
  HostClock clock_;
  QtPrompts prompts_;
  QtProgress progress_;
  Application application_;
  Clipboard clipboard_;
  QtTextMeasurer textMeasurer_;
  QtDialogs dialogs_;
  QtShellOpener opener_;
  DesktopServices services_;
  AnalysisWindowSet analysisWindows_;
  MainViewOutput output_;
  std::unique_ptr<CMainFrame> mainFrame_;
};

}  // namespace cantorix
