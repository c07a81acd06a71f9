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
#include "mainview/label_typing.h"

namespace cantorix {

std::string InstalledDirectory() {
  return (QCoreApplication::applicationDirPath() + "/../share/cantorix").toStdString();
}

bool KeepsTyping(CSonadexView& view) {
  bool kept = false;
  Guarded(view, [&] { kept = KeepTyping(view); });
  return kept;
}

void FrameCommands::Perform(Command command) {
  const CommandRow& row = RowOf(command);
  if (services_.progress.running() && !row.whileBusy) return;
  CSonadexView* const view = frame_.activeView();
  if (!IsEnabled(row, FactsOf(view))) return;
  if (view != nullptr && !LeavesTypingOpen(row) && !KeepsTyping(*view)) return;
  FrameActions& actions = *this;
  if (!row.carrier.RunOn(actions) && view != nullptr) RunCommand(*view, command);
  frame_.Refresh();
}

void FrameCommands::OnView(const std::function<void(CSonadexView&)>& action) {
  CSonadexView* const view = frame_.activeView();
  if (view != nullptr) Guarded(*view, [&] { action(*view); });
}

// File
void FrameCommands::NewDocument() { frame_.NewDocument(); }

void FrameCommands::OpenRecording() {
  if (const auto path = ChooseRecording(services_.application)) frame_.OpenFile(*path);
}

void FrameCommands::OpenRecentFile() {
  const std::vector<std::string> paths = services_.application.recentFiles.paths();
  if (!paths.empty()) frame_.OpenFile(paths.front());
}

void FrameCommands::CloseDocument() { frame_.CloseDocument(frame_.activeView()->document()); }

void FrameCommands::SavePicture() {
  OnView([this](CSonadexView& view) { frame_.output()->SavePicture(view); });
}

void FrameCommands::SaveScreen() {
  OnView([this](CSonadexView& view) { frame_.output()->SaveScreen(view, frame_); });
}

void FrameCommands::SaveGroupPicture() {
  OnView([this](CSonadexView& view) {
    frame_.output()->SaveGroup(view, frame_.analysisWindows()->WindowsOf(view));
  });
}

void FrameCommands::LoadConfiguration() {
  CSonadexView* const view = frame_.activeView();
  CSonadexDoc* const document = view == nullptr ? nullptr : &view->document();
  if (cantorix::LoadConfiguration(services_.application.host, document) && document != nullptr) {
    document->Notify(DocumentChange::kSettings);
  }
}

void FrameCommands::SaveConfiguration() {
  cantorix::SaveConfiguration(services_.application.host, frame_.activeView()->document());
}

void FrameCommands::RevertConfiguration() {
  cantorix::RevertConfiguration(services_.application.host, frame_.documents().All());
}

void FrameCommands::Print() {
  OnView([this](CSonadexView& view) { frame_.output()->Print(view, frame_); });
}

void FrameCommands::PrintScreen() {
  OnView([this](CSonadexView& view) { frame_.output()->PrintScreen(view, frame_); });
}

void FrameCommands::PreviewPrint() {
  OnView([this](CSonadexView& view) { frame_.output()->Preview(view, frame_); });
}

void FrameCommands::SetUpPrinter() { frame_.output()->SetUp(frame_); }

void FrameCommands::Exit() { frame_.close(); }

// View
void FrameCommands::ToggleToolBar() { frame_.ToggleToolBar(); }
void FrameCommands::ToggleStatusBar() { frame_.ToggleStatusBar(); }

// Analysis
void FrameCommands::ShowSpectrum() { Analyse({WindowKind::kFftLpc, std::nullopt}); }
void FrameCommands::ShowMeanSpectrum(Stretch stretch) { Analyse({WindowKind::kFftLpc, stretch}); }
void FrameCommands::ShowSpectrogram(Stretch stretch) {
  Analyse({WindowKind::kSpectrogram, stretch});
}
void FrameCommands::ShowPitch(Stretch stretch) { Analyse({WindowKind::kPitch, stretch}); }

void FrameCommands::Analyse(const AnalysisRequest& request) {
  OnView([&](CSonadexView& view) { frame_.analysisWindows()->Open(view, request); });
}

// Floating windows and logs
void FrameCommands::ShowStatistics() { frame_.ShowStatistics(); }
void FrameCommands::ShowLabelList() { frame_.ShowLabelList(); }
void FrameCommands::TogglePhoneticChart() { frame_.TogglePhoneticChart(); }
void FrameCommands::ShowDisplayOptions() { frame_.ShowDisplayOptions(); }
void FrameCommands::ShowRecordPlayOptions() { frame_.ShowRecordPlayOptions(); }

void FrameCommands::NewLog() {
  if (cantorix::NewLog(services_.application)) frame_.ShowLog();
}

void FrameCommands::OpenLog() {
  if (OpenLogFile(services_.application)) frame_.ShowLog();
}

void FrameCommands::SaveLog() { SaveOpenLog(services_.application); }
void FrameCommands::SaveLogAs() { SaveOpenLogAs(services_.application); }

// Window
void FrameCommands::NewWindow() { frame_.OpenNewWindow(frame_.activeView()->document()); }
void FrameCommands::CascadeWindows() { frame_.desks().Cascade(); }
void FrameCommands::TileWindows() { frame_.desks().Tile(); }
void FrameCommands::ArrangeIcons() { frame_.desks().ArrangeIcons(); }
void FrameCommands::ArrangeAnalyses() { frame_.desks().Arrange(*frame_.activeView()); }
void FrameCommands::ActivateNextWindow(int step) { frame_.desks().ActivateNext(step); }
void FrameCommands::ActivateNextRecording() { frame_.desks().ActivateNextDesk(); }
void FrameCommands::CloseStatusWindow() { services_.progress.CloseWindow(); }

// Help
void FrameCommands::OpenManualAt(const std::string& page) {
  std::error_code failure;
  OpenManual(std::filesystem::current_path(failure).string(), services_.opener,
             services_.application.prompts(), InstalledDirectory(), page);
}

void FrameCommands::ShowManual() { OpenManualAt(kManualIndex); }
void FrameCommands::ShowManualOfWindow() { OpenManualAt(frame_.PageOfWindow()); }

void FrameCommands::ShowAbout() { ShowAboutBox(&frame_); }

}  // namespace cantorix
