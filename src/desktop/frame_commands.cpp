// frame_commands.cpp - one function for each command of the frame.
#include "desktop/frame_commands.h"

#include <QCoreApplication>
#include <filesystem>

#include "app/configuration_commands.h"
#include "app/file_open.h"
#include "app/log_documents.h"
#include "app/manual.h"
#include "desktop/about_box.h"
#include "desktop/document_output.h"
#include "desktop/main_frame.h"
#include "desktop/qt_progress.h"

namespace cantorix {
namespace {

// Where the package puts what goes with the program.
std::string InstalledDirectory() {
  return (QCoreApplication::applicationDirPath() + "/../share/cantorix").toStdString();
}

std::optional<AnalysisRequest> AnalysisOf(Command command) {
  switch (command) {
    case Command::kFftLpc:
      return AnalysisRequest{AnalysisKind::kFftLpc, std::nullopt};
    case Command::kFftLpcSelection:
      return AnalysisRequest{AnalysisKind::kFftLpc, Stretch::kSelection};
    case Command::kSpectrogramAll:
      return AnalysisRequest{AnalysisKind::kSpectrogram, Stretch::kAll};
    case Command::kSpectrogramSelection:
      return AnalysisRequest{AnalysisKind::kSpectrogram, Stretch::kSelection};
    case Command::kSpectrogramWindow:
      return AnalysisRequest{AnalysisKind::kSpectrogram, Stretch::kWindow};
    case Command::kPitchAll:
      return AnalysisRequest{AnalysisKind::kPitch, Stretch::kAll};
    case Command::kPitchSelection:
      return AnalysisRequest{AnalysisKind::kPitch, Stretch::kSelection};
    case Command::kPitchWindow:
      return AnalysisRequest{AnalysisKind::kPitch, Stretch::kWindow};
    default:
      return std::nullopt;
  }
}

// Commands that need a sound card, which the table's facts keep disabled without one.
bool IsSound(Command command) {
  switch (command) {
    case Command::kRecord:
    case Command::kPlayAll:
    case Command::kPlaySelection:
    case Command::kPlayWindow:
    case Command::kRecordPlayOptions:
      return true;
    default:
      return false;
  }
}

}  // namespace

bool FrameCommands::HasWindows(AnalysisKind kind) const {
  return frame_.analysisWindows() != nullptr && frame_.analysisWindows()->Offers(kind);
}

bool FrameCommands::Offers(Command command) const {
  // A pitch track can be seen in the main view, too.
  const auto analysis = AnalysisOf(command);
  if (analysis && analysis->kind != AnalysisKind::kPitch) return HasWindows(analysis->kind);
  if (IsOutput(command)) return frame_.output() != nullptr;
  return !IsSound(command);
}

void FrameCommands::Perform(Command command) {
  if (services_.progress.running()) return;
  CSonadexView* const view = frame_.activeView();
  if (!Offers(command) || !IsEnabled(RowOf(command), FactsOf(view))) return;
  if (IsOutput(command)) {
    frame_.output()->Perform(command, view, frame_);
  } else if (view != nullptr && (RowOf(command).handler != nullptr || AnalysisOf(command))) {
    PerformOnView(command, *view);
  } else if (!PerformFile(command) && !PerformLog(command) && !PerformWindow(command)) {
    PerformConfiguration(command);
  }
  frame_.Refresh();
}

void FrameCommands::PerformOnView(Command command, CSonadexView& view) {
  const auto analysis = AnalysisOf(command);
  if (analysis && HasWindows(analysis->kind)) {
    Guarded(view, [&] { frame_.analysisWindows()->Open(view, *analysis); });
  } else {
    RunCommand(view, command);
  }
}

bool FrameCommands::PerformFile(Command command) {
  switch (command) {
    case Command::kNew:
      frame_.NewDocument();
      return true;
    case Command::kOpen:
      if (const auto path = ChooseRecording(services_.application)) frame_.OpenFile(*path);
      return true;
    case Command::kClose:
      frame_.CloseDocument(frame_.activeView()->document());
      return true;
    case Command::kExit:
      frame_.close();
      return true;
    case Command::kHelpTopics: {
      std::error_code failure;
      OpenManual(std::filesystem::current_path(failure).string(), services_.opener,
                 services_.application.prompts(), InstalledDirectory());
      return true;
    }
    case Command::kAbout:
      ShowAboutBox(&frame_);
      return true;
    default:
      return false;
  }
}

bool FrameCommands::PerformLog(Command command) {
  Application& application = services_.application;
  switch (command) {
    case Command::kLogNew:
      if (NewLog(application)) frame_.ShowLog();
      return true;
    case Command::kLogOpen:
      if (OpenLogFile(application)) frame_.ShowLog();
      return true;
    case Command::kLogSave:
      SaveOpenLog(application);
      return true;
    case Command::kLogSaveAs:
      SaveOpenLogAs(application);
      return true;
    default:
      return false;
  }
}

bool FrameCommands::PerformWindow(Command command) {
  switch (command) {
    case Command::kToolBar:
      frame_.ToggleToolBar();
      return true;
    case Command::kStatusBar:
      frame_.ToggleStatusBar();
      return true;
    case Command::kViewLabels:
      frame_.ShowLabelList();
      return true;
    case Command::kDisplayOptions:
      frame_.ShowDisplayOptions();
      return true;
    case Command::kNewWindow:
      frame_.OpenNewWindow(frame_.activeView()->document());
      return true;
    case Command::kCascade:
    case Command::kTile:
    case Command::kArrangeIcons:
      frame_.ArrangeWindows(command);
      return true;
    case Command::kCloseStatusWindow:
      services_.progress.CloseWindow();
      return true;
    default:
      return false;
  }
}

bool FrameCommands::PerformConfiguration(Command command) {
  DocumentHost& host = services_.application.host;
  CSonadexView* const view = frame_.activeView();
  switch (command) {
    case Command::kLoadConfiguration:
      if (LoadConfiguration(host, view == nullptr ? nullptr : &view->document()) &&
          view != nullptr) {
        view->document().Notify(DocumentChange::kSettings);
      }
      return true;
    case Command::kSaveConfiguration:
      SaveConfiguration(host, view->document());
      return true;
    case Command::kRevertConfiguration:
      RevertConfiguration(host, frame_.documents().All());
      return true;
    default:
      return false;
  }
}

}  // namespace cantorix
