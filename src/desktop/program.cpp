// program.cpp - the steps of a run in their order.
#include "desktop/program.h"

#include <filesystem>

#include "app/start_up.h"

namespace cantorix {

Program::Program(SoundHost& sound)
    : profile_(UserProfilePath()),
      application_({profile_, prompts_, progress_, memory_}),
      dialogs_(prompts_),
      services_{application_,
                progress_,
                dialogs_,
                textMeasurer_,
                opener_,
                clipboard_,
                {sound, clock_, memory_}},
      analysisWindows_(services_),
      output_(prompts_, [this](CSonadexDoc& document) -> DocumentWaveform& {
        return mainFrame_->documents().WaveformOf(document);
      }) {}

Program::~Program() {
  prompts_.SetOwner(nullptr);
  progress_.SetOwner(nullptr);
}

bool Program::Start(const std::vector<std::string>& files) {
  std::error_code failure;
  const std::string current = std::filesystem::current_path(failure).string();
  if (StartUp(application_, current) != StartUpResult::kReady) return false;

  mainFrame_ = std::make_unique<CMainFrame>(services_);
  analysisWindows_.Enter({&mainFrame_->desks(),
                          [this](CSonadexDoc& document) -> DocumentWaveform& {
                            return mainFrame_->documents().WaveformOf(document);
                          },
                          [this] { mainFrame_->Refresh(); },
                          [this]() -> QPrinter& { return output_.printer(); },
                          [this](CSonadexView& view, const std::optional<Pointed>& pointed) {
                            mainFrame_->PointedAt(view, pointed);
                          },
                          [this](Command command) { mainFrame_->Perform(command); }});
  mainFrame_->SetAnalysisWindows(&analysisWindows_);
  mainFrame_->SetOutput(&output_);
  prompts_.SetOwner(mainFrame_.get());
  progress_.SetOwner(mainFrame_.get());
  if (!OpenAll(files)) return false;
  mainFrame_->showMaximized();
  mainFrame_->OfferWhatWasLeft();
  return true;
}

bool Program::EndSession(bool mayAsk) {
  if (mayAsk) return mainFrame_->close();
  for (const CSonadexDoc* const document : mainFrame_->documents().All()) {
    mainFrame_->sound().EndRecording(*document);
  }
  return true;
}

bool Program::OpenAll(const std::vector<std::string>& files) {
  if (files.empty()) {
    mainFrame_->NewDocument();
    return true;
  }
  for (const std::string& file : files) {
    if (!mainFrame_->OpenFile(file)) return false;
  }
  return true;
}

}  // namespace cantorix
