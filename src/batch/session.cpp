// session.cpp - opening one file with the run's settings.
#include "batch/session.h"

#include <limits>

namespace cantorix::batch {

Session::Session(const Run& run, const std::string& file)
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
            .documentsWriteConfiguration = false} {}

bool Session::Open() {
  document_ = std::make_unique<CSonadexDoc>(host_);
  document_->settings = run_.settings.document;
  if (document_->OnOpenDocument(file_)) return true;
  const OpenFailure& failure = document_->openFailure;
  if (!failure.shown && !prompts_.declined())
    prompts_.Say("could not be opened. " + failure.reason);
  return false;
}

SampleRange Session::Range() const {
  const CChannel& channel = document_->channel();
  SampleRange range{0.0, channel.totalLength};
  if (run_.request.fromMs) range.start = channel.PointAtTime(*run_.request.fromMs).samples;
  if (run_.request.toMs) range.end = channel.PointAtTime(*run_.request.toMs).samples;
  return range;
}

}  // namespace cantorix::batch
