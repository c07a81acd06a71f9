// frame_commands.h - where commands begin in the desktop program, and those of them that the table
// leaves to the frame: files, printing, analysis windows, logs, configuration, windows, help.
#pragma once

#include <functional>

#include "desktop/analysis_windows.h"
#include "desktop/desktop_services.h"
#include "mainview/commands.h"

namespace cantorix {

class CMainFrame;

// What is typed in the view is kept, with failures shown; false when it cannot be.
bool KeepsTyping(CSonadexView& view);

// Where the package puts what goes with the program; the build has the same folder.
std::string InstalledDirectory();

class FrameCommands : private FrameActions {
 public:
  FrameCommands(CMainFrame& frame, const DesktopServices& services)
      : frame_(frame), services_(services) {}

  // Carries out an enabled command, whoever's it is; while an operation runs, only what may run
  // beside one.
  void Perform(Command command);

 private:
  void NewDocument() override;
  void OpenRecording() override;
  void OpenRecentFile() override;
  void CloseDocument() override;
  void SavePicture() override;
  void SaveScreen() override;
  void SaveGroupPicture() override;
  void LoadConfiguration() override;
  void SaveConfiguration() override;
  void RevertConfiguration() override;
  void Print() override;
  void PrintScreen() override;
  void PreviewPrint() override;
  void SetUpPrinter() override;
  void Exit() override;
  void ToggleToolBar() override;
  void ToggleStatusBar() override;
  void ShowSpectrum() override;
  void ShowMeanSpectrum(Stretch stretch) override;
  void ShowSpectrogram(Stretch stretch) override;
  void ShowPitch(Stretch stretch) override;
  void ShowStatistics() override;
  void ShowLabelList() override;
  void TogglePhoneticChart() override;
  void ShowDisplayOptions() override;
  void ShowRecordPlayOptions() override;
  void NewLog() override;
  void OpenLog() override;
  void SaveLog() override;
  void SaveLogAs() override;
  void NewWindow() override;
  void CascadeWindows() override;
  void TileWindows() override;
  void ArrangeIcons() override;
  void ArrangeAnalyses() override;
  void ActivateNextWindow(int step) override;
  void ActivateNextRecording() override;
  void CloseStatusWindow() override;
  void ShowManual() override;
  void ShowManualOfWindow() override;
  void ShowAbout() override;

  // On the view in front, with failures shown; nothing without one.
  void OnView(const std::function<void(CSonadexView&)>& action);
  void Analyse(const AnalysisRequest& request);

  void OpenManualAt(const std::string& page);

  CMainFrame& frame_;
  const DesktopServices& services_;
};

}  // namespace cantorix
