// frame_actions.h - what the table of commands leaves to the frame around the views: windows,
// printing and what concerns the whole program. One function for each such command; all of
// them work on the document in front.
#pragma once

#include "mainview/analysis_commands.h"

namespace cantorix {

class FrameActions {
 public:
  virtual ~FrameActions() = default;

  // File
  virtual void NewDocument() = 0;
  virtual void OpenRecording() = 0;
  virtual void OpenRecentFile() = 0;  // the one used last; nothing without one
  virtual void CloseDocument() = 0;
  virtual void SavePicture() = 0;
  virtual void SaveScreen() = 0;
  virtual void SaveGroupPicture() = 0;  // the windows over time under each other
  virtual void LoadConfiguration() = 0;
  virtual void SaveConfiguration() = 0;
  virtual void RevertConfiguration() = 0;
  virtual void Print() = 0;
  virtual void PrintScreen() = 0;
  virtual void PreviewPrint() = 0;
  virtual void SetUpPrinter() = 0;
  virtual void Exit() = 0;

  // View
  virtual void ToggleToolBar() = 0;
  virtual void ToggleStatusBar() = 0;

  // Record/Play
  virtual void ShowRecordPlayOptions() = 0;

  // Analysis, in windows of its own
  virtual void ShowSpectrum() = 0;  // of the frame at the cursor
  virtual void ShowMeanSpectrum(Stretch stretch) = 0;
  virtual void ShowSpectrogram(Stretch stretch) = 0;
  virtual void ShowPitch(Stretch stretch) = 0;

  // Floating windows and logs
  virtual void ShowStatistics() = 0;  // of the selection; those that are shown go into the log
  virtual void ShowLabelList() = 0;
  virtual void TogglePhoneticChart() = 0;
  virtual void ShowDisplayOptions() = 0;
  virtual void NewLog() = 0;
  virtual void OpenLog() = 0;
  virtual void SaveLog() = 0;
  virtual void SaveLogAs() = 0;

  // Window
  virtual void NewWindow() = 0;
  virtual void CascadeWindows() = 0;
  virtual void TileWindows() = 0;
  virtual void ArrangeIcons() = 0;
  virtual void ArrangeAnalyses() = 0;
  virtual void ActivateNextWindow(int step) = 0;  // of the recording in front
  virtual void ActivateNextRecording() = 0;
  virtual void CloseStatusWindow() = 0;

  // Help
  virtual void ShowManual() = 0;
  virtual void ShowManualOfWindow() = 0;
  virtual void ShowAbout() = 0;
};

}  // namespace cantorix
