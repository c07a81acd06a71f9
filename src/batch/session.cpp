// session.cpp - opening one file with the run's settings.
#include "batch/session.h"

#include <filesystem>
#include <limits>

#include "batch/measures.h"
#include "batch/own_output.h"
#include "batch/run.h"
#include "batch/stream_place.h"
#include "settings/settings.h"

namespace cantorix::batch {

Session::Session(const Run& run, const std::string& file, Workers& workers)
    : run_(run),
      file_(file),
      prompts_(run.console, file, run.request, run.interrupted),
      progress_(run.console, file, run.interrupted),
      host_{.prompts = prompts_,
            .progress = progress_,
            .memory = memory_,
            .programDirectory = run.programDirectory,
            .application = run.settings.application,
            .channelEntries = std::numeric_limits<int>::max(),
            // Measuring leaves the configuration alone.
            .documentsWriteConfiguration = false,
            .samplesStayInFile = run.request.verb != Verb::kEdit && !MayReplace(run.request, file),
            .samplesAwaitChanges =
                WritesRecording(run.request.verb) && !MayReplace(run.request, file),
            .workers = &workers} {}

const Request& Session::request() const { return run_.request; }

const std::atomic<bool>& Session::interrupted() const { return run_.interrupted; }

SampleRange Session::Range() const { return StretchOf(run_.request, document_->channel()); }

bool Session::Open() {
  const std::string place = ReadablePlace();
  document_ = std::make_unique<CSonadexDoc>(host_);
  document_->settings = run_.settings.document;
  if (document_->OnOpenDocument(place)) {
    RequireStretch(run_.request, document_->channel());
    return true;
  }
  const OpenFailure& failure = document_->openFailure;
  if (!failure.shown && !prompts_.declined()) {
    prompts_.Say("could not be opened. " + failure.reason);
  }
  return false;
}

Remark Session::Remarks() {
  return [this](const std::string& text) { prompts_.Note(text); };
}

std::string Session::ReadablePlace() {
  std::error_code unknown;
  const std::filesystem::file_status status = std::filesystem::status(file_, unknown);
  if (!std::filesystem::is_fifo(status) && !std::filesystem::is_socket(status)) return file_;
  pipeCopy_ = std::make_unique<ProgramDirectory>("");
  std::string copy = pipeCopy_->path() + "/" + std::filesystem::path(file_).filename().string();
  SavePipe(file_, copy, run_.interrupted);
  prompts_.OpensFrom(copy);
  return copy;
}

}  // namespace cantorix::batch
