// session.h - what one file is worked on with: its prompts and progress, the host of its document,
// and the document itself. Made afresh for every file, so files never share a state.
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "batch/batch_prompts.h"
#include "batch/console.h"
#include "batch/console_progress.h"
#include "batch/program_directory.h"
#include "batch/request.h"
#include "document/document.h"
#include "measure/analyses.h"
#include "measure/stretch.h"
#include "platform/host_services.h"

namespace cantorix::batch {

struct Run;

class Session {
 public:
  // All outlive the session; `workers` are those of the files at one time.
  Session(const Run& run, const std::string& file, Workers& workers);

  // Opens the file with the run's settings. False when it could not be read; the reason is out.
  // Throws WrongUsage when the options name what it does not have.
  bool Open();

  const Request& request() const;
  const std::string& file() const { return file_; }
  Progress& progress() { return progress_; }
  CSonadexDoc& document() { return *document_; }
  BatchPrompts& prompts() { return prompts_; }
  const std::atomic<bool>& interrupted() const;
  Workers* workers() const { return host_.workers; }
  // The stretch that the options choose, in samples, or the whole recording.
  SampleRange Range() const;
  // Says it on standard error.
  Remark Remarks();

 private:
  // Where the file's bytes can be read: there, or in a copy of what the pipe gave.
  std::string ReadablePlace();

  const Run& run_;
  std::string file_;
  BatchPrompts prompts_;
  ConsoleProgress progress_;
  HostMemoryProbe memory_;
  DocumentHost host_;
  std::unique_ptr<ProgramDirectory> pipeCopy_;  // of a pipe, which can be read but once
  std::unique_ptr<CSonadexDoc> document_;
};

}  // namespace cantorix::batch
